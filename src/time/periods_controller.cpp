#include "time/periods_controller.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "store/entities.h"

namespace gexlo {

namespace {

/// The row kinds of one period in their order.
constexpr std::array kSteps{0.0F, 0.1F, 0.5F, 0.6F};

/// The class times of one week by period number; of two with one number the last counts.
using ClasstimesByNumber = std::map<float, const GXClasstimeData*>;

ClasstimesByNumber classtimesOfWeek(const GXTimetableData& timetable, NSInteger week) {
    ClasstimesByNumber byNumber;
    for (const GXClasstimeData* classtime : timetable.classtimes) {
        const float number = classtime->period.get();
        // A number that equals no other, itself included, would break the order of the map.
        if (classtime->week.get() == week && number == number) byNumber[number] = classtime;
    }
    return byNumber;
}

/// A row takes its names from its number, but for a break, and its times from its class time.
GXPeriod rowFor(const GXPeriod& untimed, const ClasstimesByNumber& classtimes) {
    const auto found = classtimes.find(untimed.periodNo);
    if (found == classtimes.end()) return untimed;
    GXPeriod period = untimed;
    if (period.isBreak) {
        period.setPeriodData(*found->second);
    } else {
        period.setTimes(*found->second);
    }
    return period;
}

}  // namespace

void GXPeriodsController::setTimetableData(const GXTimetableData& timetable) {
    timetableNo_ = timetable.index.get();
    firstPeriod_ = timetable.firstPeriod.get();
    lastPeriod_ = timetable.lastPeriod.get();
    useHalfPeriods_ = timetable.useHalfPeriods.get();
    realLastPeriod_ = static_cast<float>(lastPeriod_) + (useHalfPeriods_ ? 0.6F : 0.1F);

    const ClasstimesByNumber classtimes[2] = {classtimesOfWeek(timetable, 0),
                                              classtimesOfWeek(timetable, 1)};
    for (auto& rows : all_)
        rows.clear();
    for (int n = 0; n <= kLastPeriodNumber; ++n) {
        for (const float step : kSteps) {
            const float number = static_cast<float>(n) + step;
            if (isBreakNumber(number) && !classtimes[0].contains(number)) continue;
            GXPeriod untimed;
            untimed.clearPeriodData(number);
            for (std::size_t week = 0; week < 2; ++week) {
                all_[week].push_back(rowFor(untimed, classtimes[week]));
            }
        }
    }
    setPeriodList();
}

void GXPeriodsController::copyClasshoursFromTimetableData(const GXTimetableData& timetable) {
    for (NSInteger week = 0; week < 2; ++week) {
        clearAllClasshours(week);
        const ClasstimesByNumber classtimes = classtimesOfWeek(timetable, week);
        for (GXPeriod& row : all_[week]) {
            const auto found = classtimes.find(row.periodNo);
            if (found != classtimes.end()) row.setTimes(*found->second);
        }
    }
}

void GXPeriodsController::setFirstPeriod_lastPeriod_useHalfPeriods(NSInteger first, NSInteger last,
                                                                   bool halves) {
    firstPeriod_ = first;
    lastPeriod_ = last;
    useHalfPeriods_ = halves;
    setPeriodList();
}

bool GXPeriodsController::isShown(const GXPeriod& period) const {
    const float number = period.periodNo;
    if (number < static_cast<float>(firstPeriod_)) return false;
    const auto last = static_cast<float>(lastPeriod_);
    return useHalfPeriods_ ? number <= last + 0.5F : number <= last && period.isBase;
}

void GXPeriodsController::setPeriodList() {
    for (std::size_t week = 0; week < 2; ++week) {
        shown_[week].clear();
        for (GXPeriod& period : all_[week]) {
            if (isShown(period)) shown_[week].push_back(&period);
        }
    }
    numBreaks_ = std::count_if(shown_[0].begin(), shown_[0].end(),
                               [](const GXPeriod* period) { return period->isBreak; });
}

bool GXPeriodsController::breakIsFull() const {
    const NSInteger periods = (lastPeriod_ + 1 - firstPeriod_) * (useHalfPeriods_ ? 2 : 1);
    return periods == numBreaks_ + 1;
}

const GXPeriod* GXPeriodsController::period_week(NSInteger position, NSInteger week) const {
    return isWeek(week) ? shown_[week][static_cast<std::size_t>(position)] : nullptr;
}

const std::string& GXPeriodsController::fullName(NSInteger position) const {
    return period_week(position, 0)->fullName;
}

const std::string& GXPeriodsController::shortName(NSInteger position) const {
    return period_week(position, 0)->shortName;
}

std::optional<std::string> GXPeriodsController::beginTime_week(NSInteger position,
                                                               NSInteger week) const {
    const GXPeriod* period = period_week(position, week);
    return period ? std::optional(period->beginTime) : std::nullopt;
}

std::optional<std::string> GXPeriodsController::endTime_week(NSInteger position,
                                                             NSInteger week) const {
    const GXPeriod* period = period_week(position, week);
    return period ? std::optional(period->endTime) : std::nullopt;
}

float GXPeriodsController::periodNo(NSInteger position) const {
    return position < 0 || position >= numPeriods() ? -1 : period_week(position, 0)->periodNo;
}

GXPeriod* GXPeriodsController::periodWithPeriodNo_week(float number, NSInteger week) {
    if (!isWeek(week)) return nullptr;
    const auto at = place(number);
    return at ? &all_[week][*at] : nullptr;
}

NSInteger GXPeriodsController::indexOfPeriodNo(float number) const {
    const auto found =
        std::find_if(shown_[0].begin(), shown_[0].end(),
                     [&](const GXPeriod* period) { return period->periodNo == number; });
    return found == shown_[0].end() ? -1 : found - shown_[0].begin();
}

std::optional<std::size_t> GXPeriodsController::place(float number) const {
    const auto found = std::find_if(all_[0].begin(), all_[0].end(), [&](const GXPeriod& period) {
        return period.periodNo == number;
    });
    if (found == all_[0].end()) return std::nullopt;
    return static_cast<std::size_t>(found - all_[0].begin());
}

/// Where a break of that number goes in; nothing when it is there or no row is behind it.
std::optional<std::size_t> GXPeriodsController::placeForBreak(float number) const {
    const auto notBefore =
        std::find_if(all_[0].begin(), all_[0].end(),
                     [&](const GXPeriod& period) { return period.periodNo >= number; });
    if (notBefore == all_[0].end() || notBefore->periodNo == number) return std::nullopt;
    return static_cast<std::size_t>(notBefore - all_[0].begin());
}

void GXPeriodsController::addBreakPeriod_fullName_shortName(float number, std::string full,
                                                            std::string abbreviated) {
    if (!isBreakNumber(number)) return;
    const auto at = placeForBreak(number);
    if (!at) return;
    GXPeriod added;
    added.setBreak(number, std::move(full), std::move(abbreviated));
    for (auto& rows : all_)
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(*at), added);
    setPeriodList();
}

