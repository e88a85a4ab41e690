// The phone's screen in its window: what clicks, drags and keys reach, and what is drawn.
#include <QClipboard>
#include <QGuiApplication>

#include "desktop/window_fixture.h"
#include "hosts/headless/json_views.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"
#include "presentation/ui_manager.h"
#include "support/pictures.h"

namespace gexlo::test {
namespace {

using Style = UIAlert::Button::Style;

constexpr UIColor kRed{1, 0, 0, 1}, kGreen{0, 1, 0, 1}, kWhite{1, 1, 1, 1};

class Screen : public InAWindow {
protected:
    Screen() {
        UIWindow::keyWindow().setBackgroundColor(kWhite);
        showActive();
    }

    template <typename View = UIView>
    View& add(CGRect frame, UIColor color = {}) {
        View& view = UIWindow::keyWindow().add<View>(frame);
        view.setBackgroundColor(color);
        return view;
    }
    /// One that writes its title down when it is pressed.
    UIButton& addButton(const char* title, CGRect frame) {
        auto& button = add<UIButton>(frame, kGreen);
        button.setTitle(title);
        button.addAction(UIControlEvent::touchUpInside, [this, title] { pressed += title; });
        return button;
    }
    /// Its answer is written down with its texts.
    void show(UIAlert alert) {
        alert.dismissed = [this](std::size_t button, const auto& fields) {
            pressed += std::to_string(button);
            for (const auto& field : fields)
                pressed += "," + field.text;
        };
        Device::current().perform([&] { std::move(alert).show(); });
        atRest();
    }
    static UIAlert ask(std::vector<UIAlert::Button> buttons, std::size_t fields = 0,
                       UIAlert::Kind kind = UIAlert::Kind::alert) {
        UIAlert alert;
        alert.kind = kind;
        alert.title = "Title";
        alert.buttons = std::move(buttons);
        alert.fields.resize(fields);
        return alert;
    }
    static UIAlert question(std::size_t fields = 0) {
        return ask({{"Cancel", Style::cancel}, {"Add"}}, fields);
    }
    static const UIAlert& alert() { return UIWindow::keyWindow().alerts().back(); }
    /// That is pushed up by 300 points and let go after as many milliseconds.
    void fling(UIScrollView& list, unsigned long pause) {
        list.setContentSize({375, 9000});
        list.setContentOffset({});
        const unsigned long end = drag({100, 500}, {0, -20}, 15);
        mouse(QEvent::MouseButtonRelease, {100, 200}, end + pause);
    }
    /// A finger that moves by as much every 10 milliseconds; returns when it came to its end.
    unsigned long drag(CGPoint from, CGPoint step, int steps) {
        unsigned long time = 5000;
        mouse(QEvent::MouseButtonPress, from, time);
        for (int i = 1; i <= steps; ++i)
            mouse(QEvent::MouseMove, {from.x + i * step.x, from.y + i * step.y}, time += 10);
        return time;
    }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window, static_cast<Qt::Key>(code), modifiers);
        atRest();
    }
    void write(const char* text) {
        for (; *text; ++text)
            QTest::keyClick(&window, *text);
    }
    /// What is spoken of the item that has the focus.
    std::string focused() const {
        const QQuickItem* item = window.activeFocusItem();
        return item ? item->property("spokenName").toString().toStdString() : "";
    }
    static const QQuickItem* itemThatIs(const std::string& spoken, const QQuickItem& in) {
        const auto* item = qobject_cast<const ViewItem*>(&in);
        if (item && item->view() && item->spokenName().toStdString() == spoken) return item;
        for (const QQuickItem* child : in.childItems())
            if (const QQuickItem* found = itemThatIs(spoken, *child)) return found;
        return nullptr;
    }
    QPoint middleOf(const std::string& spoken) const {
        const QQuickItem* item = itemThatIs(spoken, *window.contentItem());
        EXPECT_TRUE(item) << spoken;
        return item ? item->mapToScene(item->boundingRect().center()).toPoint() : QPoint();
    }
    QColor colorAt(int x, int y) {
        atRest();
        return window.grabWindow().pixelColor(x, y);
    }
    /// What is seen so many seconds later, with a turn of the main queue at that moment.
    QImage seenAfter(double seconds) {
        phone.advance(seconds);
        Device::current().perform([] {});
        window.screen().synchronize();
        return window.grabWindow();
    }

    std::string pressed;
};

// MARK: alerts

