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
        const std::string& image = room.backgroundImage().name;
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
    mainView().colorSelected_andFontColor(16, -1);
    save("A");
    EXPECT_EQ(lesson.color.get() + lesson.fontColor.get(), "#F04853white");
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
    EXPECT_EQ(manager().appState(), AppState::normal);
    EXPECT_FALSE(part<GXBottomMenu>("bottomMenu").isLocked());
    EXPECT_EQ(part<UILabel>("lblTitle").text(), "");
    EXPECT_EQ(UIWindow::keyWindow().firstResponder(), nullptr);
}

}  // namespace

}  // namespace gexlo::test
