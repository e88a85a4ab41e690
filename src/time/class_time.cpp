#include "time/class_time.h"

#include <cmath>

#include "platform/foundation/bundle.h"
#include "platform/foundation/object.h"
#include "platform/foundation/string_format.h"
#include "time/period.h"

namespace gexlo {

namespace {

std::string twoDigits(NSInteger value) {
    return stringWithFormat("%02d", value);
}

NSInteger numberOr(const std::string& text, NSInteger whenEmpty) {
    return text.empty() ? whenEmpty : integerValueOf(text);
}

}  // namespace

void GXClassTime::setBeginTimeWithClass_hour_min(float number, NSInteger hour, NSInteger minute) {
    setBeginTimeStringWithClass_hour_min(number, hour != kNotSet ? twoDigits(hour) : "",
                                         minute != kNotSet ? twoDigits(minute) : "");
}

void GXClassTime::setEndTimeWithClass_hour_min(float number, NSInteger hour, NSInteger minute) {
    setEndTimeStringWithClass_hour_min(number, hour != kNotSet ? twoDigits(hour) : "",
                                       hour != kNotSet ? twoDigits(minute) : "");
}

void GXClassTime::setBeginTimeStringWithClass_hour_min(float number, std::string hour,
                                                       std::string minute) {
    entry(number).beginHour = std::move(hour);
    entry(number).beginMin = std::move(minute);
}

void GXClassTime::setEndTimeStringWithClass_hour_min(float number, std::string hour,
                                                     std::string minute) {
    entry(number).endHour = std::move(hour);
    entry(number).endMin = std::move(minute);
}

const std::string& GXClassTime::stringBeginHourWithClass(float number) const {
    return entry(number).beginHour;
}
const std::string& GXClassTime::stringBeginMinWithClass(float number) const {
    return entry(number).beginMin;
}
const std::string& GXClassTime::stringEndHourWithClass(float number) const {
    return entry(number).endHour;
}
const std::string& GXClassTime::stringEndMinWithClass(float number) const {
    return entry(number).endMin;
}

std::string GXClassTime::stringBeginTimeWithClass(float number) const {
    const auto& [hour, minute, endHour, endMin] = entry(number);
    return hour.empty() && minute.empty() ? "" : stringWithFormat("%@:%@", hour, minute);
}

NSInteger GXClassTime::numberBeginHourWithClass(float number) const {
    return numberOr(entry(number).beginHour, kNotSet);
}
NSInteger GXClassTime::numberBeginMinWithClass(float number) const {
    return numberOr(entry(number).beginMin, kNotSet);
}
NSInteger GXClassTime::numberEndHourWithClass(float number) const {
    return numberOr(entry(number).endHour, kNotSet);
}
NSInteger GXClassTime::numberEndMinWithClass(float number) const {
    return numberOr(entry(number).endMin, kNotSet);
}

NSInteger GXClassTime::beginHourWithClass(float number) const {
    return numberOr(entry(number).beginHour, 0);
}
NSInteger GXClassTime::beginMinWithClass(float number) const {
    return numberOr(entry(number).beginMin, 0);
}
NSInteger GXClassTime::endHourWithClass(float number) const {
    return numberOr(entry(number).endHour, 0);
}
NSInteger GXClassTime::endMinWithClass(float number) const {
    return numberOr(entry(number).endMin, 0);
}

std::string GXClassTime::stringClassTime(float number) const {
    const auto& [beginHour, beginMin, endHour, endMin] = entry(number);
    const bool noBegin = beginHour.empty() && beginMin.empty();
    const bool noEnd = endHour.empty() && endMin.empty();
    const std::string title = stringWithFormat(
        number > std::trunc(number) ? "%@%.1f%@" : "%@%.0f%@", NSLocalizedString("PERIOD_FRONT"),
        number, NSLocalizedString("PERIOD_BACK"));
    if (noBegin && noEnd) return stringWithFormat("%@\n ", title);
    if (noBegin) return stringWithFormat("%@\n - %@:%@", title, endHour, endMin);
    if (noEnd) return stringWithFormat("%@\n %@:%@ - ", title, beginHour, beginMin);
    return stringWithFormat("%@\n%@:%@ - %@:%@", title, beginHour, beginMin, endHour, endMin);
}

}  // namespace gexlo