TEST_F(Screen, every_drawn_button_of_an_alert_answers_its_own_index) {
    const std::vector<UIAlert> alerts{
        question(), ask({{"A"}, {"B"}, {"C"}}),
        ask({{"Cancel", Style::cancel}, {"Keep"}, {"Delete", Style::destructive}}, 0,
            UIAlert::Kind::sheet)};
    for (const UIAlert& asked : alerts) {
        for (std::size_t i = 0; i < asked.buttons.size(); ++i) {
            show(asked);
            QTest::mouseClick(&window, Qt::LeftButton, {}, middleOf(asked.buttons[i].title));
            EXPECT_EQ(std::exchange(pressed, ""), std::to_string(i)) << asked.buttons[i].title;
            atRest();
        }
    }
}

TEST_F(Screen, return_and_escape_answer_an_alert) {
    constexpr auto kSheet = UIAlert::Kind::sheet;
    const std::vector<std::tuple<UIAlert, std::string, std::string>> cases{
        {ask({{"OK", Style::cancel}}), "0", "0"},
        {ask({{"OK"}}), "0", "0"},
        {question(), "1", "0"},
        {ask({{"A"}, {"B"}, {"Cancel", Style::cancel}}), "1", "2"},
        {ask({{"A"}, {"Delete", Style::destructive}}), "0", ""},
        {ask({{"Delete", Style::destructive}, {"Cancel", Style::cancel}}, 0, kSheet), "1", "1"},
        {ask({{"Mail"}, {"Cancel", Style::cancel}}, 0, kSheet), "0", "1"},
        {ask({{"Mail"}, {"Album"}, {"Cancel", Style::cancel}}, 0, kSheet), "", "2"},
        {ask({}), "", ""},
    };
    addButton("under", {20, 20, 100, 40});
    atRest();
    key(Qt::Key_Tab);
    show(question());
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&window, &held);
    EXPECT_EQ(pressed, "") << "a key that was down before it came";
    key(Qt::Key_Escape);
    pressed.clear();
    for (const auto& [asked, onReturn, onEscape] : cases) {
        for (const auto& [code, answer] :
             {std::pair{Qt::Key_Return, onReturn}, {Qt::Key_Escape, onEscape}}) {
            show(asked);
            key(code);
            EXPECT_EQ(std::exchange(pressed, ""), answer) << asked.buttons.size();
            if (answer.empty()) Device::current().perform([] { UIWindow::keyWindow().answer(0); });
            pressed.clear();
            atRest();
        }
        if (asked.buttons.empty()) break;  // which nothing takes away
    }
}

TEST_F(Screen, an_alert_takes_the_keyboard_and_gives_it_back) {
    auto& field = add<UITextField>({20, 20, 200, 40}, kWhite);
    auto& opener = addButton("Ask", {20, 100, 100, 40});
    opener.addAction(UIControlEvent::touchUpInside, [&] {
        Device::current().mainQueue().async([&] {
            show(question(2));
            pressed.clear();
        });
    });
    Device::current().perform([&] { field.becomeFirstResponder(); });
    atRest();
    write("a");
    show(question(2));
    write("b");
    Device::current().perform([] { UIWindow::keyWindow().setAlertText(0, "driven "); });
    atRest();
    write("c");
    key(Qt::Key_Tab);
    write("d");
    EXPECT_EQ(alert().fields[0].text + alert().fields[1].text, "driven cd");
    std::string round;
    for (int i = 0; i < 8; ++i) {
        key(Qt::Key_Tab, i < 4 ? Qt::NoModifier : Qt::ShiftModifier);
        round += focused() + ";";
    }
    EXPECT_EQ(round, "Cancel;Add;;;;Add;Cancel;;") << "two fields without a name, two buttons";
    key(Qt::Key_Return);
    EXPECT_EQ(std::exchange(pressed, ""), "1,driven c,d");
    write("e");
    EXPECT_EQ(field.text(), "ae");

    key(Qt::Key_Tab);
    key(Qt::Key_Space);
    EXPECT_EQ(UIWindow::keyWindow().alerts().size(), 1U);
    key(Qt::Key_Escape);
    EXPECT_EQ(focused(), "Ask");
    show(question());
    opener.removeFromSuperview();
    key(Qt::Key_Escape);
    write("f");
    EXPECT_EQ(field.text(), "ae") << "it was not where the keyboard was";
}

