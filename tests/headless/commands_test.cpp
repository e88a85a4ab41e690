// What the driver's commands do to rows, fields, controls and alerts, and what they tell of views.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <thread>

#include "hosts/headless/driver.h"
#include "platform/foundation/string_format.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "platform/views/button.h"
#include "platform/views/date_picker.h"
#include "platform/views/image_view.h"
#include "platform/views/slider.h"
#include "platform/views/switch.h"
#include "platform/views/table_view.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

using nlohmann::json;

/// Owns a table of 3 and 20 rows and hears what is done to it. The first rows of the sections
/// stay as they are.
class Owner final : public UITableViewDataSource,
                    public UITableViewDelegate,
                    public UITextInputDelegate {
public:
    NSInteger numberOfSections(UITableView&) override { return 2; }
    NSInteger numberOfRowsInSection(UITableView&, NSInteger section) override {
        return section == 0 ? 3 : 20;
    }
    std::string titleForHeader(UITableView&, NSInteger section) override {
        return section == 0 ? "" : "Others";
    }
    std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath path) override {
        auto cell = std::make_shared<UITableViewCell>();
        cell->contentView().add<UILabel>(CGRect{0, 0, 80, 40}).setText(nameOf(path));
        auto& mark = cell->contentView().add<UIButton>(CGRect{100, 0, 40, 40});
        mark.setAccessibilityIdentifier("mark");
        mark.addAction(UIControlEvent::touchUpInside, [this, path] { tell("mark", path); });
        auto& faded = cell->contentView().add<UILabel>(CGRect{150, 0, 40, 40});
        faded.setText("faded");
        faded.setAlpha(0);
        auto& level = cell->contentView().add<UISlider>(CGRect{200, 0, 40, 40});
        level.setAccessibilityIdentifier("level");
        level.setHidden(true);
        if (marks && path.section == 0) {
            cell->setAccessory(path.row == 1   ? UITableViewCellAccessory::checkmark
                               : path.row == 2 ? UITableViewCellAccessory::detailButton
                                               : UITableViewCellAccessory::none);
        }
        return cell;
    }
    void willDisplayRow(UITableView&, UITableViewCell&, NSIndexPath) override { ++displayed; }
    void accessoryButtonTapped(UITableView&, NSIndexPath path) override { tell("button", path); }
    bool canEditRow(UITableView&, NSIndexPath path) override { return path.row != 0; }
    bool canMoveRow(UITableView&, NSIndexPath path) override { return path.row != 0; }
    void commitDelete(UITableView&, NSIndexPath path) override { tell("delete", path); }
    void moveRow(UITableView&, NSIndexPath from, NSIndexPath to) override {
        tell("move " + nameOf(from), to);
    }
    void didSelectRow(UITableView&, NSIndexPath path) override { tell("select", path); }
    /// No digits.
    bool shouldChange(UITextInput&, std::size_t location, std::size_t length,
                      std::string_view replacement) override {
        told += stringWithFormat("%ld+%ld:%@|", static_cast<NSInteger>(location),
                                 static_cast<NSInteger>(length), std::string(replacement));
        return replacement.find('1') == replacement.npos;
    }
    void shouldReturn(UITextInput&) override { told += "return|"; }

    std::string told;
    bool marks = false;
    int displayed = 0;

private:
    static std::string nameOf(NSIndexPath path) {
        return stringWithFormat("%ld.%ld", path.section, path.row);
    }
    void tell(const std::string& what, NSIndexPath path) {
        told += what + " " + nameOf(path) + "|";
    }
};

/// Two wheels of letters, and one without rows.
class Letters final : public UIPickerViewDataSource, public UIPickerViewDelegate {
public:
    explicit Letters(std::string& told) : told_(told) {}
    NSInteger numberOfComponents(UIPickerView&) override { return 3; }
    NSInteger numberOfRowsInComponent(UIPickerView&, NSInteger component) override {
        return 2 * (2 - component);
    }
    std::string titleForRow_forComponent(UIPickerView&, NSInteger row, NSInteger) override {
        return {static_cast<char>('a' + row)};
    }
    void didSelectRow_inComponent(UIPickerView&, NSInteger row, NSInteger component) override {
        told_ += stringWithFormat("%ld:%ld|", component, row);
    }

private:
    std::string& told_;
};

