#include "platform/views/date_wheels.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "platform/foundation/calendar.h"
#include "platform/foundation/date_formatter.h"

namespace gexlo {

namespace {

/// Further than a finger throws the wheel, which is brought back to its middle in time.
constexpr NSInteger kDaysEachWay = 500;
constexpr NSInteger kLastYear = 9999;

struct PatternLetters {
    std::string_view letters;
    DateField field;
    const char* title;  // the template of its titles; null for the letters themselves
};

constexpr PatternLetters kLetters[] = {
    {"yu", DateField::year, "y"},       {"ML", DateField::month, "LLLL"},
    {"d", DateField::day, "d"},         {"abB", DateField::half, nullptr},
    {"hK", DateField::hour12, nullptr}, {"Hk", DateField::hour24, nullptr},
    {"m", DateField::minute, nullptr},
};

/// Adds a wheel for each field of a pattern.
void addWheels(std::vector<DateWheel>& wheels, std::string_view pattern, const NSLocale& locale) {
    bool isQuoted = false;
    for (std::size_t at = 0; at < pattern.size();) {
        const char letter = pattern[at];
        const std::size_t end = std::min(pattern.find_first_not_of(letter, at), pattern.size());
        const std::string run(pattern.substr(at, end - at));
        at = end;
        if (letter == '\'' && run.size() % 2 == 1) isQuoted = !isQuoted;
        const auto* found = std::ranges::find_if(kLetters, [&](const PatternLetters& known) {
            return known.letters.find(letter) != std::string_view::npos;
        });
        if (isQuoted || found == std::end(kLetters)) continue;
        wheels.push_back(
            {found->field,
             found->title ? NSDateFormatter::dateFormatFromTemplate(found->title, locale) : run});
    }
}

NSDateComponents componentsOf(NSDate date) {
    return NSCalendar::currentCalendar().componentsFromDate(date);
}

NSInteger dayNumber(NSDate date) {
    const NSDateComponents parts = componentsOf(date);
    const std::chrono::year_month_day day{std::chrono::year(parts.year),
                                          std::chrono::month(static_cast<unsigned>(parts.month)),
                                          std::chrono::day(static_cast<unsigned>(parts.day))};
    return std::chrono::sys_days(day).time_since_epoch().count();
}

int daysInMonth(const NSDateComponents& parts) {
    const auto last = std::chrono::year(parts.year) /
                      std::chrono::month(static_cast<unsigned>(parts.month)) / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

}  // namespace

std::vector<DateWheel> dateWheels(UIDatePickerMode mode, const NSLocale& locale) {
    const auto pattern = [&](std::string_view fields) {
        return NSDateFormatter::dateFormatFromTemplate(fields, locale);
    };
    std::vector<DateWheel> wheels;
    if (mode == UIDatePickerMode::date) {
        addWheels(wheels, pattern("yMMMMd"), locale);
        return wheels;
    }
    if (mode == UIDatePickerMode::dateAndTime)
        wheels.push_back({DateField::wholeDay, pattern("EEEMMMd")});
    addWheels(wheels, pattern("jmm"), locale);
    return wheels;
}

NSInteger numberOfRows(DateField field, NSDate date) {
    switch (field) {
        case DateField::wholeDay:
            return 2 * kDaysEachWay + 1;
        case DateField::year:
            return kLastYear;
        case DateField::month:
            return 12;
        case DateField::day:
            return daysInMonth(componentsOf(date));
        case DateField::half:
            return 2;
        case DateField::hour12:
            return 12;
        case DateField::hour24:
            return 24;
        case DateField::minute:
            return 60;
    }
    return 0;
}

NSInteger rowForDate(DateField field, NSDate date, NSDate origin) {
    const NSDateComponents parts = componentsOf(date);
    switch (field) {
        case DateField::wholeDay:
            return kDaysEachWay + dayNumber(date) - dayNumber(origin);
        case DateField::year:
            return parts.year - 1;
        case DateField::month:
            return parts.month - 1;
        case DateField::day:
            return parts.day - 1;
        case DateField::half:
            return parts.hour / 12;
        case DateField::hour12:
            return parts.hour % 12;
        case DateField::hour24:
            return parts.hour;
        case DateField::minute:
            return parts.minute;
    }
    return 0;
}

NSDate dateForRow(DateField field, NSDate date, NSDate origin, NSInteger row) {
    NSDateComponents parts = componentsOf(date);
    const int value = static_cast<int>(row);
    switch (field) {
        case DateField::wholeDay:
            parts.day += value - static_cast<int>(rowForDate(field, date, origin));
            break;
        case DateField::year:
            parts.year = value + 1;
            parts.day = std::min(parts.day, daysInMonth(parts));
            break;
        case DateField::month:
            parts.month = value + 1;
            parts.day = std::min(parts.day, daysInMonth(parts));
            break;
        case DateField::day:
            parts.day = value + 1;
            break;
        case DateField::half:
            parts.hour = parts.hour % 12 + 12 * value;
            break;
        case DateField::hour12:
            parts.hour = parts.hour / 12 * 12 + value;
            break;
        case DateField::hour24:
            parts.hour = value;
            break;
        case DateField::minute:
            parts.minute = value;
            break;
    }
    parts.second = 0;
    return NSCalendar::currentCalendar().dateFromComponents(parts);
}

}  // namespace gexlo
