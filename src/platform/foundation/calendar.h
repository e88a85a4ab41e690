// Dates as a person counts them, in the device's time zone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/date.h"

namespace gexlo {

/// `weekday` runs from 1 for Sunday to 7 for Saturday and is not read when a date is made.
struct NSDateComponents {
    int year = 1;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 1;

    bool operator==(const NSDateComponents&) const = default;
};

/// The Gregorian calendar.
class NSCalendar {
public:
    /// In the device's zone.
    static NSCalendar currentCalendar() { return {}; }
    static NSCalendar calendarInTimeZone(std::string name) {
        NSCalendar calendar;
        calendar.zone_ = std::move(name);
        return calendar;
    }

    NSDateComponents componentsFromDate(NSDate date) const;
    /// Fields beyond their range carry over, as 25 o'clock does to the next day. A time
    /// that a change to summer time leaves out is read by the offset before the change.
    NSDate dateFromComponents(const NSDateComponents& components) const;
    NSDate startOfNextDay(NSDate date) const;
    /// The same time of day `days` calendar days later.
    NSDate dateByAddingDays(NSDate date, int days) const;

private:
    std::optional<std::string> zone_;
};

/// Whether the name is that of a zone, as "Asia/Seoul".
bool isTimeZone(const std::string& name);

/// Reads local time as "2026-03-02T08:00:00"; nothing when it is not such a time.
std::optional<NSDate> dateFromLocalTime(std::string_view text, const NSCalendar& calendar);

}  // namespace gexlo
