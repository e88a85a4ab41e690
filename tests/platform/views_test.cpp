// The view tree: where touches go, what alerts hold back, fields and scrolling.
#include <gtest/gtest.h>

#include "platform/foundation/notification_center.h"
#include "platform/views/button.h"
#include "platform/views/scroll_view.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

/// Writes down when the keyboard comes and goes, as "+" and "-".
struct KeyboardLog {
    std::string told;
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    NotificationToken shown =
        center.addObserver(kKeyboardWillShowNotification, [this](const auto&) { told += '+'; });
    NotificationToken hidden =
        center.addObserver(kKeyboardWillHideNotification, [this](const auto&) { told += '-'; });
};

class Views : public ::testing::Test {
protected:
    UIButton& addButton(UIView& parent, CGRect frame) {
        UIButton& button = parent.add<UIButton>(frame);
        for (const auto& [event, name] : std::initializer_list<std::pair<UIControlEvent, char>>{
                 {UIControlEvent::touchDown, 'd'},
                 {UIControlEvent::touchUpInside, 'u'},
                 {UIControlEvent::touchUpOutside, 'o'},
                 {UIControlEvent::touchCancel, 'c'}}) {
            button.addAction(event, [this, name = name] { events += name; });
        }
        return button;
    }

    Phone phone;
    UIWindow& window = UIWindow::keyWindow();
    std::string events;
};

TEST_F(Views, a_touch_reaches_the_topmost_view_that_takes_it) {
    UIView& panel = window.add<UIView>(CGRect{100, 100, 100, 100});
    UIButton& button = addButton(panel, {50, 50, 100, 20});
    EXPECT_EQ(window.hitTest({160, 155}), &button);
    EXPECT_EQ(window.hitTest({220, 155}), &window)
        << "what stands out of its parent is not touched";
    UIView& over = panel.add<UIView>(CGRect{0, 0, 100, 100});
    EXPECT_EQ(window.hitTest({160, 155}), &over);
    over.setAlpha(0.005);
    EXPECT_EQ(window.hitTest({160, 155}), &button);
    panel.setUserInteractionEnabled(false);
    EXPECT_EQ(window.hitTest({160, 155}), &window);
}

TEST_F(Views, a_control_tells_how_its_touch_ended) {
    UIButton& button = addButton(window, {0, 0, 50, 50});
    window.touchDown({10, 10});
    window.touchUp({300, 300});
    window.touchDown({10, 10});
    window.touchDown({20, 20});  // a second finger ends the first
    window.touchUp({20, 20});
    EXPECT_EQ(events, "dodcdu");
    button.setEnabled(false);
    window.touchDown({10, 10});
    window.touchUp({10, 10});
    EXPECT_EQ(events, "dodcdu");
}

TEST_F(Views, what_a_touch_removes_is_told_and_lives_to_its_end) {
    UIView& panel = window.add<UIView>(CGRect{0, 0, 100, 100});
    UIButton& button = addButton(panel, {0, 0, 50, 50});
    const std::weak_ptr<UIView> weak = panel.weak_from_this();
    button.addAction(UIControlEvent::touchUpInside, [&] {
        weak.lock()->removeFromSuperview();
        events += weak.expired() ? '!' : 'r';
    });
    window.touchDown({10, 10});
    EXPECT_EQ(window.touchUp({10, 10})->frame(), (CGRect{0, 0, 50, 50}));
    EXPECT_EQ(events, "dur");
    EXPECT_TRUE(weak.expired());
    UIView& next = window.add<UIView>(CGRect{0, 0, 100, 100});
    addButton(next, {0, 0, 50, 50}).addAction(UIControlEvent::touchDown, [&] {
        next.removeFromSuperview();
    });
    EXPECT_EQ(window.touchDown({10, 10})->frame(), (CGRect{0, 0, 50, 50}));
    EXPECT_EQ(events, "durdc");
}

TEST_F(Views, an_alert_holds_touches_back_and_answers_once) {
    addButton(window, {0, 0, 50, 50});
    std::vector<std::string> answers;
    UIAlert asking;
    asking.buttons = {{"No"}, {"Yes"}};
    asking.fields = {{"Room", "", false}};
    asking.dismissed = [&](std::size_t button, const auto& fields) {
        answers.push_back(std::to_string(button) + fields[0].text);
        UIAlert::notice("", "and another", "OK").show();
    };
    window.touchDown({10, 10});
    std::move(asking).show();
    EXPECT_EQ(events, "dc") << "a touch under way ends";
    EXPECT_EQ(window.touchDown({10, 10}), nullptr);
    window.answer(7);
    EXPECT_EQ(window.alerts().size(), 1U);
    window.answer(1, {"Room 7", "too many"});
    EXPECT_EQ(answers, std::vector<std::string>{"1Room 7"});
    ASSERT_EQ(window.alerts().size(), 1U);
    EXPECT_EQ(window.alerts()[0].message, "and another");
}

