// The kinds of alarm, and where each keeps the archive of its notification.
#pragma once

#include <array>

#include "store/entities.h"

namespace gexlo {

/// The stored `alarmValue`. Four is given by nothing.
enum class AlarmKind : NSInteger {
    none = 0,
    onTime = 1,
    fiveMinutes = 2,
    tenMinutes = 3,
    oneHour = 5,
    oneDay = 6,
};

/// Placements and items have different kinds, with gaps on purpose; null is such a gap.
struct AlarmKindRow {
    AlarmKind kind;
    NSTimeInterval seconds;  ///< from the time of the class or item
    const char* textKey;
    const char* placementKey;
    const char* itemKey;
};

inline constexpr std::array<AlarmKindRow, 5> kAlarmKinds{{
    {AlarmKind::onTime, 0, "ALARMVIEW_ON_TIME", "alarmExactly", "alarmExactly"},
    {AlarmKind::fiveMinutes, -300, "ALARMVIEW_5MIN_BEFORE", "alarm5min", nullptr},
    {AlarmKind::tenMinutes, -600, "ALARMVIEW_10MIN_BEFORE", "alarm10min", "alarm10min"},
    {AlarmKind::oneHour, -3600, "ALARMVIEW_1HOUR_BEFORE", "alarm1hour", "alarm1hour"},
    {AlarmKind::oneDay, -86400, "ALARMVIEW_1DAY_BEFORE", nullptr, "alarm1day"},
}};

/// The family's row of a stored kind; null for none and for a kind that the family lacks.
inline const AlarmKindRow* alarmKindRow(NSInteger kind, const char* AlarmKindRow::*family) {
    for (const AlarmKindRow& row : kAlarmKinds) {
        if (static_cast<NSInteger>(row.kind) == kind && row.*family) return &row;
    }
    return nullptr;
}

}  // namespace gexlo
