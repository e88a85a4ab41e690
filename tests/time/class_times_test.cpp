// Times of classes as texts, the questions about them, and the due date of an item.
#include "time/class_time.h"

#include <gtest/gtest.h>

#include "support/phone.h"

namespace gexlo::test {
namespace {

using Times = std::array<NSInteger, 4>;

TEST(ClassTime, the_end_tests_its_minute_by_the_hour_and_the_beginning_by_itself) {
    Phone phone;
    const std::pair<Times, std::string> cases[] = {{{9, 5, 10, 0}, "Period 3.5\n09:05 - 10:00"},
                                                   {{10, 99, 10, 99}, "Period 3.5\n10: - 10:99"},
                                                   {{99, 5, 99, 5}, "Period 3.5\n :05 - "},
                                                   {{99, 99, 0, 0}, "Period 3.5\n - 00:00"},
                                                   {{99, 99, 99, 99}, "Period 3.5\n "}};
    GXClassTime times;
    for (const auto& [set, label] : cases) {
        times.setBeginTimeWithClass_hour_min(3.5F, set[0], set[1]);
        times.setEndTimeWithClass_hour_min(3.5F, set[2], set[3]);
        EXPECT_EQ(times.stringClassTime(3.5F), label);
    }
    times.setBeginTimeStringWithClass_hour_min(2.1F, "", "05x");
    GXClassTime copy;
    copy.setClassTime(times);
    EXPECT_EQ(copy.stringBeginTimeWithClass(2.0F), ":05x") << "shared with the break behind";
    EXPECT_EQ(copy.numberBeginHourWithClass(2.0F), 99);
    EXPECT_EQ(copy.beginHourWithClass(2.0F), 0);
}

TEST(ClassTimeQueries, answer_by_period_and_some_by_week) {
    Phone phone;
    phone.launch();
    GXDataManager& manager = phone.manager();
    const std::tuple<float, Times, std::string> cases[] = {
        {1.0F, {99, 99, 99, 99}, "Period 1\n | - | 0:0"},
        {1.5F, {99, 99, 10, 5}, "Period 1.5\n - 10:05| - 10:05| 0:0"},
        {2.0F, {8, 99, 99, 99}, "Period 2\n 08:99 - | - | 0:0"},
        {2.1F, {9, 5, 99, 50}, "Period 2.1\n09:05 - 99:50|09:05 - | 9:5"},
        {3.0F, {99, 30, 12, 0}, "Period 3\n99:30 - 12:00| - 12:00| 0:0"}};
    for (const auto& [number, set, text] : cases) {
        const Slot slot{0, number, 1};
        GXClasstimeData& row = phone.addClasstime(phone.timetable(), slot, set[0], set[1]);
        row.endHour = set[2];
        row.endMin = set[3];
        EXPECT_EQ(stringWithFormat("%@|%@ - %@| %ld:%ld", manager.classtime(number),
                                   manager.classBeginningTime(number), manager.classEndTime(number),
                                   manager.classBeginningHourWithPeriod_week(number, 1),
                                   manager.classBeginningMinWithPeriod_week(number, 1)),
                  text);
        EXPECT_EQ(manager.classBeginningHourWithPeriod_week(number, 0), 0) << text;
    }
    EXPECT_EQ(manager.classtime(2.5F), "Period 2.5\n ");
}

TEST(ScheduleDate, is_told_in_the_language_of_the_phone) {
    const std::tuple<const char*, const char*, std::string, std::string, std::string> cases[] = {
        {"en", "US", "Mon, Mar 2, 14:05", "Every Sunday  14:05", "Every Wednesday  14:05"},
        {"ko", "KR", "3월 2일 월 14:05", "매주 일요일  14:05", "매주 수요일  14:05"},
        {"ja", "JP", "3月2日月 14:05", "毎週日曜日  14:05", "毎週水曜日  14:05"},
        {"zh-Hans", "CN", "3月2日周一 14:05", "每周星期日  14:05", "每周星期三  14:05"},
        {"zh-Hant", "TW", "3月2日 週一 14:05", "每週星期日  14:05", "每週星期三  14:05"}};
    for (const auto& [language, region, dated, sunday, wednesday] : cases) {
        Phone phone;
        phone.facts.languages = {language};
        phone.facts.region = region;
        phone.relaunch();
        GXHomeworkData& item = phone.addHomework(phone.addSubject("Maths"), "Essay");
        item.date = at("2026-03-02T14:05:59");
        const std::pair<NSInteger, std::string> repeats[] = {
            {0, dated}, {99, dated}, {100, sunday}, {103, wednesday}, {107, dated}};
        for (const auto& [repeat, text] : repeats) {
            item.repeat = repeat;
            EXPECT_EQ(phone.manager().stringForScheduleDate(item), text) << repeat;
        }
        item.repeat = 106;
        EXPECT_NE(phone.manager().stringForScheduleDate(item), dated) << "every Saturday";
    }
}

}  // namespace
}  // namespace gexlo::test