TEST_F(Screen, an_alert_ends_the_touch_or_drag_that_it_interrupts) {
    show(question());
    const QPoint add = middleOf("Add");
    const CGPoint place{static_cast<double>(add.x()), static_cast<double>(add.y())};
    key(Qt::Key_Escape);
    mouse(QEvent::MouseButtonPress, place, 1000);
    show(question());
    mouse(QEvent::MouseButtonRelease, place, 1100);
    EXPECT_EQ(UIWindow::keyWindow().alerts().size(), 1U);
    key(Qt::Key_Escape);

    auto& list = this->add<UIScrollView>({0, 0, 375, 600});
    list.setContentSize({375, 3000});
    drag({100, 100}, {0, 20}, 20);
    EXPECT_LT(list.contentOffset().y, 0);
    show(question());
    EXPECT_EQ(list.contentOffset().y, 0);
    pressed.clear();
    mouse(QEvent::MouseMove, place, 9000);
    mouse(QEvent::MouseButtonRelease, place, 9010);
    EXPECT_EQ(list.contentOffset().y, 0);
    EXPECT_EQ(pressed, "");
    key(Qt::Key_Escape);
    drag({100, 100}, {0, 20}, 20);
    EXPECT_LT(list.contentOffset().y, 0);
    window.screen().ungrabMouse();
    atRest();
    EXPECT_EQ(list.contentOffset().y, 0) << "another takes the mouse";
}

TEST_F(Screen, a_press_is_for_the_alert_that_it_began_on) {
    for (const bool comes : {true, false}) {
        show(question());
        if (!comes) show(question());
        const QPoint add = middleOf("Add");
        const CGPoint place{static_cast<double>(add.x()), static_cast<double>(add.y())};
        mouse(QEvent::MouseButtonPress, place, 1000);
        Device::current().perform([&] {
            UIWindow& shown = UIWindow::keyWindow();
            comes ? shown.present(question()) : shown.answer(0);
        });
        pressed.clear();
        mouse(QEvent::MouseButtonRelease, place, 1100);
        atRest();
        EXPECT_EQ(UIWindow::keyWindow().alerts().size(), comes ? 2U : 1U);
        EXPECT_EQ(pressed, "");
        while (!UIWindow::keyWindow().alerts().empty())
            key(Qt::Key_Escape);
    }
}

TEST_F(Screen, a_long_message_scrolls_by_finger_and_by_wheel) {
    UIAlert asked = question();
    for (int i = 0; i < 400; ++i)
        asked.message += "word " + std::to_string(i) + " ";
    show(asked);
    QImage former = window.grabWindow();
    const auto hasMoved = [&] {
        atRest();
        return std::exchange(former, window.grabWindow()) != former;
    };
    const unsigned long end = drag({187, 300}, {0, -10}, 8);
    mouse(QEvent::MouseButtonRelease, {187, 220}, end);
    EXPECT_TRUE(hasMoved());
    QWheelEvent wheel({187, 300}, {187, 300}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &wheel);
    EXPECT_TRUE(hasMoved());
    QTest::mouseClick(&window, Qt::LeftButton, {}, middleOf("Add"));
    EXPECT_EQ(pressed, "1");
}

// MARK: keys

TEST_F(Screen, keys_reach_what_a_finger_reaches_and_press_that_alone) {
    UIButton& outer = addButton("A", {20, 20, 100, 100});
    UIButton& inner = outer.add<UIButton>(CGRect{40, 40, 20, 20});
    inner.setTitle("B");
    inner.addAction(UIControlEvent::touchUpInside, [&] { pressed += "B"; });
    addButton("covered", {20, 150, 100, 40});
    addButton("disabled", {20, 200, 100, 40}).setEnabled(false);
    auto& field = add<UITextField>({200, 150, 100, 40}, kWhite);
    addButton("C", {20, 250, 100, 40});
    UIView& cover = add({0, 145, 375, 50}, kRed);
    atRest();
    std::string round;
    for (int i = 0; i < 4; ++i) {
        key(Qt::Key_Tab);
        round += focused();
        key(Qt::Key_Space);
    }
    EXPECT_EQ(round, "ABCA");
    EXPECT_EQ(std::exchange(pressed, ""), "ABCA");
    QTest::mouseClick(&window, Qt::LeftButton, {}, {250, 170});
    EXPECT_FALSE(field.isFirstResponder()) << "a click on what covers it";
    cover.setHidden(true);
    atRest();
    QTest::mouseClick(&window, Qt::LeftButton, {}, {250, 170});
    EXPECT_TRUE(field.isFirstResponder());

    key(Qt::Key_Tab);
    ASSERT_EQ(focused(), "C");
    UIWindow::keyWindow().bringSubviewToFront(cover);
    cover.setFrame({0, 0, 375, 667});
    cover.setHidden(false);
    atRest();
    key(Qt::Key_Space);
    cover.removeFromSuperview();
    UIWindow::keyWindow().setCovered(true);
    atRest();
    key(Qt::Key_Space);
    key(Qt::Key_Tab);
    key(Qt::Key_Return);
    write("x");
    EXPECT_EQ(pressed + field.text(), "") << "under a panel, and under a composer";
    UIWindow::keyWindow().setCovered(false);
    atRest();
    key(Qt::Key_Space);
    EXPECT_EQ(pressed, "C");
}