/// A line, what its answer holds, and what the owner was told meanwhile.
struct Step {
    std::string line;
    std::string answer;
    std::string told = "";
};

class Commands : public Grid {
protected:
    template <typename View>
    View& add(const char* identifier, CGRect frame) {
        View& view = UIWindow::keyWindow().add<View>(frame);
        view.setAccessibilityIdentifier(identifier);
        if constexpr (std::is_base_of_v<UITextInput, View>) view.setDelegate(owner);
        return view;
    }
    void play(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            owner->told.clear();
            const std::string answer = driver.answer(step.line);
            EXPECT_NE(answer.find(step.answer), std::string::npos)
                << step.line << " gave " << answer;
            EXPECT_EQ(owner->told, step.told) << step.line;
        }
    }

    Driver driver;
    std::shared_ptr<Owner> owner = std::make_shared<Owner>();
};

TEST_F(Commands, rows_are_read_and_treated_where_they_stand) {
    auto& table = add<UITableView>("rows", {0, 100, 300, 176});  // four rows high
    table.setDataSource(owner);
    table.setDelegate(owner);
    table.reloadData();
    const auto row = [](const std::string& command, const std::string& place) {
        return R"({"cmd":")" + command + R"(","id":"rows",)" + place + "}";
    };
    const auto mark = [](const std::string& place) {
        return R"({"cmd":"tap","id":"mark",)" + place + "}";
    };
    const auto in = [](int section, int number) {
        return stringWithFormat(R"("within":{"id":"rows","section":%d,"row":%d})", section, number);
    };
    const double end = table.contentSize().height - 176;
    play({
        {R"({"cmd":"rows","id":"rows"})",
         R"("sections":[{"header":"","rows":[["0.0"],["0.1"],["0.2"]]},)"
         R"({"header":"Others","rows":[["1.0"],["1.1"])",
         ""},
        {row("select_row", R"("section":0,"row":2)"), "true", "select 0.2|"},
        {row("delete_row", R"("section":0,"row":1)"), "true", "delete 0.1|"},
    });
    UIWindow& window = UIWindow::keyWindow();
    window.changesWereRead();
    play({
        {row("select_row", R"("section":0,"row":3)"), "no such row"},
        {row("select_row", R"("section":2,"row":0)"), "no such row"},
        {row("move_row", R"("section":1,"row":9,"to":4)"), "cannot be moved"},
        {mark(in(1, 19) + R"(,"index":1)"), "not as many"},
        {mark(in(0, 7)), "no such row"},
        {row("delete_row", R"("section":1,"row":0)"), "cannot be deleted"},
        {R"({"cmd":"set","id":"mark","value":1,)" + in(1, 19) + "}", "no value"},
        {R"({"cmd":"find","id":"mark",)" + in(1, 19) + "}", R"("views":[])"},
        {R"({"cmd":"find","id":"mark","all":true,)" + in(1, 19) + "}",
         R"("frame":[100.0,1098.0,40.0,40.0])"},
    });
    EXPECT_FALSE(window.hasChanged() || window.hasChangedBelow())
        << "what is refused or only looks changes nothing";
    play({{R"({"cmd":"set","id":"level","value":1,)" + in(1, 19) + "}", "cannot be reached"}});
    EXPECT_EQ(table.contentOffset(), (CGPoint{0, 0})) << "back where it was";
    UIAlert::notice("", "Message", "OK").show();
    play({{mark(in(1, 19)), R"("hit":null)"}});
    EXPECT_EQ(table.contentOffset(), (CGPoint{0, 0})) << "no finger scrolls under an alert";
    window.answer(0);
    play({
        {mark(R"("within":"rows","index":2)"), R"("hit":"mark")", "mark 0.2|"},
        {mark(R"("within":"rows","index":9)"), "not as many"},
        {mark(R"("within":"rows")"), "several"},
        {R"({"cmd":"tap","text":"0.1"})", R"("hit":"rows")", "select 0.1|"},
        {R"({"cmd":"find","id":"header_1","all":true})", R"("text":"Others")"},
        {R"({"cmd":"find","id":"header_0","all":true})", R"("views":[])"},
        {mark(in(1, 19)), R"("hit":"mark")", "mark 1.19|"},
    });
    EXPECT_EQ(table.contentOffset(), (CGPoint{0, end}));
    table.setEditing(true);
    play({
        {row("delete_row", R"("section":0,"row":0)"), "cannot be deleted"},
        {row("move_row", R"("section":0,"row":0,"to":1)"), "cannot be moved"},
        {row("move_row", R"("section":0,"row":1,"to":3)"), "no such row"},
    });
    EXPECT_EQ(table.contentOffset(), (CGPoint{0, end}));
    play({{row("move_row", R"("section":1,"row":9,"to":4)"), "true", "move 1.9 1.4|"}});
}

