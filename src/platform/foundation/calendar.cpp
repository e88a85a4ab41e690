#include "platform/foundation/calendar.h"

#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

namespace gexlo {

namespace {

std::unique_ptr<icu::TimeZone> timeZone(const std::string& name) {
    return std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
}

/// Without a zone's name in the default one, which is the device's.
std::unique_ptr<icu::GregorianCalendar> icuCalendar(const std::optional<std::string>& zone) {
    UErrorCode status = U_ZERO_ERROR;
    auto calendar = std::make_unique<icu::GregorianCalendar>(icu::Locale::getRoot(), status);
    if (zone) calendar->adoptTimeZone(timeZone(*zone).release());
    return calendar;
}

NSDate dateOf(const icu::Calendar& calendar) {
    UErrorCode status = U_ZERO_ERROR;
    return NSDate::dateWithTimeIntervalSince1970(calendar.getTime(status) / 1000);
}

void setDate(icu::Calendar& calendar, NSDate date) {
    UErrorCode status = U_ZERO_ERROR;
    calendar.setTime(date.timeIntervalSince1970() * 1000, status);
}

}  // namespace

NSDateComponents NSCalendar::componentsFromDate(NSDate date) const {
    const auto icu = icuCalendar(zone_);
    setDate(*icu, date);
    UErrorCode status = U_ZERO_ERROR;
    const auto field = [&](UCalendarDateFields which) { return icu->get(which, status); };
    return {field(UCAL_YEAR),        field(UCAL_MONTH) + 1, field(UCAL_DATE),
            field(UCAL_HOUR_OF_DAY), field(UCAL_MINUTE),    field(UCAL_SECOND),
            field(UCAL_DAY_OF_WEEK)};
}

NSDate NSCalendar::dateFromComponents(const NSDateComponents& components) const {
    const auto icu = icuCalendar(zone_);
    icu->clear();
    icu->set(components.year, components.month - 1, components.day, components.hour,
             components.minute, components.second);
    return dateOf(*icu);
}

NSDate NSCalendar::startOfNextDay(NSDate date) const {
    const NSDateComponents today = componentsFromDate(date);
    const auto icu = icuCalendar(zone_);
    // Where the clock is changed at midnight a day begins at 1, or has two midnights.
    icu->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    icu->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    icu->clear();
    icu->set(today.year, today.month - 1, today.day + 1, 0, 0, 0);
    return dateOf(*icu);
}

NSDate NSCalendar::dateByAddingDays(NSDate date, int days) const {
    const auto icu = icuCalendar(zone_);
    setDate(*icu, date);
    UErrorCode status = U_ZERO_ERROR;
    icu->add(UCAL_DATE, days, status);
    return dateOf(*icu);
}

bool isTimeZone(const std::string& name) {
    return *timeZone(name) != icu::TimeZone::getUnknown();
}

std::optional<NSDate> dateFromLocalTime(std::string_view text, const NSCalendar& calendar) {
    NSDateComponents read;
    int length = 0;
    const std::string line(text);
    const int fields =
        std::sscanf(line.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%n", &read.year, &read.month, &read.day,
                    &read.hour, &read.minute, &read.second, &length);
    constexpr std::string_view shape = "dddd-dd-ddTdd:dd:dd";
    if (fields != 6 || line.size() != shape.size() || length != static_cast<int>(shape.size())) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const bool digit = line[i] >= '0' && line[i] <= '9';
        if (shape[i] == 'd' ? !digit : line[i] != shape[i]) return std::nullopt;
    }
    const NSDate date = calendar.dateFromComponents(read);
    // A day such as the 31st of February carries over and so reads back as another.
    const NSDateComponents back = calendar.componentsFromDate(date);
    const bool sameDay = back.year == read.year && back.month == read.month && back.day == read.day;
    const bool validTime = read.hour < 24 && read.minute < 60 && read.second < 60;
    return sameDay && validTime ? std::optional(date) : std::nullopt;
}

}  // namespace gexlo