TEST_F(Views, an_alert_goes_with_its_owner_and_tells_nobody) {
    const auto panel = std::make_shared<UIView>();
    window.addSubview(panel);
    UIView& inner = panel->add<UIView>();
    const auto ask = [&](const char* message, UIView& owner) {
        UIAlert alert = UIAlert::notice("", message, "OK");
        alert.dismissed = [&](std::size_t, const auto&) { events += 'a'; };
        std::move(alert).showFor(owner);
    };
    ask("stays", window);
    ask("goes", inner);
    ask("stays above", window);
    unsigned number = window.alertNumber();
    panel->removeFromSuperview();
    ASSERT_EQ(window.alerts().size(), 2U);
    EXPECT_EQ(window.alerts()[0].message + window.alerts()[1].message, "staysstays above");
    EXPECT_EQ(window.alertNumber(), number) << "the topmost is the same";
    window.addSubview(panel);
    ask("goes", *panel);
    number = window.alertNumber();
    window.changesWereRead();
    panel->removeFromSuperview();
    EXPECT_TRUE(window.alertNumber() != number && window.hasChanged());
    EXPECT_EQ(window.alerts().size(), 2U);
    EXPECT_EQ(events, "");
}

class Refusing final : public UITextInputDelegate {
public:
    bool shouldChange(UITextInput&, std::size_t location, std::size_t length,
                      std::string_view text) override {
        asked +=
            std::to_string(location) + "," + std::to_string(length) + "," + std::string(text) + ";";
        return text != "x";
    }
    std::string asked;
};

TEST_F(Views, a_field_asks_before_it_changes_and_the_keyboard_follows_the_focus) {
    const KeyboardLog log;
    const std::string& keyboard = log.told;
    const auto delegate = std::make_shared<Refusing>();
    UITextField& first = window.add<UITextField>(CGRect{0, 0, 100, 40});
    const auto second = std::make_shared<UITextField>(CGRect{0, 50, 100, 40});
    window.addSubview(second);
    first.setDelegate(delegate);
    first.becomeFirstResponder();
    EXPECT_TRUE(first.insertText("수"));
    EXPECT_FALSE(first.insertText("x"));
    EXPECT_TRUE(first.replaceAll("숙제"));
    EXPECT_EQ(first.text(), "숙제");
    EXPECT_EQ(delegate->asked, "0,0,수;3,0,x;0,3,숙제;");
    EXPECT_TRUE(first.insertText("\n") && first.insertText("1\r\n\n2\n"));
    EXPECT_EQ(first.text(), "숙제1 2") << "one line";
    second->becomeFirstResponder();
    EXPECT_EQ(keyboard, "+") << "it stays from field to field";
    second->removeFromSuperview();
    EXPECT_EQ(keyboard, "+-");
    EXPECT_EQ(window.firstResponder(), nullptr);
    EXPECT_FALSE(second->becomeFirstResponder()) << "not on the screen";
    const auto alert = std::make_shared<UIWindow>();
    EXPECT_TRUE(alert->add<UITextField>().becomeFirstResponder());
    EXPECT_EQ(keyboard, "+-") << "that of an alert moves nothing here";
    first.setEnabled(false);
    EXPECT_FALSE(first.becomeFirstResponder());
    first.setEnabled(true);
    first.becomeFirstResponder();
    window.removeAllSubviews();
    EXPECT_EQ(keyboard, "+-+-");
    EXPECT_EQ(window.firstResponder(), nullptr);
}

/// Acts when a field is left, and writes down what it was told.
class Restless final : public UITextInputDelegate {
public:
    void didBeginEditing(UITextInput& field) override { told += field.placeholder() + "+"; }
    void didEndEditing(UITextInput& field) override {
        told += field.placeholder() + "-";
        if (const auto act = std::exchange(whenLeft, {})) act();
    }
    bool shouldChange(UITextInput& field, std::size_t, std::size_t, std::string_view) override {
        field.setText(instead);
        return true;
    }
    std::string told;
    std::string instead;
    std::function<void()> whenLeft;
};