TEST_F(Commands, a_table_is_pulled_and_tells_the_marks_of_its_rows) {
    auto& table = add<UITableView>("rows", {0, 100, 300, 176});
    owner->marks = true;
    table.setDataSource(owner);
    table.setDelegate(owner);
    table.reloadData();
    EXPECT_EQ(owner->displayed, 4) << "three and the first below the header";
    const std::string pull = R"({"cmd":"pull","id":"rows"})";
    const auto button = [](int row) {
        return stringWithFormat(R"({"cmd":"accessory","id":"rows","section":0,"row":%d})", row);
    };
    play({
        {R"({"cmd":"rows","id":"rows"})",
         R"([["0.0"],{"checked":true,"texts":["0.1"]},{"accessory":true,"texts":["0.2"]}])"},
        {button(2), "true", "button 0.2|"},
        {button(1), "no such button"},
        {pull, "not refreshed"},
    });
    EXPECT_EQ(owner->displayed, 4) << "one that is only read is not displayed";
    const auto control = std::make_shared<UIRefreshControl>();
    table.setRefreshControl(control);
    control->addAction(UIControlEvent::valueChanged, [&] { owner->told += "refresh|"; });
    play({{pull, "true", "refresh|"},
          {R"({"cmd":"scroll","id":"rows","x":0,"y":-90})", "[0.0,-60.0]"}});
    UIWindow::keyWindow().setCovered(true);
    play({{pull, "cannot be reached"}});
}

TEST_F(Commands, the_keyboard_asks_the_delegate_as_a_phone_does) {
    auto& field = add<UITextField>("field", {0, 100, 200, 40});
    auto& lines = add<UITextView>("lines", {0, 150, 200, 80});
    play({
        {R"({"cmd":"type","text":"a"})", "no field has the focus"},
        {R"({"cmd":"tap","id":"field"})", R"("hit":"field")"},
        {R"({"cmd":"type","text":"a1é🎒"})", "true", "0+0:a|1+0:1|1+0:é|3+0:🎒|"},
        {R"({"cmd":"paste","text":"b1"})", R"("text":"aé🎒")", "7+0:b1|"},
        {R"({"cmd":"paste","text":"bc"})", R"("text":"aé🎒bc")", "7+0:bc|"},
        {R"({"cmd":"return"})", R"("text":"aé🎒bc")", "return|"},
        {R"({"cmd":"type","text":"d\ne"})", "true", "9+0:d|return|10+0:e|"},
        {R"({"cmd":"find","id":"field"})", R"("focused":true)"},
        {R"({"cmd":"clear"})", R"("text":"")", "0+11:|"},
        {R"({"cmd":"tap","id":"lines"})", R"("hit":"lines")"},
        {R"({"cmd":"type","text":"x\ny"})", "true", "0+0:x|1+0:\n|2+0:y|"},
        {R"({"cmd":"return"})", R"("text":"x\ny\n")", "3+0:\n|"},
        {R"({"cmd":"type"})", "missing"},
    });
    EXPECT_EQ(field.text() + lines.text(), "x\ny\n");
}

