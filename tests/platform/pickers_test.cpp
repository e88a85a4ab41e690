// Switches, wheels and date pickers under a finger, and what they tell.
#include <gtest/gtest.h>

#include "platform/foundation/calendar.h"
#include "platform/views/date_picker.h"
#include "platform/views/switch.h"
#include "platform/views/window.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

TEST(Switch, a_tap_throws_it_and_a_slide_takes_it_along) {
    Phone phone;
    UIWindow& window = UIWindow::keyWindow();
    auto& control = window.add<UISwitch>(CGRect{100, 100, 51, 31});
    std::string told;
    control.addAction(UIControlEvent::valueChanged, [&] { told += control.isOn() ? '1' : '0'; });
    const auto slide = [&](double from, double to) {
        window.touchDown({from, 110});
        window.touchMoved({(from + to) / 2, 110});
        window.touchMoved({to, 110});
        window.touchUp({to, 110});
    };
    control.setOn(true);
    EXPECT_EQ(told, "") << "the program tells nobody";
    slide(120, 122);
    EXPECT_EQ(told, "0") << "a finger trembles";
    slide(110, 145);
    slide(110, 300);
    EXPECT_EQ(told, "01") << "there already";
    slide(145, 20);
    slide(120, 120);
    EXPECT_EQ(told, "0101");
    window.touchDown({120, 110});
    window.touchCancel();
    control.setEnabled(false);
    slide(120, 120);
    slide(145, 100);
    EXPECT_EQ(told, "0101");
}

/// Two wheels, of the days from the first to the last and the other way: each choice changes the
/// other wheel.
class Days final : public UIPickerViewDataSource, public UIPickerViewDelegate {
public:
    NSInteger numberOfComponents(UIPickerView&) override { return std::ssize(rows); }
    NSInteger numberOfRowsInComponent(UIPickerView&, NSInteger component) override {
        return rows[static_cast<std::size_t>(component)];
    }
    std::string titleForRow_forComponent(UIPickerView&, NSInteger row,
                                         NSInteger component) override {
        ++asked;
        return std::to_string(component) + ":" + std::to_string(row);
    }
    double widthForComponent(UIPickerView&, NSInteger component) override {
        return component == 0 ? firstWidth : 0;
    }
    void didSelectRow_inComponent(UIPickerView& picker, NSInteger row,
                                  NSInteger component) override {
        told += std::to_string(component) + ":" + std::to_string(row) + "|";
        if (selected) std::exchange(selected, nullptr)(picker);
    }

    std::vector<NSInteger> rows{7, 7};
    double firstWidth = 0;
    int asked = 0;
    std::string told;
    std::function<void(UIPickerView&)> selected;
};

class Picker : public ::testing::Test {
protected:
    Picker() {
        picker->setDataSource(days);
        picker->setDelegate(days);
        picker->reloadAllComponents();
        UIWindow::keyWindow().addSubview(picker);
    }
    UIPickerWheel& wheel(NSInteger component) { return *picker->wheel(component); }
    /// In the order in which they came into sight.
    std::string seen(NSInteger component) {
        std::string texts;
        for (const auto& row : wheel(component).subviews())
            texts += static_cast<UILabel&>(*row).text() + " ";
        return texts;
    }
    void tap(CGPoint place) {
        UIWindow::keyWindow().touchDown(place);
        UIWindow::keyWindow().touchUp(place);
    }

    Phone phone;
    std::shared_ptr<Days> days = std::make_shared<Days>();
    std::shared_ptr<UIPickerView> picker =
        std::make_shared<UIPickerView>(CGRect{0, 100, 320, UIPickerView::kHeight});
};

