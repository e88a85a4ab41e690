// The editor of a subject: names, rooms, colours, and what saving keeps.
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

class LessonEditor : public Grid {
protected:
    static std::string title(const char* button) {
        const auto& room = part<UIButton>(button);
        if (room.isHidden()) return "-";
        const std::string& image = room.backgroundImage().name();
        const std::string mark = image.ends_with("add")        ? "+"
                                 : image.ends_with("selected") ? "!"
                                                               : "";
        return room.title() + mark;
    }
    static std::string rooms() {
        const bool deletes = !part("btnDelLessonRoom").isHidden();
        return title("btnRoom1") + " " + title("btnRoom2") + " " + title("btnRoom3") +
               (deletes ? " x" : "");
    }
    static void addRoom(const char* button, const char* room) {
        tap(part(button));
        UIWindow::keyWindow().answer(1, {room});
    }
    void openAdd() {
        manager().openAddLessonView();
        phone.advance(1);
    }
    void openEdit(GXLessonData& lesson) {
        manager().openEditLessonView(&lesson);
        phone.advance(1);
    }
    std::string topAlert() {
        const auto& alerts = UIWindow::keyWindow().alerts();
        return alerts.empty() ? "" : alerts.back().message + " " + alerts.back().buttons[0].title;
    }
};

TEST_F(LessonEditor, rooms_come_go_and_are_chosen) {
    openAdd();
    EXPECT_EQ(rooms(), "+ - -");
    tap(cell(1, 0));
    addRoom("btnRoom1", "A");
    EXPECT_EQ(cell(1, 0).room(), "A") << "a slot without a room takes the new one";
    tap(cell(2, 0));
    addRoom("btnRoom2", "A");
    EXPECT_EQ(topAlert(), "This room is entered already. OK");
    UIWindow::keyWindow().answer(0);
    addRoom("btnRoom2", "");
    EXPECT_EQ(rooms(), "A! + - x");
    addRoom("btnRoom2", "B");
    addRoom("btnRoom3", "B");
    EXPECT_EQ(topAlert(), "This room is entered already. OK");
    UIWindow::keyWindow().answer(0);
    addRoom("btnRoom3", "C");
    EXPECT_EQ(rooms(), "A B C! x");
    EXPECT_EQ(cell(2, 0).room(), "A") << "a slot with a room keeps it";
    tap(part("btnRoom2"));
    tap(cell(3, 0));
    EXPECT_EQ(cell(3, 0).room(), "B");
    tap(part("btnDelLessonRoom"));
    EXPECT_EQ(rooms(), "A! C + x") << "the third moves up, the first is chosen";
    EXPECT_EQ(cell(3, 0).room(), "") << "and its slots have none, not another";
    EXPECT_EQ(manager().selectedRoom(), "A");
    tap(part("btnRoom2"));
    tap(part("btnDelLessonRoom"));
    tap(part("btnDelLessonRoom"));
    EXPECT_EQ(rooms(), "+ - -");
}

TEST_F(LessonEditor, what_is_entered_is_there_after_the_next_start) {
    openAdd();
    const NSInteger number = phone.manager().getDataUpdateNo();
    tap(cell(1, 0));
    for (const char* field : {"tfName", "tfProfessor"}) {
        tap(part(field));
        part<UITextField>(field).insertText(field);
    }
    part<UITextField>("tfProfessor").returnKey();
    EXPECT_EQ(part("addLessonView").frame().y, 667 - 55 - 120) << "the keyboard has gone";
    for (const auto& [button, room] :
         {std::pair{"btnRoom1", "A"}, {"btnRoom2", "B"}, {"btnRoom3", "C"}})
        addRoom(button, room);
    tap(part("colorButtonDidPush"));
    phone.advance(1);
    tap(part("subjectColor_16"));
    tap(part("fontColor_1"));
    tap(part("btnOK", part("GXColorSelector")));
    phone.advance(1);
    manager().saveLesson();
    EXPECT_FALSE(part<GXBottomMenu>("bottomMenu").isLocked());
    EXPECT_EQ(phone.manager().getDataUpdateNo(), number + 1);
    relaunch();
    const GXLessonData& lesson = *phone.timetable().lessons.anyObject();
    EXPECT_EQ(lesson.name.get() + lesson.professor->name.get(), "tfNametfProfessor");
    EXPECT_EQ(lesson.room1.get() + lesson.room2.get() + lesson.room3.get(), "ABC");
    EXPECT_EQ(lesson.color.get() + lesson.fontColor.get(), "#F04853#FFFFFF");
    EXPECT_EQ(drawn(1), "tfNameA|");
}