TEST_F(Commands, switches_wheels_and_dates_are_set_as_by_a_finger) {
    auto& control = add<UISwitch>("switch", {0, 100, 51, 31});
    auto& picker = add<UIPickerView>("picker", {0, 140, 300, 216});
    auto& dates = add<UIDatePicker>("dates", {0, 360, 375, 216});
    const auto tells = [this](const char* what) { return [=, this] { owner->told += what; }; };
    control.addAction(UIControlEvent::valueChanged, tells("thrown|"));
    dates.addAction(UIControlEvent::valueChanged, tells("dated|"));
    const auto letters = std::make_shared<Letters>(owner->told);
    picker.setDataSource(letters);
    picker.setDelegate(letters);
    picker.reloadAllComponents();
    const auto set = [](const std::string& rest) { return R"({"cmd":"set","id":)" + rest + "}"; };
    // In Seoul.
    constexpr int kMidnight = 1772377200;
    const auto seconds = [](int hour, int minute, int days = 0) {
        return R"("value":)" +
               std::to_string(kMidnight + 86400 * days + 3600 * hour + 60 * minute) + ".0";
    };
    play({
        {set(R"("switch","value":true)"), R"("value":true)", "thrown|"},
        {R"({"cmd":"tap","id":"switch"})", R"("hit":"switch")", "thrown|"},
        {R"({"cmd":"find","id":"switch"})", R"("value":false)"},
        {set(R"("switch","value":1)"), "no true or false"},
        {set(R"("picker","component":0,"row":3)"), R"("value":3)", "0:3|"},
        {set(R"("picker","component":0,"row":3)"), R"("value":3)", "0:3|"},
        {set(R"("picker","component":0,"row":4)"), "no such row"},
        {set(R"("picker","component":2,"row":0)"), "no such row"},
        {set(R"("picker","component":3,"row":0)"), "no such wheel"},
        {set(R"("picker","row":0)"), R"(\"component\" is missing)"},
        {R"({"cmd":"rows","id":"picker"})",
         R"("components":[{"selected":3,"titles":["a","b","c","d"]},)"
         R"({"selected":0,"titles":["a","b"]},{"selected":null,"titles":[]}])"},
        {R"({"cmd":"tap","text":"b","within":"picker","index":1})", "component_1", "1:1|"},
        {R"({"cmd":"find","id":"picker"})", R"("value":[3,1,null])"},
        {R"({"cmd":"rows","id":"switch"})", "no picker"},
        {R"({"cmd":"find","id":"dates"})", R"("mode":"dateAndTime")"},
        {set(R"("dates","value":"2026-03-03T10:20:59")"), seconds(10, 20, 1), "dated|"},
        {set(R"("dates","value":"10:20")"), "no local time"},
        {set(R"("dates","value":"2026-02-30T10:20:00")"), "no local time"},
    });
    dates.setDatePickerMode(UIDatePickerMode::time);
    play({
        {set(R"("dates","value":"23:59")"), seconds(23, 59, 1), "dated|"},
        {set(R"("dates","value":"2031-01-01T07:00:00")"), seconds(7, 0, 1), "dated|"},
        {set(R"("dates","value":"24:00")"), "no local time"},
        {set(R"("dates","value":"9:200")"), "no local time"},
        {R"({"cmd":"find","id":"dates"})", R"("mode":"time")"},
    });
    control.setEnabled(false);
    dates.setEnabled(false);
    play({
        {set(R"("switch","value":true)"), "disabled"},
        {set(R"("dates","value":"10:20")"), "disabled"},
    });
}

TEST_F(Commands, controls_move_as_under_a_finger) {
    auto& slider = add<UISlider>("slider", {0, 100, 200, 40});
    slider.addAction(UIControlEvent::valueChanged, [this] { owner->told += "moved|"; });
    auto& button = add<UIButton>("press", {0, 150, 100, 40});
    button.addAction(UIControlEvent::touchUpInside, [this] { owner->told += "pressed|"; });
    button.setImage(UIImage::imageNamed("front"));
    button.setBackgroundImage(UIImage::imageNamed("back"));
    auto& image = add<UIImageView>("image", {150, 150, 40, 40});
    image.setImage(UIImage::imageNamed("front"));
    image.setTintColor({1, 0.5F, 0, 1});
    add<UIButton>("half", {200, 600, 100, 200});
    auto& pages = add<UIScrollView>("pages", {0, 200, 100, 100});
    pages.setContentSize({300, 100});
    pages.setPagingEnabled(true);
    const auto scroll = [](int x, int y) {
        return stringWithFormat(R"({"cmd":"scroll","id":"pages","x":%d,"y":%d})", x, y);
    };
    play({
        {R"({"cmd":"set","id":"slider","value":0.25})", R"("value":0.25)", "moved|"},
        {R"({"cmd":"set","id":"slider","value":"1"})", "no number"},
        {R"({"cmd":"set","id":"press","value":1})", "no value"},
        {R"({"cmd":"touch","phase":"down","id":"press"})", R"("hit":"press")"},
        {R"({"cmd":"touch","phase":"up","id":"press"})", R"("hit":"press")", "pressed|"},
        {R"({"cmd":"touch","phase":"down","id":"press"})", R"("hit":"press")"},
        {R"({"cmd":"touch","phase":"cancel"})", R"("hit":null)"},
        {R"({"cmd":"touch","phase":"up","id":"press"})", R"("hit":null)"},
        {R"({"cmd":"touch","phase":"down","x":50,"y":170})", R"("hit":"press")"},
        {R"({"cmd":"touch","phase":"up","x":50,"y":400})", "true"},
        {R"({"cmd":"find","id":"press"})", R"("backgroundImage":"back")"},
        {R"({"cmd":"find","id":"press"})", R"("image":"front")"},
        {R"({"cmd":"find","id":"image"})", R"("image":"front","tint":[1.0,0.5,0.0,1.0])"},
        {R"({"cmd":"tap","id":"half"})", R"("hit":"half")"},
        {scroll(140, 0), R"("contentOffset":[100.0,0.0])"},
        {scroll(160, 50), R"("contentOffset":[200.0,0.0])"},
        {scroll(900, 0), R"("contentOffset":[200.0,0.0])"},
    });
    slider.setEnabled(false);
    button.setImage({});
    pages.setPagingEnabled(false);
    play({
        {R"({"cmd":"set","id":"slider","value":1})", R"("ok":false)"},
        {R"({"cmd":"find","id":"slider"})", R"("value":0.25)"},
        {R"({"cmd":"find","id":"press"})", R"("image":"back")"},
        {scroll(130, -20), R"("contentOffset":[130.0,0.0])"},
    });
    EXPECT_EQ(pages.contentOffset(), (CGPoint{130, 0}));
}