TEST_F(Screen, a_field_keeps_its_text_within_and_shows_its_beginning_when_it_is_left) {
    auto& field = add<UITextField>({50, 50, 100, 30}, kWhite);
    field.setText("iiiiiiiiiiMMMMMMMMMMMMMMMMMMMM");
    field.setBorder(1, kGreen);
    atRest();
    const auto seen = [&] { return window.grabWindow().copy(40, 40, 120, 50); };
    const QImage before = seen();
    QTest::mouseClick(&window, Qt::LeftButton, {}, {100, 65});
    key(Qt::Key_End);
    const QImage within = seen();
    EXPECT_NE(within.copy(17, 10, 40, 30), before.copy(17, 10, 40, 30)) << "its end";
    for (const QImage& image : {before, within}) {
        for (int x : {3, 10, 11, 14, 106, 109, 113})
            for (int y = 15; y < 35; ++y)
                EXPECT_GT(image.pixelColor(x, y).green(), 200) << x << " " << y;
    }
    QTest::mouseClick(&window, Qt::LeftButton, {}, {300, 300});
    atRest();
    EXPECT_EQ(seen(), before);
}

TEST_F(Screen, pasted_line_breaks_do_not_come_into_one_line) {
    auto& field = add<UITextField>({50, 50, 200, 30}, kWhite);
    QGuiApplication::clipboard()->setText("\r\ntwo\r\nlines\n");
    Device::current().perform([&] { field.becomeFirstResponder(); });
    atRest();
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "two lines");
    show(ask({{"OK"}}, 1));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(alert().fields[0].text, "two lines");
    key(Qt::Key_Return);
    EXPECT_EQ(pressed, "0,two lines");
}

// MARK: drags and looks

TEST_F(Screen, a_list_glides_on_unless_the_finger_rested) {
    auto& list = add<UIScrollView>({0, 0, 375, 600});
    for (const auto& [pause, glides] : {std::pair{5UL, true}, {400UL, false}}) {
        fling(list, pause);
        EXPECT_EQ(list.contentOffset().y, 300);
        atRest();
        EXPECT_EQ(list.contentOffset().y > 300, glides) << pause;
    }
}

TEST_F(Screen, a_glide_gives_way_to_what_the_program_does_meanwhile) {
    auto& list = add<UIScrollView>({0, 0, 375, 600});
    const auto glide = [&] {
        fling(list, 5);
        runUntil([&] { return list.contentOffset().y > 310; });
    };
    glide();
    list.setContentOffset({0, 40});
    atRest();
    EXPECT_EQ(list.contentOffset().y, 40);
    glide();
    const double offset = list.contentOffset().y;
    list.setContentSize({375, 600 + offset + 10});
    atRest();
    EXPECT_EQ(list.contentOffset().y, offset);
}

TEST_F(Screen, content_gives_way_beyond_its_end_and_a_fling_turns_one_page) {
    auto& list = add<UIScrollView>({0, 0, 375, 600});
    list.setContentSize({375, 700});
    list.setContentOffset({0, 100});
    unsigned long end = drag({100, 500}, {0, -20}, 10);
    EXPECT_EQ(list.contentOffset().y, 180) << "two points for five";
    mouse(QEvent::MouseButtonRelease, {100, 300}, end);
    atRest();
    EXPECT_EQ(list.contentOffset().y, 100);

    list.setContentSize({4 * 375, 600});
    list.setPagingEnabled(true);
    end = drag({360, 300}, {-20, 0}, 15);
    mouse(QEvent::MouseButtonRelease, {60, 300}, end + 5);
    atRest();
    EXPECT_EQ(list.contentOffset(), (CGPoint{375, 0}));
    list.setPagingEnabled(false);
    QWheelEvent wheel({100, 300}, {100, 300}, {}, {0, -120}, Qt::NoButton, Qt::ShiftModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &wheel);
    EXPECT_EQ(list.contentOffset(), (CGPoint{423, 0})) << "sideways with the shift key";
}

