// The kinds of both families, and alarms of homework and exams.
#include "alarms/alarms.h"

namespace gexlo::test {
namespace {

class ScheduleAlarms : public Alarms {};

TEST_F(ScheduleAlarms, each_kind_takes_the_place_of_the_last_and_one_the_family_lacks_clears) {
    phone.addClasstime(phone.timetable(), wed(2), 9, 30);
    GXDayNPeriodData& placement = addPlacement("%", wed(2));
    GXLessonData& lesson = *placement.lesson.get();
    ScheduleItem* items[] = {&addItem(lesson.homework, manager().addNewHomework(), "O"),
                             &addItem(lesson.exam, manager().addNewExam(), "O")};
    // Which archive a placement holds and an item, and what rings then.
    const std::tuple<NSInteger, std::string, std::string> cases[] = {
        {1, "Exactly 4T09:30 % : On time", "Exactly 5T17:00 O : On time \n(%)"},
        {2, "5min 4T09:25 % (%d) : 5 minutes before", ""},
        {3, "10min 4T09:20 % : 10 minutes before", "10min 5T16:50 O : 10 minutes before \n(%)"},
        {4, "", ""},
        {5, "1hour 4T08:30 % : 1 hour before", "1hour 5T16:00 O : 1 hour before \n(%)"},
        {6, "", "1day 4T17:00 O : 1 day before \n(%)"},
        {0, "", ""}};
    const auto expect = [](const std::string& expected, NSInteger kind, const auto& holder) {
        std::string found;
        for (const std::string key : {"Exactly", "5min", "10min", "1hour", "1day"})
            if (!holder.valueForKey("alarm" + key).isAbsent()) found += key;
        for (const UILocalNotification& note : scheduled())
            found += " " + localTime(note.fireDate).substr(9, 7) + " " + note.alertBody;
        EXPECT_EQ(found, expected) << kind;
        EXPECT_EQ(holder.alarmValue.get(), expected.empty() ? 0 : kind);
    };
    const NSData text = NSKeyedArchiver::archivedDataWithRootObject("text");
    for (const auto& [kind, ofPlacement, ofItem] : cases) {
        placement.room = kind == 2 ? "%d" : "";
        // What is no archive of a notification cancels nothing, and goes.
        if (kind < 5) placement.alarm1hour = NSData(text.begin(), text.end() - kind);
        manager().setAlarm_inClass(kind, placement);
        expect(ofPlacement, kind, placement);
    }
    for (const NSInteger type : {0, 1}) {
        for (const auto& [kind, ofPlacement, ofItem] : cases) {
            manager().setAlarm_inSchedule_scheduleType(kind, *items[type], type);
            expect(ofItem, kind, *items[type]);
        }
    }
}

TEST_F(ScheduleAlarms, a_notification_tells_item_owner_and_repetition_and_follows_the_number) {
    phone.addSubject("Other");
    GXLessonData& lesson = phone.addSubject("Maths");
    for (const char* title : {"a", "b", "c", "d"}) {
        GXExamData& exam = addItem(lesson.exam, manager().addNewExam(), title);
        exam.repeat = 104;
        manager().setAlarm_inSchedule_scheduleType(*title == 'c' ? 0 : 3, exam, 1);
    }
    const auto exams = lesson.exam.allObjects();
    manager().removeExam(*exams[1]);
    manager().removeExam_fromLesson(*exams[0], lesson);
    auto& free = addItem(phone.timetable().homework, manager().addNewHomework(), "Form");
    free.date = at("2026-02-01T12:00:00");
    manager().setAlarm_inSchedule_scheduleType(1, free, 0);

    const auto notes = scheduled();
    EXPECT_EQ(names(), (Texts{"a", "d", "Form"})) << "who moves out keeps the alarm for now";
    const NSDictionary info{{"notiType", 0},    {"category", 2},      {"type", 3},
                            {"timetableNo", 0}, {"scheduleIndex", 1}, {"lessonIndex", 1}};
    EXPECT_EQ(notes.at(1).userInfo, info);
    EXPECT_EQ(notes[1].repeatInterval, kRepeatWeekly);
    EXPECT_EQ(notes[1].alertAction, "View");
    EXPECT_EQ(notes.at(2).userInfo.at("category"), 1);
    EXPECT_EQ(notes[2].userInfo.at("lessonIndex"), -1);
    EXPECT_EQ(notes[2].repeatInterval, 0);
    EXPECT_EQ(notes[2].fireDate, free.date.get()) << "past, and handed over as it is";
    EXPECT_EQ(notes[2].alertBody, "Form : On time ");
}

}  // namespace
}  // namespace gexlo::test