TEST_F(Commands, an_alarm_is_delivered_once_or_again_each_week) {
    UIApplication& application = UIApplication::sharedApplication();
    for (const auto& [body, repeat] :
         {std::pair{"once", NSInteger{0}}, {"weekly", kRepeatWeekly}}) {
        UILocalNotification note;
        note.alertBody = body;
        note.repeatInterval = repeat;
        note.fireDate = NSDate::date().dateByAddingTimeInterval(repeat == 0 ? 60 : 61);
        application.scheduleLocalNotification(note);
    }
    const auto standing = [&] {
        std::string bodies;
        for (const auto& note : application.scheduledLocalNotifications())
            bodies += note.alertBody + " ";
        for (const auto& note : application.rungLocalNotifications())
            bodies += "rung " + note.alertBody;
        return bodies;
    };
    play({{R"({"cmd":"deliver","index":1})", "true"},
          {R"({"cmd":"alert"})", R"("message":"weekly")"},
          {R"({"cmd":"answer","button":0})", "true"}});
    EXPECT_EQ(standing(), "once weekly ");
    play({{R"({"cmd":"deliver","index":0})", "true"},
          {R"({"cmd":"answer","button":0})", "true"},
          {R"({"cmd":"background"})", "true"},
          {R"({"cmd":"advance","seconds":90})", "true"}});
    EXPECT_EQ(standing(), "weekly rung weekly");
    play({{R"({"cmd":"deliver","rung":1})", "no such notification"},
          {R"({"cmd":"deliver","rung":0})", "true"},
          {R"({"cmd":"alert"})", R"("alert":null)"}});
    EXPECT_EQ(standing(), "weekly ");
    EXPECT_EQ(application.applicationState(), UIApplicationState::active);
    play({{R"({"cmd":"background"})", "true"},
          {R"({"cmd":"advance","seconds":604800})", "true"},
          {R"({"cmd":"deliver","rung":0,"active":true})", "true"},
          {R"({"cmd":"alert"})", R"("message":"weekly")"}});
    EXPECT_EQ(standing(), "weekly ");
}

TEST(RealClock, lets_what_has_fallen_due_run_before_a_command) {
    Phone phone;
    phone.quit();
    Device device(phone.facts, Clock::real(), phone.services);
    bool ran = false;
    device.mainQueue().after(0, [&] { ran = true; });
    Driver().answer(R"({"cmd":"defaults"})");
    EXPECT_TRUE(ran);
}

