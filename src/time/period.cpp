#include "time/period.h"

#include "platform/foundation/bundle.h"
#include "platform/foundation/string_format.h"
#include "store/entities.h"

namespace gexlo {

namespace {

std::string twoDigits(NSInteger value) {
    return value == kNotSet ? "" : stringWithFormat("%02d", value);
}

std::string timeText(NSInteger hour, NSInteger minute) {
    return hour == kNotSet && minute == kNotSet ? "" : stringWithFormat("%02d:%02d", hour, minute);
}

std::string rangeText(const std::string& begin, const std::string& end) {
    if (begin.empty() && end.empty()) return "";
    if (begin.empty()) return stringWithFormat(" - %@", end);
    if (end.empty()) return stringWithFormat(" %@ - ", begin);
    return stringWithFormat("%@ - %@", begin, end);
}

}  // namespace

int periodTenth(float number) {
    constexpr float farBeyondAnyRow = 1000;
    if (!(number > -farBeyondAnyRow && number < farBeyondAnyRow)) return -1;
    return static_cast<int>(number * 10 - static_cast<float>(static_cast<int>(number) * 10));
}

bool isBreakNumber(float number) {
    const int tenth = periodTenth(number);
    return tenth == 1 || tenth == 6;
}

void GXPeriod::setKindAndNames(float number, const std::string& breakName,
                               const std::string& breakShortName) {
    switch (periodTenth(number)) {
        case 5:
            fullName = stringWithFormat(NSLocalizedString("PERIOD_TITLE_HALF"), number);
            shortName = stringWithFormat("%.1f", number);
            isBase = false;
            isHalf = true;
            isBreak = false;
            break;
        case 0:
            fullName = stringWithFormat(NSLocalizedString("PERIOD_TITLE"), number);
            shortName = stringWithFormat("%d", static_cast<int>(number));
            isBase = true;
            isHalf = false;
            isBreak = false;
            break;
        default:
            setBreak(number, breakName, breakShortName);
    }
}

void GXPeriod::setPeriodData(const GXClasstimeData& classtime) {
    periodNo = classtime.period.get();
    setKindAndNames(periodNo, classtime.name.get(), classtime.shortName.get());
    setTimes(classtime);
}

void GXPeriod::setTimes(const GXClasstimeData& classtime) {
    setBeginHour_beginMin_endHour_endMin(classtime.beginHour.get(), classtime.beginMin.get(),
                                         classtime.endHour.get(), classtime.endMin.get());
}

void GXPeriod::clearPeriodData(float number) {
    periodNo = number;
    setKindAndNames(number, "", "");
    setBeginHour_beginMin_endHour_endMin(kNotSet, kNotSet, kNotSet, kNotSet);
}

void GXPeriod::setBreak(float number, std::string full, std::string abbreviated) {
    periodNo = number;
    isBreak = true;
    isBase = periodTenth(number) == 1;
    isHalf = !isBase;
    fullName = std::move(full);
    shortName = std::move(abbreviated);
    setBeginHour_beginMin_endHour_endMin(kNotSet, kNotSet, kNotSet, kNotSet);
}

void GXPeriod::setBeginHour_beginMin_endHour_endMin(NSInteger bh, NSInteger bm, NSInteger eh,
                                                    NSInteger em) {
    beginHour = bh;
    beginMin = bm;
    endHour = eh;
    endMin = em;
    beginTime = timeText(bh, bm);
    endTime = timeText(eh, em);
    classhour = rangeText(beginTime, endTime);
}

std::string GXPeriod::beginHourString() const {
    return twoDigits(beginHour);
}
std::string GXPeriod::beginMinString() const {
    return twoDigits(beginMin);
}
std::string GXPeriod::endHourString() const {
    return twoDigits(endHour);
}
std::string GXPeriod::endMinString() const {
    return twoDigits(endMin);
}

}  // namespace gexlo
