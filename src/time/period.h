// One row of the grid: a base period, a half period, or a break after either.
#pragma once

#include <string>

#include "platform/foundation/types.h"

namespace gexlo {

class GXClasstimeData;

/// An hour or a minute that is not set.
inline constexpr NSInteger kNotSet = 99;

/// What the tenths of a period number say: 0 a base period, 5 a half period, 1 and 6 the
/// breaks behind them. -1 for a number that no row can have.
int periodTenth(float number);
/// Whether the number is that of a break.
bool isBreakNumber(float number);

class GXPeriod {
public:
    bool isBase = false;
    bool isHalf = false;
    bool isBreak = false;
    NSInteger beginHour = 0;
    NSInteger beginMin = 0;
    NSInteger endHour = 0;
    NSInteger endMin = 0;
    float periodNo = 0;
    std::string fullName;
    std::string shortName;
    std::string classhour;  ///< the range of time as it is shown
    std::string beginTime;  ///< "09:05", or "" when not set
    std::string endTime;

    /// Fills the row from its class time. A break is named by it, other rows by their number.
    void setPeriodData(const GXClasstimeData& classtime);
    void setTimes(const GXClasstimeData& classtime);
    /// Fills the row for a number that has no class time: a break without names, no times.
    void clearPeriodData(float number);
    /// Sets the four numbers and the texts that follow from them. A time of which one field
    /// alone is set prints the other as 99.
    void setBeginHour_beginMin_endHour_endMin(NSInteger bh, NSInteger bm, NSInteger eh,
                                              NSInteger em);
    /// What a row made by adding a break is: kind and names by the number, no times.
    void setBreak(float number, std::string full, std::string abbreviated);

    std::string beginHourString() const;
    std::string beginMinString() const;
    std::string endHourString() const;
    std::string endMinString() const;

private:
    void setKindAndNames(float number, const std::string& breakName,
                         const std::string& breakShortName);
};

}  // namespace gexlo
