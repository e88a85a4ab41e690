// The rows of a timetable's grid: every period, half period and break of both weeks, and
// those of them that are shown.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "time/period.h"

namespace gexlo {

class GXTimetableData;

/// The full lists of the two weeks hold the same numbers at the same places, ascending:
/// all periods and half periods from 0 to 34.5, and the breaks that were made. Week 0
/// decides which breaks there are. Rows are lent until the next change.
class GXPeriodsController {
public:
    static constexpr int kLastPeriodNumber = 34;

    GXPeriodsController() = default;
    explicit GXPeriodsController(const GXTimetableData& timetable) { setTimetableData(timetable); }
    GXPeriodsController(const GXPeriodsController&) = delete;
    GXPeriodsController& operator=(const GXPeriodsController&) = delete;

    /// Rebuilds everything from a timetable.
    void setTimetableData(const GXTimetableData& timetable);
    /// Takes the times of another timetable; names and breaks stay.
    void copyClasshoursFromTimetableData(const GXTimetableData& timetable);
    /// Sets what is shown. `realLastPeriod` stays as the timetable gave it.
    void setFirstPeriod_lastPeriod_useHalfPeriods(NSInteger first, NSInteger last, bool halves);
    /// Picks the rows that are shown. A break behind the last of them never is.
    void setPeriodList();

    NSInteger firstPeriod() const { return firstPeriod_; }
    NSInteger lastPeriod() const { return lastPeriod_; }
    bool useHalfPeriods() const { return useHalfPeriods_; }
    NSInteger timetableNo() const { return timetableNo_; }
    void setTimetableNo(NSInteger index) { timetableNo_ = index; }
    /// Breaks among the rows shown in week 0.
    NSInteger numBreaks() const { return numBreaks_; }
    /// The last number that can hold a row.
    float realLastPeriod() const { return realLastPeriod_; }
    /// Whether every gap between two shown periods holds a break, and not one more.
    bool breakIsFull() const;

    // By position among the rows shown; a position out of range is a fault of the caller.
    NSInteger numPeriods() const { return static_cast<NSInteger>(shown_[0].size()); }
    const GXPeriod* period_week(NSInteger position, NSInteger week) const;
    const std::string& fullName(NSInteger position) const;
    const std::string& shortName(NSInteger position) const;
    /// Nothing for a week other than 0 or 1.
    std::optional<std::string> beginTime_week(NSInteger position, NSInteger week) const;
    std::optional<std::string> endTime_week(NSInteger position, NSInteger week) const;
    /// -1 for a position out of range.
    float periodNo(NSInteger position) const;

    /// The row of that number in the full list; null for a number or week that is none.
    GXPeriod* periodWithPeriodNo_week(float number, NSInteger week);
    /// Position among the rows shown in week 0, or -1.
    NSInteger indexOfPeriodNo(float number) const;

    /// Does nothing for a number that is no break's, is there already, or has no row behind
    /// it, as 34.6.
    void addBreakPeriod_fullName_shortName(float number, std::string full, std::string abbreviated);
    void removeBreakPeriod(float number);
    /// Moves a break in both weeks, names and times along. Does nothing when `to` is no
    /// break's number or is taken. A break behind a half period cannot move behind a base
    /// period; the reverse can.
    void replaceBreakPeriod_to(float from, float to);
    /// Nothing for a week other than 0 or 1.
    void clearAllClasshours(NSInteger week);

    /// Rows shown, and all rows; empty for a week other than 0 or 1.
    const std::vector<GXPeriod*>& periodList(NSInteger week) const;
    const std::vector<GXPeriod>& allPeriodList(NSInteger week) const;

private:
    static bool isWeek(NSInteger week) { return week == 0 || week == 1; }
    bool isShown(const GXPeriod& period) const;
    std::optional<std::size_t> placeForBreak(float number) const;
    std::optional<std::size_t> place(float number) const;

    NSInteger firstPeriod_ = 0;
    NSInteger lastPeriod_ = 0;
    bool useHalfPeriods_ = false;
    NSInteger timetableNo_ = 0;
    NSInteger numBreaks_ = 0;
    float realLastPeriod_ = 0;
    std::vector<GXPeriod> all_[2];     // by week
    std::vector<GXPeriod*> shown_[2];  // of those
};

}  // namespace gexlo
