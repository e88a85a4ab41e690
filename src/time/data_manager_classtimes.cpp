// Questions about the time of a period, answered from the class times alone, and the due
// date of an item as text.
#include <algorithm>
#include <cmath>

#include "platform/foundation/bundle.h"
#include "platform/foundation/date_formatter.h"
#include "platform/foundation/string_format.h"
#include "store/data_manager.h"
#include "time/period.h"

namespace gexlo {

namespace {

using Field = Attribute<NSInteger> GXClasstimeData::*;

/// The first row for which `matches` holds, or null.
template <typename Matches>
const GXClasstimeData* findRow(const GXTimetableData* timetable, Matches matches) {
    if (!timetable) return nullptr;
    const auto& rows = timetable->classtimes;
    const auto found = std::find_if(rows.begin(), rows.end(), matches);
    return found == rows.end() ? nullptr : *found;
}

const GXClasstimeData* rowOfPeriod(const GXTimetableData* timetable, float period) {
    return findRow(timetable, [&](const auto* row) { return row->period.get() == period; });
}

bool isSet(const GXClasstimeData& row, Field hour, Field minute) {
    return (row.*hour).get() != kNotSet && (row.*minute).get() != kNotSet;
}

bool isEmpty(const GXClasstimeData& row, Field hour, Field minute) {
    return (row.*hour).get() == kNotSet && (row.*minute).get() == kNotSet;
}

std::string timeOf(const GXClasstimeData* row, Field hour, Field minute) {
    if (!row || !isSet(*row, hour, minute)) return "";
    return stringWithFormat("%02d:%02d", (row->*hour).get(), (row->*minute).get());
}

/// The field of the row that begins with hour and minute both set, else 0: callers take it
/// for midnight.
NSInteger beginningField(const GXTimetableData& timetable, float period, NSInteger week,
                         Field field) {
    const GXClasstimeData* row = findRow(&timetable, [&](const auto* candidate) {
        return candidate->period.get() == period && candidate->week.get() == week;
    });
    if (!row || !isSet(*row, &GXClasstimeData::beginHour, &GXClasstimeData::beginMin)) return 0;
    return (row->*field).get();
}

std::string formatted(NSDate date, std::string_view fields) {
    NSDateFormatter formatter;
    formatter.setDateFormat(
        NSDateFormatter::dateFormatFromTemplate(fields, NSLocale::currentLocale()));
    return formatter.stringFromDate(date);
}

/// By `repeat` less 100.
constexpr const char* kDayKeys[] = {"SUNDAY",   "MONDAY", "TUESDAY", "WEDNESDAY",
                                    "THURSDAY", "FRIDAY", "SATURDAY"};
constexpr NSInteger kEverySunday = 100;
constexpr NSInteger kEverySaturday = 106;

}  // namespace

std::string GXDataManager::classtime(float period) {
    using T = GXClasstimeData;
    const bool isWhole = period == std::trunc(period);
    const std::string title =
        stringWithFormat(NSLocalizedString(isWhole ? "PERIOD_TITLE" : "PERIOD_TITLE_HALF"), period);
    const T* row = rowOfPeriod(currentTimetableData(), period);
    const bool noBegin = !row || isEmpty(*row, &T::beginHour, &T::beginMin);
    const bool noEnd = !row || isEmpty(*row, &T::endHour, &T::endMin);
    if (noBegin && noEnd) return stringWithFormat("%@\n ", title);
    if (noBegin) {
        return stringWithFormat("%@\n - %02d:%02d", title, row->endHour.get(), row->endMin.get());
    }
    if (noEnd) {
        return stringWithFormat("%@\n %02d:%02d - ", title, row->beginHour.get(),
                                row->beginMin.get());
    }
    return stringWithFormat("%@\n%02d:%02d - %02d:%02d", title, row->beginHour.get(),
                            row->beginMin.get(), row->endHour.get(), row->endMin.get());
}

std::string GXDataManager::classBeginningTime(float period) {
    return timeOf(rowOfPeriod(currentTimetableData(), period), &GXClasstimeData::beginHour,
                  &GXClasstimeData::beginMin);
}

std::string GXDataManager::classEndTime(float period) {
    return timeOf(rowOfPeriod(currentTimetableData(), period), &GXClasstimeData::endHour,
                  &GXClasstimeData::endMin);
}

NSInteger GXDataManager::classBeginningHourWithPeriod_week_inTimetalbe(
    float period, NSInteger week, const GXTimetableData& timetable) const {
    return beginningField(timetable, period, week, &GXClasstimeData::beginHour);
}

NSInteger GXDataManager::classBeginningMinWithPeriod_week_inTimetable(
    float period, NSInteger week, const GXTimetableData& timetable) const {
    return beginningField(timetable, period, week, &GXClasstimeData::beginMin);
}

NSInteger GXDataManager::classBeginningHourWithPeriod_week(float period, NSInteger week) {
    const GXTimetableData* timetable = currentTimetableData();
    return timetable ? classBeginningHourWithPeriod_week_inTimetalbe(period, week, *timetable) : 0;
}

NSInteger GXDataManager::classBeginningMinWithPeriod_week(float period, NSInteger week) {
    const GXTimetableData* timetable = currentTimetableData();
    return timetable ? classBeginningMinWithPeriod_week_inTimetable(period, week, *timetable) : 0;
}

std::string GXDataManager::stringForScheduleDate(const NSManagedObject& item) const {
    const Object due = item.valueForKey("date");
    const NSDate* date = due.as<NSDate>();
    if (!date) return "";
    const NSInteger repeat = item.valueForKey("repeat").integerValue();
    if (repeat < kEverySunday || repeat > kEverySaturday) return formatted(*date, "cccMMMdHHmm");
    const std::string day = NSLocalizedString(kDayKeys[repeat - kEverySunday]);
    return stringWithFormat("%@  %@",
                            stringWithFormat(NSLocalizedString("ALARMVIEW_EVERY_WEEK"), day),
                            formatted(*date, "HHmm"));
}

}  // namespace gexlo