class Fields : public Views {
protected:
    UITextField& addField(UIView& parent, const char* name) {
        UITextField& field = parent.add<UITextField>(CGRect{0, 0, 100, 40});
        field.setPlaceholder(name);
        field.setDelegate(delegate);
        return field;
    }
    std::shared_ptr<Restless> delegate = std::make_shared<Restless>();
};

TEST_F(Fields, a_focus_that_is_moved_meanwhile_tells_each_field_in_turn) {
    const KeyboardLog log;
    const std::string& keyboard = log.told;
    UITextField& a = addField(window, "a");
    UITextField& b = addField(window, "b");
    UITextField& c = addField(window, "c");
    a.becomeFirstResponder();
    delegate->whenLeft = [&] { c.becomeFirstResponder(); };
    b.becomeFirstResponder();
    EXPECT_EQ(delegate->told, "a+a-c+") << "b never had it";
    EXPECT_EQ(window.firstResponder(), &c);
    delegate->whenLeft = [&] { a.becomeFirstResponder(); };
    c.resignFirstResponder();
    EXPECT_EQ(delegate->told, "a+a-c+c-a+");
    EXPECT_EQ(keyboard, "+") << "it stays from field to field";
    a.resignFirstResponder();
    EXPECT_EQ(keyboard, "+-");
}

TEST_F(Fields, what_is_removed_has_left_before_anybody_hears_of_it) {
    UIView& panel = window.add<UIView>(CGRect{0, 0, 100, 100});
    UITextField& first = addField(panel, "first");
    UITextField& second = addField(panel, "second");
    first.becomeFirstResponder();
    delegate->whenLeft = [&] {
        EXPECT_EQ(panel.subviews().size(), 0U);
        second.removeFromSuperview();
        panel.removeFromSuperview();
    };
    panel.removeAllSubviews();
    EXPECT_EQ(delegate->told, "first+first-");
    EXPECT_EQ(window.subviews().size(), 0U);
}

TEST_F(Fields, a_text_that_the_delegate_sets_itself_takes_in_what_it_lets_in) {
    UITextField& field = addField(window, "");
    field.setText("a long text");
    delegate->instead = "수";
    EXPECT_TRUE(field.insertText("!"));
    EXPECT_EQ(field.text(), "수!");
    field.setText("ab");
    EXPECT_TRUE(field.replaceAll("ax"));
    EXPECT_EQ(field.text(), "x수") << "no character is cut in two";
    field.setText("a long text");
    delegate->instead = "";
    EXPECT_TRUE(field.replaceAll("a long"));
    EXPECT_EQ(field.text(), "");
}

TEST_F(Views, a_drag_comes_to_rest_within_the_content_and_at_a_page) {
    UIScrollView& scroll = window.add<UIScrollView>(CGRect{0, 0, 100, 100});
    scroll.setContentSize({310, 100});
    addButton(scroll, {0, 0, 50, 50});
    window.touchDown({10, 10});
    scroll.dragTo({260, 40});
    EXPECT_EQ(events, "dc");
    EXPECT_EQ(scroll.contentOffset(), (CGPoint{210, 0}));
    scroll.setPagingEnabled(true);
    scroll.dragTo({140, 0});
    EXPECT_EQ(scroll.contentOffset(), (CGPoint{100, 0}));
    EXPECT_EQ(window.hitTest({10, 10}), &scroll) << "the button has scrolled away";
}

TEST_F(Views, an_offset_gives_way_to_limits_that_come_nearer_and_to_nothing_else) {
    UIScrollView& scroll = window.add<UIScrollView>(CGRect{0, 0, 100, 100});
    UIView& view = scroll;
    scroll.setContentSize({310, 400});
    scroll.setContentOffset({210, 300});
    const auto offset = [&] { return scroll.contentOffset(); };
    scroll.setContentSize({500, 350});
    EXPECT_EQ(offset(), (CGPoint{210, 250}));
    view.setFrame({5, 5, 300, 110});
    EXPECT_EQ(offset(), (CGPoint{200, 240}));
    view.setFrame({5, 5, 50, 50});
    EXPECT_EQ(offset(), (CGPoint{200, 240}));
    scroll.setContentOffset({600, -20});
    scroll.setContentSize({500, 300});
    EXPECT_EQ(offset(), (CGPoint{600, -20})) << "as it was set";
    scroll.setContentSize({20, 300});
    EXPECT_EQ(offset(), (CGPoint{0, -20}));
    scroll.setContentOffset({0, 900});
    scroll.setContentSize({30, 300});
    EXPECT_EQ(offset(), (CGPoint{0, 900}));
}