TEST_F(Screen, two_quick_clicks_in_two_places_are_two) {
    addButton("a", {20, 20, 60, 60});
    addButton("b", {220, 320, 60, 60});
    for (const auto& [place, time] : {std::pair{CGPoint{50, 50}, 5000UL}, {{250, 350}, 5090UL}}) {
        mouse(QEvent::MouseButtonPress, place, time);
        mouse(QEvent::MouseButtonRelease, place, time + 10);
    }
    EXPECT_EQ(pressed, "ab");
}

TEST_F(Screen, what_a_field_refuses_does_not_stay_in_sight) {
    struct Digits final : UITextInputDelegate {
        bool shouldChange(UITextInput&, std::size_t, std::size_t, std::string_view text) override {
            return text != "x";
        }
    };
    const auto digits = std::make_shared<Digits>();
    auto& field = add<UITextField>({20, 20, 200, 40});
    field.setDelegate(digits);
    atRest();
    QTest::mouseClick(&window, Qt::LeftButton, {}, {100, 40});
    atRest();
    write("1x2");
    EXPECT_EQ(field.text(), "12");
    EXPECT_EQ(window.activeFocusItem()->property("text").toString(), "12");
}

TEST_F(Screen, a_button_looks_pressed_while_the_finger_is_on_it_and_tells_nothing_of_it) {
    UIControl& titled = addButton("Go", {20, 20, 100, 60});
    UIControl& composed = add<UIControl>({250, 20, 100, 60}, UIColor::blackColor());
    composed.add<UILabel>(CGRect{10, 10, 80, 40}).setText("Go");
    auto& unseen = composed.add<UILabel>(CGRect{10, 10, 80, 40});
    unseen.setText("unseen");
    unseen.setHidden(true);
    UIControl& empty = add<UIButton>({20, 120, 100, 60});
    UIControl& once = addButton("Once", {140, 120, 100, 60});
    once.addAction(UIControlEvent::touchDown, [&] { once.setEnabled(false); });
    atRest();
    EXPECT_FALSE(itemThatIs("Go, unseen", *window.contentItem())) << "nor is it spoken";
    for (UIControl* control : {&titled, &composed, &empty, &once}) {
        const auto picture = [&] {
            atRest();
            return window.grabWindow();
        };
        const QImage former = picture();
        const auto isPressed = [&] {
            const int pixels = differing(picture(), former, 20);
            EXPECT_TRUE(pixels == 0 || pixels > 5000) << pixels;
            return pixels > 0;
        };
        const nlohmann::json told = jsonFromView(*control);
        const CGPoint middle = control->frame().center();
        const CGPoint outside{middle.x, 400};
        mouse(QEvent::MouseButtonPress, middle, 1000);
        EXPECT_TRUE(isPressed());
        if (control != &once) {
            EXPECT_EQ(jsonFromView(*control), told);
        }
        mouse(QEvent::MouseMove, outside, 1100);
        EXPECT_FALSE(isPressed()) << "off it";
        mouse(QEvent::MouseMove, middle, 1200);
        EXPECT_EQ(isPressed(), control != &once);
        mouse(QEvent::MouseButtonRelease, middle, 1300);
        EXPECT_FALSE(isPressed());
        control->setEnabled(true);
        mouse(QEvent::MouseButtonPress, middle, 9000);
        EXPECT_TRUE(isPressed());
        window.screen().cancel();
        EXPECT_FALSE(isPressed());
    }
}

TEST_F(Screen, views_lie_upon_each_other_in_the_order_of_the_tree) {
    UIView& below = add({50, 50, 100, 100}, kRed);
    UIView& above = add({50, 50, 100, 100}, kGreen);
    EXPECT_EQ(colorAt(100, 100), Qt::green);
    for (const bool hidden : {true, false}) {
        below.setHidden(hidden);
        EXPECT_EQ(colorAt(100, 100), Qt::green) << "shown again, it is where it was";
    }
    UIWindow::keyWindow().bringSubviewToFront(below);
    EXPECT_EQ(colorAt(100, 100), Qt::red);
    above.setHidden(true);
    atRest();
    above.setHidden(false);
    EXPECT_EQ(colorAt(100, 100), Qt::red);
}