TEST_F(Commands, settling_runs_the_replies_to_what_is_under_way_and_to_what_follows) {
    PendingRequests& requests = Device::current().requests();
    std::string replies;
    std::vector<std::thread> service;
    const auto ask = [&](const std::function<void()>& reply) {
        service.emplace_back([request = requests.begin(60, reply)]() mutable {
            std::this_thread::yield();
            request.finish({});
        });
    };
    ask([&] {
        replies += "first ";
        ask([&] { replies += "next "; });
    });
    play({{R"({"cmd":"advance","seconds":1})", "true"}, {R"({"cmd":"tree"})", "true"}});
    EXPECT_EQ(replies, "") << "they run nowhere else";
    play({{R"({"cmd":"settle","timeout":60})",
           R"("completed":2,"ok":true,"pending":0,"timedOut":0)"}});
    for (std::thread& thread : service)
        thread.join();
    auto lost = requests.begin(60, [&] { replies += "late"; });
    play(
        {{R"({"cmd":"settle","timeout":"1"})", "no number"},
         {R"({"cmd":"settle","timeout":0})", R"("completed":0,"ok":true,"pending":1,"timedOut":0)"},
         {R"({"cmd":"advance","seconds":60})", "true"},
         {R"({"cmd":"settle"})", R"("completed":0,"ok":true,"pending":0,"timedOut":1)"}});
    lost.finish({});
    EXPECT_EQ(replies, "first next late");
    auto one = requests.begin(60, [&] { replies += " one"; });
    auto two = requests.begin(60, [&] { replies += " two"; });
    two.finish({});
    one.finish({});
    play({{R"({"cmd":"settle"})", R"("completed":2)"}});
    EXPECT_EQ(replies, "first next late two one") << "as they ended";
}

TEST_F(Commands, views_are_found_by_all_that_is_asked) {
    const auto addLabel = [this](const char* identifier, double y, const char* text) -> UILabel& {
        auto& label = add<UILabel>(identifier, {10, y, 100, 20});
        label.setText(text);
        return label;
    };
    addLabel("clock", 100, "8:00\u202FAM");
    addLabel("clock", 120, "9:00 AM");
    addLabel("clock", 140, "9:00 AM").setHidden(true);
    addLabel("other", 160, "9:00 AM").setAlpha(0);
    addLabel("other", 9000, "9:00 AM");
    const struct {
        const char* fields;
        std::vector<double> tops;
    } finds[] = {
        {R"("id":"clock")", {100, 120}},
        {R"("id":"clock","all":true)", {100, 120, 140}},
        {R"("text":"8:00 AM")", {100}},
        {R"("text":"8:00")", {}},
        {R"("text":"9:00 AM","class":"UILabel","all":true)", {120, 140, 160, 9000}},
        {R"("text":"9:00 AM","id":"other")", {}},
        {R"("text":"9:00 AM","id":"other","all":true)", {160, 9000}},
        {R"("text":"9:00 AM","class":"UIButton","all":true)", {}},
    };
    for (const auto& [fields, tops] : finds) {
        const json answer =
            json::parse(driver.answer(R"({"cmd":"find",)" + std::string(fields) + "}"));
        std::vector<double> found;
        for (const json& view : answer["views"])
            found.push_back(view["frame"][1]);
        EXPECT_EQ(found, tops) << fields;
    }
    play({
        {R"({"cmd":"tap","id":"clock"})", "several"},
        {R"({"cmd":"find","all":true})", "none of"},
        {R"({"cmd":"tap","id":"nobody"})", "no such view"},
        {R"({"cmd":"tap","x":1e300,"y":0})", "no place"},
        {R"({"cmd":"find","id":"cell_0_1_0","within":"nowhere"})", "no such view"},
        {R"({"cmd":"rows","id":"mainScrollView"})", "no table"},
        {R"({"cmd":"touch","phase":"sideways"})", "none of down"},
        {R"({"cmd":"deliver","index":0})", "no such notification"},
    });
}