void GXPeriodsController::removeBreakPeriod(float number) {
    if (!isBreakNumber(number)) return;
    const auto at = place(number);
    if (!at) return;
    for (auto& rows : all_)
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(*at));
    setPeriodList();
}

void GXPeriodsController::replaceBreakPeriod_to(float from, float to) {
    // Base and half periods stay where they are, so `from` has to be a break's as well.
    if (!isBreakNumber(from) || !isBreakNumber(to) || from == to) return;
    // One way only, and meant so.
    if (periodTenth(from) == 6 && periodTenth(to) == 1) return;
    const auto old = place(from);
    const auto at = placeForBreak(to);
    if (!old || !at) return;
    for (auto& rows : all_) {
        GXPeriod moved = rows[*old];
        GXPeriod added;
        added.setBreak(to, moved.fullName, moved.shortName);
        added.setBeginHour_beginMin_endHour_endMin(moved.beginHour, moved.beginMin, moved.endHour,
                                                   moved.endMin);
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(*at), std::move(added));
        std::erase_if(rows, [&](const GXPeriod& period) { return period.periodNo == from; });
    }
    setPeriodList();
}

void GXPeriodsController::clearAllClasshours(NSInteger week) {
    if (!isWeek(week)) return;
    for (GXPeriod& row : all_[week]) {
        row.setBeginHour_beginMin_endHour_endMin(kNotSet, kNotSet, kNotSet, kNotSet);
    }
}

const std::vector<GXPeriod*>& GXPeriodsController::periodList(NSInteger week) const {
    static const std::vector<GXPeriod*> none;
    return isWeek(week) ? shown_[week] : none;
}

const std::vector<GXPeriod>& GXPeriodsController::allPeriodList(NSInteger week) const {
    static const std::vector<GXPeriod> none;
    return isWeek(week) ? all_[week] : none;
}

}  // namespace gexlo