TEST_F(LessonEditor, a_missing_name_is_asked_for_by_another_button_in_each_mode) {
    openAdd();
    manager().saveLesson();
    EXPECT_EQ(topAlert(), "Enter the name of the subject. OK");
    UIWindow::keyWindow().answer(0);
    EXPECT_EQ(manager().appState(), AppState::addLesson);
    manager().cancelLessonEditing();
    EXPECT_EQ(phone.timetable().lessons.count(), 0U);
    openEdit(phone.addSubject("A"));
    save("");
    EXPECT_EQ(topAlert(), "Enter the name of the subject. Done");
}

TEST_F(LessonEditor, a_slot_that_stays_keeps_its_alarm_and_one_that_goes_loses_it) {
    GXLessonData& lesson = phone.addSubject("A", {mon(1), tue(2)});
    redraw();
    for (const auto& [day, row] : {std::pair{1, 0}, {2, 1}}) {
        cell(day, row).dayNPeriod()->time = NSDate::date();
        phone.manager().setAlarm_inClass(3, *cell(day, row).dayNPeriod());
    }
    openEdit(lesson);
    tap(cell(2, 1));
    tap(cell(3, 2));
    save("B");
    phone.relaunch();
    const auto scheduled = UIApplication::sharedApplication().scheduledLocalNotifications();
    ASSERT_EQ(scheduled.size(), 1U);
    for (GXDayNPeriodData* placement : phone.timetable().lessons.anyObject()->times) {
        const bool kept = placement->day.get() == 1;
        EXPECT_EQ(placement->alarmValue.get(), kept ? 3 : 0);
        EXPECT_EQ(placement->time.isSet(), kept);
        if (kept) phone.manager().clearAlarmInClass(*placement);
    }
    EXPECT_TRUE(UIApplication::sharedApplication().scheduledLocalNotifications().empty());
    EXPECT_EQ(phone.manager().dataList<GXDayNPeriodData>().size(), 2U);
}

TEST_F(LessonEditor, an_old_colour_stays_until_another_is_chosen) {
    GXLessonData& lesson = phone.addSubject("A", {mon(1)});
    lesson.color = "lightblue";
    lesson.fontColor = "white";
    phone.manager().saveContext();
    redraw();
    const UIColor old = cell(1, 0).backgroundColor();
    openEdit(lesson);
    save("A");
    EXPECT_EQ(lesson.color.get(), "lightblue");
    EXPECT_EQ(cell(1, 0).backgroundColor(), old);
    openEdit(lesson);
    tap(part("colorButtonDidPush"));
    phone.advance(1);
    tap(part("subjectColor_16"));
    tap(part("btnOK", part("GXColorSelector")));
    phone.advance(1);
    EXPECT_NE(cell(1, 0).backgroundColor(), old) << "at once";
    manager().cancelLessonEditing();
    EXPECT_EQ(cell(1, 0).backgroundColor(), old);
    openEdit(lesson);
    mainView().lessonEditing().colorSelected_andFontColor(16, -1);
    save("A");
    EXPECT_EQ(lesson.color.get() + lesson.fontColor.get(), "#F04853white");
}

TEST_F(LessonEditor, rooms_share_their_row_by_the_length_of_their_names) {
    const auto width = [](int room) {
        return part("btnRoom" + std::to_string(room)).frame().width;
    };
    const auto enter = [&](std::vector<std::string> names) {
        GXLessonData& lesson = phone.addSubject("A");
        names.resize(3);
        lesson.room1 = names[0];
        lesson.room2 = names[1];
        lesson.room3 = names[2];
        openEdit(lesson);
    };
    const std::string name = "Laboratory of physics 2";
    for (const double screen : {320, 375, 667}) {
        phone.facts.screenWidth = static_cast<int>(screen);
        relaunch();
        const double row = part("tfName").frame().x;
        enter({name});
        EXPECT_GE(width(1), screen - row - 44 - 56 - 20) << "all that adding and deleting leave";
        enter({name, "B"});
        EXPECT_GT(width(1), 2 * width(2));
        enter({"A", name, "B"});
        EXPECT_GT(width(2), 2 * width(1));
        EXPECT_EQ(width(1), width(3));
        enter({name, name + name, name + name});
        EXPECT_LT(width(1), width(2));
        EXPECT_EQ(width(2), width(3));
        double x = row;
        for (const char* button : {"btnRoom1", "btnRoom2", "btnRoom3", "btnDelLessonRoom"}) {
            EXPECT_GE(part(button).frame().x, x) << screen << button;
            EXPECT_GE(part(button).frame().width, 44) << screen << button;
            x = part(button).frame().maxX();
        }
        EXPECT_LE(x, screen);
    }
}