TEST_F(Picker, a_wheel_comes_to_rest_on_a_row_and_tells_it_once) {
    picker->selectRow_inComponent_animated(99, 1, false);
    EXPECT_EQ(picker->selectedRowInComponent(1), 6);
    picker->selectRow_inComponent_animated(0, 1, true);
    EXPECT_EQ(days->told, "") << "the program tells nobody";
    wheel(0).dragTo({0, 2.4 * UIPickerWheel::kRowHeight});
    EXPECT_EQ(wheel(0).contentOffset().y, 2 * UIPickerWheel::kRowHeight);
    wheel(0).dragTo({0, 2.1 * UIPickerWheel::kRowHeight});
    wheel(1).dragTo({0, 9999});
    EXPECT_EQ(days->told, "0:2|1:6|");
    const double middle = 100 + UIPickerView::kHeight / 2;
    tap({80, middle});
    tap({80, middle - 2 * UIPickerWheel::kRowHeight});
    tap({240, middle + UIPickerWheel::kRowHeight});  // below the last row
    EXPECT_EQ(days->told, "0:2|1:6|0:0|");
    EXPECT_EQ(seen(0), "0:0 0:1 0:2 0:3 ");
    EXPECT_NEAR(wheel(0).frame().y + wheel(0).subviews()[0]->frame().center().y,
                UIPickerView::kHeight / 2, 1e-9);
}

TEST_F(Picker, a_choice_may_change_the_wheels) {
    days->selected = [&](UIPickerView& shown) {
        days->rows[1] = 3;
        shown.reloadComponent(1);
        shown.selectRow_inComponent_animated(2, 1, false);
        days->rows[0] = 5;
        shown.reloadComponent(0);
    };
    wheel(0).dragTo({0, 9999});
    EXPECT_EQ(days->told, "0:6|");
    EXPECT_EQ(picker->selectedRowInComponent(0), 4) << "the last that is left";
    EXPECT_EQ(wheel(0).contentOffset().y, 4 * UIPickerWheel::kRowHeight);
    EXPECT_EQ(wheel(1).selectedTitle(), "1:2");
    const auto last = std::static_pointer_cast<UIPickerWheel>(wheel(1).shared_from_this());
    days->selected = [&](UIPickerView& shown) {
        days->rows = {0};
        shown.reloadAllComponents();
        shown.removeFromSuperview();
        picker.reset();
    };
    last->turnToRow(1);
    last->turnToRow(0);  // on nothing any more
    EXPECT_EQ(days->told, "0:6|1:1|");
}

TEST_F(Picker, wheels_take_the_width_they_are_told_and_keep_their_row_in_any_frame) {
    days->firstWidth = 200;
    wheel(1).selectRow(5, false);
    picker->reloadAllComponents();
    EXPECT_EQ(wheel(0).frame().width, 200);
    EXPECT_GT(wheel(1).frame().x, wheel(0).frame().maxX());
    EXPECT_LE(wheel(1).frame().maxX(), 320);
    picker->setFrame({0, 0, 200, 0});
    picker->setFrame({0, 0, 200, 162});
    EXPECT_EQ(wheel(1).contentOffset().y, 5 * UIPickerWheel::kRowHeight);
    days->rows = {0};
    picker->reloadAllComponents();
    wheel(0).dragTo({0, 50});
    EXPECT_EQ(picker->selectedRowInComponent(0), -1);
    EXPECT_EQ(picker->selectedRowInComponent(1), -1);
    days->rows = {1000000};
    days->asked = 0;
    picker->reloadAllComponents();
    wheel(0).dragTo({0, 3.2e7});
    EXPECT_LT(days->asked, 40) << "only rows in sight are asked for";
    EXPECT_EQ(days->told, "0:999999|");
}

struct Reading {
    const char* language;
    const char* region;
    UIDatePickerMode mode;
    const char* shown;  // what the wheels say
};

