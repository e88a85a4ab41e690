// Alarms of placements: when they ring, what they say, and what takes them away.
#include "alarms/alarms.h"
#include "app/app_delegate.h"
#include "app/main_view.h"
#include "presentation/settings_manager.h"

namespace gexlo::test {
namespace {

class ClassAlarms : public Alarms {
protected:
    void show(const GXTimetableData& timetable) {
        manager().setCurrentTimetableNo(timetable.index.get());
        screen().setCurrentTimetableFromCoreData();
    }
    static GXMainView& screen() { return *GXAppDelegate::delegate().mainView(); }
};

TEST_F(ClassAlarms, the_first_date_lies_in_this_week_be_it_past_or_not) {
    phone.facts.timeZone = "Europe/Berlin";
    phone.addClasstime(phone.timetable(), mon(1), 0, 30);
    phone.addClasstime(phone.timetable(), mon(2), 9, 30);
    phone.addClasstime(phone.timetable(), mon(3), 9, 99);
    addPlacement("Maths", mon(1));
    const std::tuple<const char*, Slot, std::string, NSInteger, std::string> cases[] = {
        {"2026-03-06T10:00:00", mon(2), "", 1, "2026-03-02T09:30:00"},
        {"2026-03-07T23:59:59", {0, 2}, "", 1, "2026-03-01T09:30:00"},
        {"2026-03-01T00:00:00", {7, 2}, "", 3, "2026-03-08T09:20:00"},
        {"2026-03-04T08:00:00", {0, 1}, "", 5, "2026-02-28T23:30:00"},
        {"2026-03-04T08:00:00", wed(3), "", 1, "2026-03-04T00:00:00"},
        {"2026-03-04T08:00:00", wed(4), "", 3, "2026-03-03T23:50:00"},
        // A time of its own is a time of day, chosen in summer or in winter.
        {"2026-03-02T08:00:00", mon(2), "2025-07-01T08:15:40", 3, "2026-03-02T08:05:00"}};
    for (const auto& [now, slot, time, kind, fireDate] : cases) {
        phone.launchAt(now);
        GXDayNPeriodData& placement = *manager().dataList<GXDayNPeriodData>().at(0);
        placement.day = slot.day;
        placement.period = slot.period;
        if (!time.empty()) placement.time = at(time);
        manager().setAlarm_inClass(kind, placement);
        EXPECT_EQ(localTime(scheduled().at(0).fireDate), fireDate) << now;
    }
}

TEST_F(ClassAlarms, both_weeks_ring_every_week_at_times_as_the_timetable_on_screen_has_them) {
    GXTimetableData& own = phone.timetable();
    own.useSameClasshours = false;
    phone.addClasstime(own, wed(2, 0), 9, 30);
    phone.addClasstime(own, wed(2, 1), 10, 30);
    const GXLessonData& lesson = phone.addSubject("Maths", {wed(2, 0), wed(2, 1)});
    const std::pair<const GXTimetableData&, std::string> cases[] = {
        {own, "2026-03-04T10:30:00"}, {manager().addNewTimetable(), "2026-03-04T09:30:00"}};
    for (const auto& [onScreen, ofSecondWeek] : cases) {
        show(onScreen);
        for (GXDayNPeriodData* placement : lesson.times)
            manager().setAlarm_inClass(1, *placement);
        EXPECT_EQ(localTime(scheduled().at(0).fireDate), "2026-03-04T09:30:00");
        const UILocalNotification note = scheduled().at(1);
        const NSInteger shown = onScreen.index.get();
        const NSDictionary info{
            {"notiType", 0}, {"category", 0}, {"type", 1}, {"timetableNo", shown}};
        EXPECT_EQ(note.userInfo, info);
        EXPECT_EQ(note.repeatInterval, kRepeatWeekly);
        EXPECT_EQ(note.alertAction + localTime(note.fireDate), "OK" + ofSecondWeek);
    }
}

TEST_F(ClassAlarms, an_upgrade_takes_the_times_of_the_timetable_that_it_rebuilds) {
    GXTimetableData* timetables[] = {&phone.timetable(), &manager().addNewTimetable()};
    for (GXTimetableData* timetable : timetables) {
        const bool isSame = timetable == timetables[0];
        timetable->useSameClasshours = isSame;
        phone.addClasstime(*timetable, wed(2, 0), 9, 30);
        if (!isSame) phone.addClasstime(*timetable, wed(2, 1), 10, 30);
        const GXLessonData& lesson = phone.addSubject(*timetable, "Maths", {wed(2, 1)});
        manager().setAlarm_inClass(1, *lesson.times.anyObject());
    }
    phone.upgrade("48");
    EXPECT_EQ(localTime(scheduled().at(0).fireDate), "2026-03-04T10:30:00") << "the newer one";
    EXPECT_EQ(localTime(scheduled().at(1).fireDate), "2026-03-04T09:30:00");
}

TEST_F(ClassAlarms, what_is_removed_takes_its_own_along_and_a_rebuild_arms_the_rest_anew) {
    const auto addArmed = [&](GXTimetableData& timetable, const std::string& name) {
        GXLessonData& lesson = phone.addSubject(timetable, name, {mon(2)});
        manager().setAlarm_inClass(2, *lesson.times.anyObject());
        auto& homework = addItem(lesson.homework, manager().addNewHomework(), name + "-homework");
        manager().setAlarm_inSchedule_scheduleType(3, homework, 0);
        auto& exam = addItem(timetable.exam, manager().addNewExam(), name + "-exam");
        exam.index = 7;
        manager().setAlarm_inSchedule_scheduleType(6, exam, 1);
        return &lesson;
    };
    GXTimetableData& other = manager().addNewTimetable();
    GXLessonData* maths = addArmed(phone.timetable(), "Maths");
    addArmed(other, "Music");
    GXLessonData* art = addArmed(phone.timetable(), "Art");
    manager().removeHomework(*art->homework.anyObject());
    manager().removeTimetable(other.index.get());
    EXPECT_EQ(names(), (Texts{"Maths", "Maths-homework", "Maths-exam", "Art", "Art-exam"}));
    manager().removeLesson_inTimetable(*maths, phone.timetable());
    EXPECT_EQ(names(), (Texts{"Maths-exam", "Art", "Art-exam"}));

    phone.launchAt("2026-03-11T08:00:00");
    show(manager().addNewTimetable());
    manager().resetAllAlarms();
    EXPECT_EQ(names(), (Texts{"Art", "Maths-exam", "Art-exam"}));
    EXPECT_EQ(localTime(scheduled()[0].fireDate), "2026-03-08T23:55:00");
    EXPECT_EQ(scheduled()[2].userInfo.at("scheduleIndex"), 1);
    EXPECT_EQ(scheduled()[2].userInfo.at("timetableNo"), 2) << "the one on screen";
    manager().removeAllAlarms();
    EXPECT_TRUE(scheduled().empty());
}

TEST_F(ClassAlarms, periods_that_are_no_longer_shown_lose_theirs_and_the_others_keep_them) {
    phone.timetable().useHalfPeriods = true;
    for (const Slot& slot : {mon(8), mon(9), mon(2.5F), wed(1, 1)})
        manager().setAlarm_inClass(1, addPlacement("x", slot));
    const auto before = scheduled();
    GXSettingsManager& settings = GXSettingsManager::manager();
    settings.setData(phone.timetable());
    settings.lastPeriod = 8;
    settings.useHalfPeriods = false;
    settings.updatePeriodsInfo();
    screen().updateAlarms();
    EXPECT_EQ(scheduled(), (std::vector{before.at(0), before.at(3)}));
}

}  // namespace
}  // namespace gexlo::test