TEST_F(Commands, what_lies_under_an_alert_is_not_reached) {
    for (char name = 'A'; name < 'M'; ++name)
        phone.addSubject({name});
    manager().openLessonSelector();
    phone.advance(1);
    UIWindow& window = UIWindow::keyWindow();
    auto& slider = add<UISlider>("slider", {0, 0, 200, 30});
    auto& field = window.add<UITextField>(CGRect{0, 40, 200, 30});
    field.setAccessibilityIdentifier("field");
    field.becomeFirstResponder();
    std::string reached;
    field.addAction(UIControlEvent::touchDown, [&] { reached += "touch "; });
    field.addAction(UIControlEvent::editingChanged, [&] { reached += "text "; });
    slider.addAction(UIControlEvent::valueChanged, [&] { reached += "value "; });
    const auto playAll = [&](bool isReached) {
        for (const std::string line : {
                 R"("tap","id":"field")",
                 R"("tap","x":100,"y":50)",
                 R"("touch","phase":"down","id":"field")",
                 R"("touch","phase":"up","id":"field")",
                 R"("type","text":"x")",
                 R"("paste","text":"x")",
                 R"("return")",
                 R"("clear")",
                 R"("set","id":"slider","value":1)",
                 R"("scroll","id":"SubjectListTableView","x":0,"y":50)",
                 R"("move_row","id":"SubjectListTableView","section":0,"row":0,"to":1)",
                 R"("delete_row","id":"SubjectListTableView","section":0,"row":0)",
                 R"("select_row","id":"SubjectListTableView","section":0,"row":0)",
             }) {
            const std::string got = driver.answer("{\"cmd\":" + line + "}");
            const bool was = got.find(R"("ok":true)") != std::string::npos &&
                             got.find(R"("hit":null)") == std::string::npos;
            EXPECT_EQ(was, isReached) << line << " gave " << got;
            if (isReached && !window.alerts().empty()) window.answer(1);
            if (isReached && line.starts_with("\"scroll")) tap(part("editButton"));
        }
    };
    UIAlert::notice("", "Message", "OK").show();
    playAll(false);
    window.answer(0);
    window.setCovered(true);
    playAll(false);
    window.setCovered(false);
    EXPECT_EQ(reached + field.text(), "");
    EXPECT_EQ(part<UIScrollView>("SubjectListTableView").contentOffset().y, 0);
    playAll(true);
    EXPECT_EQ(reached, "touch touch touch text text text value ");
    EXPECT_EQ(manager().appState(), AppState::editLesson) << "the row was selected";
}

TEST_F(Commands, alerts_keep_what_is_typed_for_their_answer) {
    std::string answered;
    UIAlert alert;
    alert.fields = {{"Name", "old ", false}, {"Secret", "", true}};
    alert.buttons = {{"Delete", UIAlert::Button::Style::destructive},
                     {"Add"},
                     {"Cancel", UIAlert::Button::Style::cancel}};
    alert.dismissed = [&](std::size_t button, const auto& fields) {
        answered = std::to_string(button) + fields[0].text + "," + fields[1].text;
    };
    UIAlert(alert).show();
    play({
        {R"({"cmd":"type","text":"na\nme"})", R"("ok":true)"},
        {R"({"cmd":"return"})", R"("text":"old name")"},
        {R"({"cmd":"type","field":1,"text":"x"})", R"("ok":true)"},
        {R"({"cmd":"clear","field":1})", R"("text":"")"},
        {R"({"cmd":"paste","field":1,"text":"\nline\r\nbreak\u2028s\n"})", R"("line break s")"},
        {R"({"cmd":"type","field":2,"text":"x"})", "no such field"},
        {R"({"cmd":"alert"})", R"("busy":false)"},
        {R"({"cmd":"alert"})", R"("cancel":2,"destructive":0)"},
        {R"({"cmd":"alert"})", R"("secure":true,"text":"line break s")"},
        {R"({"cmd":"answer","button":"No such"})", "no such button"},
        {R"({"cmd":"answer","button":1,"texts":["x","y","z"]})", "fewer fields"},
        {R"({"cmd":"answer","button":"Add","texts":["a\nb"]})", R"("ok":true)"},
        {R"({"cmd":"answer","button":0})", "no alert is up"},
    });
    EXPECT_EQ(answered, "1a b,line break s");
    for (const char* message : {"below", "above"})
        UIAlert::notice("", message, "OK").show();
    play({{R"({"cmd":"alert"})", R"("message":"above","title":""},"ok":true,"stack":[)"},
          {R"({"cmd":"answer","button":0})", "true"},
          {R"({"cmd":"answer","button":0})", "true"}});
    alert = {};
    alert.kind = UIAlert::Kind::sheet;
    UIAlert(alert).show();
    play({{R"({"cmd":"alert"})", R"("busy":true,"buttons":[],"cancel":null,"destructive":null)"},
          {R"({"cmd":"alert"})", R"("kind":"sheet")"},
          {R"({"cmd":"type","text":"x"})", "no such field"}});
}

}  // namespace

}  // namespace gexlo::test