TEST(DatesOfPickers, a_date_is_read_in_the_users_own_order) {
    Phone phone;
    using enum UIDatePickerMode;
    for (const Reading& reading : {
             Reading{"en", "US", time, "2 05 PM "},
             Reading{"en", "GB", time, "14 05 "},
             Reading{"ko", "KR", time, "오후 2 05 "},
             Reading{"ja", "JP", time, "14 05 "},
             Reading{"zh-Hans", "CN", time, "14 05 "},
             Reading{"en", "US", date, "March 2 2026 "},
             Reading{"en", "GB", date, "2 March 2026 "},
             Reading{"ko", "KR", date, "2026년 3월 2일 "},
             Reading{"en", "US", dateAndTime, "Mon, Mar 2|2 05 PM "},
             Reading{"ja", "JP", dateAndTime, "3月2日(月)|14 05 "},
         }) {
        phone.facts.languages = {reading.language};
        phone.facts.region = reading.region;
        phone.restart();
        UIDatePicker picker({0, 0, 320, 216});
        picker.setDatePickerMode(reading.mode);
        picker.setDate_animated(at("2026-03-02T14:05:59"), false);
        std::string shown;
        for (NSInteger i = 0; i < picker.wheels().numberOfComponents(); ++i) {
            shown += picker.wheels().wheel(i)->selectedTitle();
            shown += reading.mode == dateAndTime && i == 0 ? '|' : ' ';
        }
        EXPECT_EQ(shown, reading.shown) << reading.language << ' ' << reading.region;
    }
}

class DatePicker : public ::testing::Test {
protected:
    DatePicker() {
        picker.addAction(UIControlEvent::valueChanged,
                         [this] { told += localTime(picker.date()) + "|"; });
    }
    void turn(NSInteger component, NSInteger by) {
        UIPickerWheel& wheel = *picker.wheels().wheel(component);
        wheel.dragTo(
            {0, wheel.contentOffset().y + static_cast<double>(by) * UIPickerWheel::kRowHeight});
    }

    Phone phone;
    UIDatePicker& picker = UIWindow::keyWindow().add<UIDatePicker>(CGRect{0, 0, 320, 216});
    std::string told;
};

TEST_F(DatePicker, each_wheel_turns_its_own_part) {
    EXPECT_EQ(localTime(picker.date()), "2026-03-02T08:00:00") << "now";
    picker.setDate_animated(at("2026-03-02T11:05:30"), true);
    EXPECT_EQ(told, "");
    EXPECT_EQ(localTime(picker.date()), "2026-03-02T11:05:30") << "as it was given";
    turn(0, 30);
    turn(1, -3);
    turn(2, -9);
    turn(3, 1);
    EXPECT_EQ(told,
              "2026-04-01T11:05:00|2026-04-01T08:05:00|2026-04-01T08:00:00|2026-04-01T20:00:00|");
    told.clear();
    for (int i = 0; i < 3; ++i)
        turn(0, 400);
    EXPECT_EQ(localTime(picker.date()), "2029-07-14T20:00:00") << "days go on without an end";
}

TEST_F(DatePicker, a_month_that_is_shorter_ends_on_its_last_day) {
    picker.setDatePickerMode(UIDatePickerMode::date);
    picker.setDate_animated(at("2028-01-31T10:20:00"), false);
    turn(0, 1);
    EXPECT_EQ(picker.wheels().wheel(1)->numberOfRows(), 29);
    EXPECT_EQ(picker.wheels().wheel(1)->selectedTitle(), "29");
    turn(2, 1);
    turn(1, 99);
    EXPECT_EQ(told, "2028-02-29T10:20:00|2029-02-28T10:20:00|");
}

TEST_F(DatePicker, a_finger_sets_what_the_mode_shows) {
    for (const auto& [mode, set] : {
             std::pair{UIDatePickerMode::time, "2026-03-02T17:45:00|"},
             std::pair{UIDatePickerMode::date, "2031-12-31T08:00:00|"},
             std::pair{UIDatePickerMode::dateAndTime, "2031-12-31T17:45:00|"},
         }) {
        told.clear();
        picker.setDate_animated(at("2026-03-02T08:00:00"), false);
        picker.setDatePickerMode(mode);
        picker.turnToDate(at("2031-12-31T17:45:10"));
        EXPECT_EQ(told, set);
    }
    picker.setEnabled(false);
    EXPECT_FALSE(UIWindow::keyWindow().canReach(*picker.wheels().wheel(0)));
}

}  // namespace

}  // namespace gexlo::test
