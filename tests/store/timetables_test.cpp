// Making, copying and removing timetables, the starting one, and counting changes.
#include "platform/foundation/user_defaults.h"
#include "support/launched_phone.h"

namespace gexlo::test {

namespace {

using Timetables = LaunchedPhone;

TEST_F(Timetables, numbers_are_never_given_twice) {
    const NSInteger highest = manager().addNewTimetable().index.get();
    manager().removeTimetable(highest);
    EXPECT_EQ(manager().addNewTimetable().index.get(), highest + 1);
    phone.relaunch();
    EXPECT_EQ(manager().addNewTimetable().index.get(), highest + 2);
    EXPECT_EQ(manager().timetableList().front()->index.get(), highest + 2);
}

TEST_F(Timetables, removing_one_takes_all_that_hangs_under_it_and_no_more) {
    GXTimetableData& removed = manager().addNewTimetable();
    phone.addHomework(phone.addSubject(removed, "Maths", {mon(1), mon(2)}), "Essay");
    removed.exam.addObject(manager().addNewExam());
    removed.classtimes.addObject(manager().addNewData<GXClasstimeData>());
    phone.addSubject("Art", {wed(3)});
    manager().saveContext();
    manager().removeTimetable(removed.index.get());
    phone.relaunch();
    EXPECT_EQ(manager().timetableList().size(), 1U);
    EXPECT_EQ(manager().dataList<GXLessonData>().size(), 1U);
    EXPECT_EQ(manager().dataList<GXDayNPeriodData>().size(), 1U);
    EXPECT_EQ(manager().dataList<GXMemoData>().size(), 1U);
    EXPECT_EQ(manager().dataList<GXProfessorData>().size(), 1U);
    EXPECT_TRUE(manager().dataList<GXHomeworkData>().empty());
    EXPECT_TRUE(manager().dataList<GXExamData>().empty());
    EXPECT_TRUE(manager().dataList<GXClasstimeData>().empty());
}

TEST_F(Timetables, a_copy_takes_settings_times_and_subjects_and_leaves_what_is_personal) {
    GXTimetableData& source = phone.timetable();
    source.name = "Term 1";
    source.backgroundImage = "from_album";
    source.lastPeriod = 12;
    source.alphaBorder = 0.25F;
    source.useHalfPeriods = true;
    auto& classtime = manager().addNewData<GXClasstimeData>();
    classtime.period = 2.1F;
    classtime.shortName = "L";
    classtime.beginHour = 12;
    classtime.endMin = 50;
    source.classtimes.addObject(classtime);
    GXLessonData& lesson = phone.addSubject("Maths", {mon(1), tue(2.5F, 1)});
    lesson.color = "gold";
    lesson.room2 = "B2";
    lesson.room3 = "B3";
    lesson.rgbGreen = 7;
    lesson.absenceCount = 3;
    lesson.professor->name = "Ms Kim";
    lesson.professor->phone = "555";
    lesson.memo.anyObject()->content = "secret";
    for (GXDayNPeriodData* placement : lesson.times) {
        placement->alarmValue = 3;
        placement->room = "B2";
    }
    phone.addHomework(lesson, "Essay");

    GXTimetableData& copy = manager().copyTimetableFromTimetableNo(source.index.get());
    EXPECT_EQ(copy.name.get(), "Term 1 copy");
    EXPECT_EQ(copy.backgroundImage.get(), "#F3F0EC") << "a user image belongs to one timetable";
    const auto expectAlike = [](const NSManagedObject& one, const NSManagedObject& other,
                                const std::vector<const char*>& keys) {
        for (const char* key : keys)
            EXPECT_EQ(one.valueForKey(key), other.valueForKey(key)) << key;
    };
    expectAlike(copy, source,
                {"numWeeks",       "firstDay",          "lastDay",          "firstPeriod",
                 "lastPeriod",     "daysToNumbers",     "daysOnLeft",       "useHalfPeriods",
                 "showClasstimes", "useSameClasshours", "colorBorder",      "alphaBorder",
                 "colorTableBack", "alphaTableBack",    "colorDaysBack",    "alphaDaysBack",
                 "colorDaysFont",  "colorPeriodsBack",  "alphaPeriodsBack", "colorPeriodsFont",
                 "alphaSubject",   "useAbsenceCounting"});
    EXPECT_FALSE(copy.textSize.isSet());
    EXPECT_EQ(manager().timetableList().front(), &copy);
    ASSERT_TRUE(copy.classtimes.count() == 1 && copy.lessons.count() == 1);
    const GXClasstimeData& time = *copy.classtimes.anyObject();
    expectAlike(time, classtime,
                {"week", "name", "shortName", "period", "beginHour", "beginMin", "endMin"});
    EXPECT_FALSE(time.endHour.isSet());
    const GXLessonData& subject = *copy.lessons.anyObject();
    EXPECT_NE(subject.id.get(), lesson.id.get());
    expectAlike(
        subject, lesson,
        {"name", "color", "fontColor", "rgbRed", "rgbGreen", "rgbBlue", "room1", "room2", "room3"});
    EXPECT_EQ(subject.absenceCount.get(), 0);
    EXPECT_EQ(subject.professor->name.get(), "Ms Kim");
    EXPECT_EQ(subject.professor->phone.get(), "");
    EXPECT_EQ(subject.memo.anyObject()->content.get(), "");
    EXPECT_TRUE(subject.homework.isEmpty());
    ASSERT_EQ(subject.times.count(), 2U);
    for (const GXDayNPeriodData* placement : subject.times) {
        EXPECT_EQ(placement->alarmValue.get(), 0);
        EXPECT_EQ(placement->room.get(), "B2");
    }
    EXPECT_EQ(lesson.times.count(), 2U) << "the source keeps its own";
}

TEST_F(Timetables, the_starting_timetable_is_one_coded_number) {
    for (const NSInteger stored : {0, 999, 1000, 1005}) {
        manager().appSettingData().startingTimetable = stored;
        EXPECT_EQ(manager().startingTimetableNo(), stored % 1000);
        EXPECT_EQ(manager().fixedStartingTimetable(), stored < 1000);
    }
    manager().setStartingTimetable_fixed(5, false);
    phone.restart();
    EXPECT_EQ(manager().appSettingData().startingTimetable.get(), 1005);
}

TEST_F(Timetables, update_numbers_count_all_changes_and_those_of_the_current_one) {
    EXPECT_EQ(manager().getDataUpdateNo(), 1);
    EXPECT_EQ(manager().getTimetableUpdateNo(0), 1);
    EXPECT_EQ(manager().getTimetableUpdateNo(8), 0);
    manager().setCurrentTimetableNo(8);
    manager().dataUpdateNoUp();
    manager().timetableUpdateNoUp();
    manager().timetableUpdateNoUp(0);
    EXPECT_EQ(manager().getDataUpdateNo(), 2);
    phone.restart();
    EXPECT_EQ(manager().getDataUpdateNo(), 2);
    EXPECT_EQ(manager().getTimetableUpdateNo(8), 2);
    EXPECT_EQ(manager().getTimetableUpdateNo(0), 2);
}

}  // namespace

}  // namespace gexlo::test