TEST_F(Screen, a_view_that_clips_hides_what_reaches_out_of_it) {
    UIView& box = add({50, 50, 100, 100});
    box.add<UIView>(CGRect{50, 50, 100, 100}).setBackgroundColor(kRed);
    for (const bool clips : {true, false}) {
        box.setClipsToBounds(clips);
        atRest();
        EXPECT_EQ(colorAt(120, 120), Qt::red);
        EXPECT_EQ(colorAt(170, 170), clips ? Qt::white : Qt::red);
    }
}

TEST_F(Screen, a_fade_is_seen_to_its_end_whatever_happens_to_others_meanwhile) {
    UIView& box = add({50, 50, 100, 100});
    UIView& view = add({50, 50, 100, 100}, kRed);
    const auto seen = [&](double seconds) {
        const QColor color = seenAfter(seconds).pixelColor(100, 100);
        EXPECT_EQ(color.red(), 255);
        return color.green();
    };
    EXPECT_EQ(seen(0), 0);
    view.animateWithDuration(
        0.4, [&] { view.setAlpha(0); }, [&] { view.removeFromSuperview(); });
    EXPECT_EQ(seen(0), 0);
    EXPECT_NEAR(seen(0.02), 1, 1);
    EXPECT_NEAR(seen(0.18), 127, 1);
    view.setFrame({40, 40, 100, 100});
    EXPECT_NEAR(seen(0), 127, 1);
    view.setFrame({0, 0, 100, 100});
    box.addSubview(view.shared_from_this());
    EXPECT_NEAR(seen(0), 127, 1) << "with another parent";
    EXPECT_NEAR(seen(0.1), 223, 1);
    EXPECT_EQ(seen(0.11), 255);
    EXPECT_FALSE(window.screen().isAnimating());
    EXPECT_EQ(box.subviews().size(), 0U);
}

TEST_F(Screen, what_grows_and_recolours_is_painted_anew_on_its_way) {
    UIView& view = add({50, 50, 100, 100}, kWhite);
    view.setBorder(10, kGreen);
    seenAfter(0);
    view.animateWithDuration(1, [&] {
        view.setFrame({50, 50, 300, 100});
        view.setBackgroundColor(kRed);
    });
    const QImage half = seenAfter(0.5);
    for (const int x : {51, 58, 242, 248})
        EXPECT_EQ(half.pixelColor(x, 100), Qt::green) << x;
    for (const int x : {62, 238})
        EXPECT_NEAR(half.pixelColor(x, 100).green(), 127, 1) << x;
    EXPECT_EQ(half.pixelColor(252, 100), Qt::white);
}

TEST_F(Screen, the_title_fades_out_over_all_its_time) {
    phone.launch();
    const auto title = [&](double seconds) { return seenAfter(seconds).copy(0, 0, 375, 64); };
    const QImage closed = title(2);
    Device::current().perform([] { GXUIManager::manager().openAddLessonView(); });
    const QImage open = title(2);
    Device::current().perform([] { GXUIManager::manager().cancelLessonEditing(); });
    const int all = differing(open, closed, 16);
    EXPECT_GT(all, 100);
    EXPECT_LT(differing(open, title(0.02), 16), all / 10);
    const QImage half = title(0.155);
    EXPECT_TRUE(differing(open, half, 16) > all / 4 && differing(closed, half, 16) > all / 4);
    EXPECT_EQ(title(0.18), closed);
}

TEST_F(Screen, a_larger_window_is_painted_anew_and_not_stretched) {
    auto& label = add<UILabel>({20, 20, 300, 40}, kWhite);  // texts on nothing have other edges
    label.setText("Sharp letters at every size");
    UIView& round = add({320, 5, 50, 50}, kWhite);
    round.setBorder(3, kGreen);
    round.setCornerRadius(25);
    atRest();
    window.resize(750, 1334);
    runUntil([&] { return window.screen().width() == 750; });
    atRest();
    const QRect top(0, 0, 750, 140);
    const QImage painted = painter.paintScreen(UIWindow::keyWindow(), 2);
    ASSERT_EQ(window.grabWindow().size(), painted.size());
    EXPECT_LT(differing(window.grabWindow().copy(top), painted.copy(top), 40), 20);
}

}  // namespace
}  // namespace gexlo::test
