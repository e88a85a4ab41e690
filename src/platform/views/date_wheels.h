// The wheels by which a date is set: which there are, and what each row stands for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/foundation/locale.h"

namespace gexlo {

enum class UIDatePickerMode : std::uint8_t { time, date, dateAndTime };

enum class DateField : std::uint8_t { wholeDay, year, month, day, half, hour12, hour24, minute };

struct DateWheel {
    DateField field;
    std::string pattern;  // of its titles
};

/// In the order in which the locale writes them, a whole day before the time.
std::vector<DateWheel> dateWheels(UIDatePickerMode mode, const NSLocale& locale);

// Of the wheel that shows `date`. Whole days are counted around the day of `origin`.
NSInteger numberOfRows(DateField field, NSDate date);
/// Outside the rows where the wheel doesn't reach as far.
NSInteger rowForDate(DateField field, NSDate date, NSDate origin);
/// The date once that row is chosen, at second 0. A month that is shorter ends on its last day.
NSDate dateForRow(DateField field, NSDate date, NSDate origin, NSInteger row);

}  // namespace gexlo