TEST_F(LessonEditor, a_slot_under_the_panel_scrolls_out_from_there) {
    const auto edited = [&](bool daysOnLeft, std::vector<Slot> slots) {
        GXTimetableData& timetable = phone.timetable();
        timetable.daysOnLeft = daysOnLeft;
        timetable.numWeeks = 2;
        GXLessonData& lesson = phone.addSubject("A", slots);
        redraw();
        openEdit(lesson);
        return part(daysOnLeft ? "mainScrollView" : "subScrollView").contentOffset().y;
    };
    const auto isSeen = [](const UIView& view) {
        return view.frameInWindow().maxY() <= part("addLessonView").frame().y &&
               view.frameInWindow().y >= part("day_0_0").frameInWindow().y;
    };
    constexpr NSInteger friday = 5;
    EXPECT_EQ(edited(false, {mon(1), mon(9)}), 0) << "one can be seen";
    manager().cancelLessonEditing();
    EXPECT_GT(edited(false, {wed(9), tue(8)}), 0);
    EXPECT_TRUE(isSeen(cell(2, 7))) << "the first in reading order";
    EXPECT_FALSE(isSeen(cell(3, 8))) << "and no more than that";
    manager().cancelLessonEditing();
    EXPECT_EQ(edited(false, {mon(9, 1)}), 0) << "on the other page";
    manager().cancelLessonEditing();
    mainView().setTimetablePosition(1);
    EXPECT_EQ(edited(true, {{friday, 1}, mon(2)}), 0);
    manager().cancelLessonEditing();
    EXPECT_GT(edited(true, {{friday, 3}}), 0);
    EXPECT_TRUE(isSeen(cell(friday, 2)));
}

TEST_F(LessonEditor, on_a_low_screen_everything_stays_within_reach) {
    phone.facts.screenWidth = 667;
    phone.facts.screenHeight = 375;
    relaunch();
    GXLessonData& lesson = phone.addSubject("A");
    for (auto* room : {&lesson.room1, &lesson.room2, &lesson.room3})
        *room = "R";
    openEdit(lesson);
    const auto expectReach = [](const std::vector<std::string>& controls, double height) {
        for (const std::string& control : controls) {
            const CGRect place = part(control).frameInWindow();
            EXPECT_EQ(part(control).visibleRect(), place) << control;
            EXPECT_GE(place.height, height) << control;
            for (const double y : {place.y + 1, place.maxY() - 1}) {
                const auto hit = UIWindow::keyWindow().touchDown({place.center().x, y});
                EXPECT_TRUE(hit && hit->isDescendantOf(part(control))) << control << y;
                UIWindow::keyWindow().touchCancel();
            }
        }
    };
    tap(part("tfName"));
    EXPECT_EQ(part("addLessonView").frame().y, 375 - 216 - 120);
    expectReach({"tfName", "tfProfessor", "colorButtonDidPush", "btnRoom1", "btnRoom2", "btnRoom3",
                 "btnDelLessonRoom", "btnOK", "btnCancel"},
                30);
    tap(part("colorButtonDidPush"));
    EXPECT_EQ(part("tfName").frame(), (CGRect{68, 0, 667 - 68 - 76 - 10, 40})) << "as ever";
    phone.advance(1);
    std::vector<std::string> swatches{"fontColor_0", "fontColor_1"};
    for (int i = 0; i < 32; ++i)
        swatches.push_back("subjectColor_" + std::to_string(i));
    expectReach(swatches, 30);
    tap(part("btnOK", part("GXColorSelector")));
    phone.advance(1);
    EXPECT_EQ(find("GXColorSelector"), nullptr);
}

TEST_F(LessonEditor, the_panel_follows_the_keyboard_and_leaves_on_every_exit) {
    const auto y = [] { return part("addLessonView").frame().y; };
    openAdd();
    EXPECT_EQ(y(), 667 - 55 - 120);
    tap(part("tfName"));
    EXPECT_EQ(y(), 667 - 216 - 120);
    post(GX_NOTI_CLOSE_ALL_SUBVIEWS);
    phone.advance(1);
    EXPECT_EQ(y(), 667);
    auto& other = UIWindow::keyWindow().add<UITextField>(CGRect{0, 0, 100, 30});
    other.becomeFirstResponder();
    other.resignFirstResponder();
    EXPECT_EQ(y(), 667) << "the keyboard of others brings it not back";
    EXPECT_EQ(manager().appState(), AppState::normal);
    EXPECT_FALSE(part<GXBottomMenu>("bottomMenu").isLocked());
    EXPECT_EQ(part<UILabel>("lblTitle").text(), "");
    EXPECT_EQ(UIWindow::keyWindow().firstResponder(), nullptr);
}

}  // namespace

}  // namespace gexlo::test
