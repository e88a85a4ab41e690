// Wheels and switches in the window, by mouse and by keys.
#include "desktop/window_fixture.h"
#include "platform/foundation/calendar.h"
#include "platform/views/date_picker.h"
#include "platform/views/switch.h"
#include "platform/views/window.h"

namespace gexlo::test {
namespace {

class PickersInAWindow : public InAWindow {
protected:
    PickersInAWindow() {
        UIWindow::keyWindow().setBackgroundColor(UIColor::whiteColor());
        dates.setDatePickerMode(UIDatePickerMode::time);
        dates.addAction(UIControlEvent::valueChanged,
                        [this] { told += localTime(dates.date()).substr(11, 5) + "|"; });
        throwable.addAction(UIControlEvent::valueChanged,
                            [this] { told += throwable.isOn() ? "on|" : "off|"; });
        showActive();
        atRest();
    }
    void atRest() {
        runUntil([&] {
            phone.advance(1);
            window.screen().synchronize();
            return !window.screen().isAnimating();
        });
    }
    /// That comes down on a place of a wheel and moves on by as much every 10 milliseconds.
    void drag(NSInteger component, double step, unsigned long pause) {
        CGPoint place = middle(component);
        mouse(QEvent::MouseButtonPress, place, time += 2000);
        for (int i = 0; i < 10; ++i) {
            place.y += step;
            mouse(QEvent::MouseMove, place, time += 10);
        }
        mouse(QEvent::MouseButtonRelease, place, time += pause);
    }
    CGPoint middle(NSInteger component) const {
        return dates.wheels().wheel(component)->frameInWindow().center();
    }
    void turnMouseWheel(QPoint pixels, QPoint angle) {
        const QPointF place(middle(0).x, middle(0).y);
        QWheelEvent event(place, place, pixels, angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window, &event);
    }
    QVariant focused(const char* property) const {
        return window.activeFocusItem()->property(property);
    }
    void key(Qt::Key code) {
        QTest::keyClick(&window, code);
        atRest();
    }

    unsigned long time = 5000;
    std::string told;
    UIDatePicker& dates = UIWindow::keyWindow().add<UIDatePicker>(CGRect{0, 100, 375, 216});
    UISwitch& throwable = UIWindow::keyWindow().add<UISwitch>(CGRect{20, 400, 51, 31});
};

TEST_F(PickersInAWindow, a_drag_turns_a_wheel_that_rests_on_a_row_and_tells_once) {
    drag(0, 4, 500);  // 40 points down: to the row before
    atRest();
    EXPECT_EQ(told, "07:00|");
    drag(1, -8, 0);  // a flick that goes on
    atRest();
    ASSERT_EQ(told.size(), 12U) << told;
    EXPECT_GT(told.substr(6, 5), "07:06");
    told.clear();
    dates.setDate_animated(at("2026-03-02T08:00:00"), false);
    drag(0, 8, 0);
    drag(2, -4, 500);  // while the other still goes round
    atRest();
    EXPECT_EQ(std::ranges::count(told, '|'), 2) << told;
    for (NSInteger i = 0; i < 3; ++i) {
        const UIPickerWheel& wheel = *dates.wheels().wheel(i);
        EXPECT_EQ(wheel.contentOffset().y,
                  static_cast<double>(wheel.selectedRow()) * UIPickerWheel::kRowHeight);
    }
}

TEST_F(PickersInAWindow, a_mouse_wheel_turns_a_row_a_notch) {
    turnMouseWheel({}, {0, -120});
    turnMouseWheel({}, {0, -120});
    EXPECT_EQ(told, "09:00|10:00|");
    for (int i = 0; i < 20; ++i)
        turnMouseWheel({1, 8}, {0, 60});  // 160 points by a touchpad
    atRest();
    EXPECT_EQ(told.substr(12), "09:00|08:00|07:00|06:00|05:00|");
}

TEST_F(PickersInAWindow, keys_turn_wheels_and_throw_switches_and_each_says_what_it_is) {
    key(Qt::Key_Tab);
    EXPECT_EQ(focused("spokenRole").toInt(), QAccessible::SpinBox);
    EXPECT_EQ(focused("spokenName").toString(), "8");
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Up);
    EXPECT_EQ(std::exchange(told, ""), "09:00|10:00|09:00|");
    EXPECT_EQ(focused("spokenName").toString(), "9");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(window.activeFocusItem());
    ASSERT_TRUE(spoken && spoken->valueInterface());
    EXPECT_EQ(spoken->valueInterface()->currentValue(), 9);
    EXPECT_EQ(spoken->valueInterface()->maximumValue(), 11);
    spoken->valueInterface()->setCurrentValue(99);
    spoken->valueInterface()->setCurrentValue(3);
    EXPECT_EQ(std::exchange(told, ""), "03:00|");
    key(Qt::Key_Tab);
    key(Qt::Key_Up);  // nothing before the first
    key(Qt::Key_Tab);
    key(Qt::Key_Down);
    key(Qt::Key_Tab);
    EXPECT_EQ(focused("spokenRole").toInt(), QAccessible::CheckBox);
    key(Qt::Key_Space);
    EXPECT_EQ(told, "15:00|on|");
    spoken = QAccessible::queryAccessibleInterface(window.activeFocusItem());
    EXPECT_TRUE(spoken->state().checkable && spoken->state().checked);
    key(Qt::Key_Down);
    EXPECT_TRUE(throwable.isOn());
}

}  // namespace
}  // namespace gexlo::test