/// Rows with a field each, and a table that is asked anew when one is left.
class Entries final : public UITableViewDataSource,
                      public UITextInputDelegate,
                      public std::enable_shared_from_this<Entries> {
public:
    NSInteger numberOfRowsInSection(UITableView&, NSInteger) override { return rows; }
    std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath) override {
        auto cell = std::make_shared<UITableViewCell>();
        cell->contentView().add<UITextField>().setDelegate(weak_from_this());
        return cell;
    }
    void didEndEditing(UITextInput&) override {
        rows = 5;
        table->reloadData();
    }
    UITableView* table = nullptr;
    NSInteger rows = 100;
};

TEST_F(Views, a_table_is_filled_anew_by_the_field_that_leaves_it) {
    UITableView& table = window.add<UITableView>(CGRect{0, 0, 300, 440});
    const auto entries = std::make_shared<Entries>();
    entries->table = &table;
    table.setDataSource(entries);
    table.reloadData();
    UIView& content = table.cellForRow({0, 0})->contentView();
    EXPECT_TRUE(static_cast<UITextField&>(*content.subviews()[0]).becomeFirstResponder());
    table.dragTo({0, 2000});
    EXPECT_EQ(table.numberOfRowsInSection(0), 100) << "the row with the focus stays";
    table.reloadData();
    EXPECT_EQ(table.subviews().size(), 5U);
    EXPECT_EQ(table.contentOffset().y, 0);
}

TEST_F(Views, each_look_that_is_animated_is_seen_on_its_own_way) {
    const auto now = [] { return NSDate::date(); };
    UIView& view = window.add<UIView>(CGRect{0, 0, 50, 50});
    const auto expectSeen = [&](double y, double alpha) {
        EXPECT_NEAR(view.frameAt(now()).y, y, 0.001);
        EXPECT_NEAR(view.alphaAt(now()), alpha, 0.001);
    };
    view.setFrame({0, 100, 50, 50});
    view.animateWithDuration(1, [&] {
        view.setFrame({0, 200, 50, 50});
        view.setBackgroundColor({1, 0, 0, 1});
    });
    EXPECT_EQ(view.frame().y, 200);
    expectSeen(100, 1);
    phone.advance(0.5);
    view.animateWithDuration(2, [&] { view.setAlpha(0); });
    view.setFrame({0, 200, 50, 50});
    view.setCornerRadius(5);
    expectSeen(150, 1);
    EXPECT_NEAR(view.backgroundColorAt(now()).alpha, 0.5, 0.001);
    EXPECT_NEAR(view.backgroundColorAt(now()).red, 1, 0.001) << "clear has no colour of its own";
    phone.advance(0.25);
    view.animateWithDuration(1, [&] { view.setFrame({0, 100, 50, 50}); });
    expectSeen(187.5, 0.96875);
    phone.advance(0.5);
    expectSeen(143.75, 0.71875);
    EXPECT_TRUE(window.changesWereRead());
    view.setFrame({0, 0, 50, 50});
    expectSeen(0, 0.71875);
    phone.advance(1.25);
    expectSeen(0, 0);
    EXPECT_FALSE(window.changesWereRead());
    EXPECT_FALSE(view.animations() || window.hasChangedBelow());
}

TEST_F(Views, an_animation_holds_its_view_until_it_is_completed) {
    UIView& view = window.add<UIView>();
    const std::weak_ptr<UIView> weak = view.weak_from_this();
    view.animateWithDuration(
        0.3, [&] { view.setAlpha(0); },
        [&] {
            view.removeFromSuperview();
            events += view.alpha() == 0 ? 'e' : '!';
        });
    window.removeAllSubviews();
    phone.advance(0.2);
    EXPECT_FALSE(weak.expired());
    phone.advance(0.11);
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(events, "e");
}

TEST_F(Views, a_change_is_marked_up_to_the_window_wherever_a_host_has_stopped_reading) {
    UIView& panel = window.add<UIView>(CGRect{0, 0, 10, 10});
    UIView& button = panel.add<UIView>().add<UIView>();
    window.changesWereRead();
    EXPECT_FALSE(panel.hasChangedBelow() || button.hasChanged());
    button.setAlpha(0.5);
    EXPECT_TRUE(window.hasChangedBelow() && panel.hasChangedBelow() && button.hasChanged());
}

}  // namespace

}  // namespace gexlo::test
