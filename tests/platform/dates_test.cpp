#include <gtest/gtest.h>

#include "platform/foundation/calendar.h"
#include "platform/foundation/date_formatter.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

constexpr NSTimeInterval kHour = 3600;

class Dates : public testing::Test {
protected:
    Phone phone;
    const NSCalendar calendar = NSCalendar::currentCalendar();
};

TEST_F(Dates, a_change_of_the_clock_moves_no_day_and_no_time_of_day) {
    // The hours of the day; a time that it leaves out or has twice, and how that is shown.
    const std::vector<std::tuple<std::string, std::string, int, std::string, std::string>> cases{
        {"Europe/Berlin", "2026-03-29", 23, "T02:30:00", "T03:30:00"},
        {"Europe/Berlin", "2026-10-25", 25, "T02:30:00", "T02:30:00"},
        {"America/New_York", "2026-03-08", 23, "T02:30:00", "T03:30:00"},
        {"America/New_York", "2026-11-01", 25, "T01:30:00", "T01:30:00"},
        {"Asia/Seoul", "1988-05-08", 23, "T02:30:00", "T03:30:00"},
        {"Asia/Seoul", "1988-10-09", 25, "T02:30:00", "T02:30:00"},
        {"America/Havana", "2026-11-01", 25, "T00:30:00", "T00:30:00"}};
    for (const auto& [zone, day, hours, odd, shownAs] : cases) {
        phone.facts.timeZone = zone;
        phone.restart();
        const NSDate dayBefore = calendar.dateByAddingDays(at(day + "T12:00:00"), -1);
        const NSDate begin = calendar.startOfNextDay(dayBefore);
        EXPECT_EQ(begin, dayBefore.dateByAddingTimeInterval(12 * kHour)) << zone;
        const NSDate next = begin.dateByAddingTimeInterval(hours * kHour);
        EXPECT_EQ(calendar.startOfNextDay(begin), next) << zone;
        EXPECT_EQ(calendar.startOfNextDay(next.dateByAddingTimeInterval(-0.5)), next) << zone;
        const NSDate dayAfter = calendar.dateByAddingDays(dayBefore, 2);
        EXPECT_EQ(dayAfter, next.dateByAddingTimeInterval(12 * kHour)) << zone;
        EXPECT_EQ(localTime(dayAfter).substr(10), "T12:00:00") << zone;
        EXPECT_EQ(localTime(at(day + odd)), day + shownAs) << zone;
        for (NSDate date = dayBefore; date < dayAfter; date = date.dateByAddingTimeInterval(900)) {
            // What the clock shows twice leads back to one of the two.
            const NSDate back = calendar.dateFromComponents(calendar.componentsFromDate(date));
            EXPECT_EQ(localTime(back), localTime(date)) << zone;
        }
    }
}

TEST_F(Dates, what_is_no_local_time_is_refused) {
    EXPECT_TRUE(dateFromLocalTime("2028-02-29T23:59:59", calendar));
    for (const std::string_view text :
         {"2026-02-31T08:00:00", "2026-02-29T08:00:00", "2026-13-01T08:00:00",
          "2026-00-01T08:00:00", "2026-01-00T08:00:00", "2026-03-02T24:00:00",
          "2026-03-02T08:60:00", "2026-03-02T08:00:60", "2026-03-02 08:00:00", "2026-3-02T08:00:00",
          "2026-03-02T08:00", "2026-03-02T08:00:00Z", "2026-03-02T08:00:-1", "-026-03-02T08:00:00",
          "2026-03-02T08:00: 1", ""}) {
        EXPECT_FALSE(dateFromLocalTime(text, calendar)) << text;
    }
}

TEST_F(Dates, each_language_orders_and_names_the_fields_its_way) {
    const std::vector<std::tuple<const char*, const char*, const char*>> cases{
        {"en", "US", "Monday, March 2, 2026|March 2, 2026|3/2/26|08:05|Mon, Mar 2, 08:05|"},
        {"ko", "KR", "2026년 3월 2일 월요일|2026년 3월 2일|26. 3. 2.|08:05|3월 2일 월 08:05|"},
        {"ja", "JP", "2026年3月2日月曜日|2026年3月2日|2026/03/02|8:05|3月2日月 8:05|"}};
    for (const auto& [language, region, expected] : cases) {
        phone.facts.languages = {language};
        phone.facts.region = region;
        phone.restart();
        const NSDate date = at("2026-03-02T08:05:00");
        NSDateFormatter formatter;
        std::string text = formatter.stringFromDate(date);
        for (const auto style : {DateStyle::full, DateStyle::longStyle, DateStyle::shortStyle}) {
            formatter.setDateStyle(style);
            text += formatter.stringFromDate(date) + "|";
        }
        NSDateFormatter timed;
        timed.setDateStyle(DateStyle::shortStyle);
        timed.setTimeStyle(DateStyle::shortStyle);
        EXPECT_NE(timed.stringFromDate(date), formatter.stringFromDate(date));
        for (const char* fields : {"HHmm", "cccMMMdHHmm"}) {
            const NSLocale locale = NSLocale::currentLocale();
            formatter.setDateFormat(NSDateFormatter::dateFormatFromTemplate(fields, locale));
            text += formatter.stringFromDate(date) + "|";
        }
        EXPECT_EQ(text, expected);
    }
}

}  // namespace
}  // namespace gexlo::test
