// The keys of the program's own user defaults. All are integers but the first two, which
// are texts; a key nobody set reads 0 or nothing.
#pragma once

#include <string>

#include "platform/foundation/string_format.h"

namespace gexlo::user_default {

inline constexpr const char* kAppVersion = "app_version";  ///< bundle version last seen
inline constexpr const char* kPreAppVersion =
    "pre_app_version";                                     ///< the one before; nothing reads it
inline constexpr const char* kNowUpdated = "now_updated";  ///< 1 until all alarms are rebuilt
inline constexpr const char* kFirstStarting = "first_starting";  ///< 1 after the first start
/// Page of the grid, 0 or 1, on which the starting timetable was left.
inline constexpr const char* kLastTimetableIndex = "last_timetable_index";
/// Counts all changes that matter to the watch, from 1.
inline constexpr const char* kDataUpdateNo = "data_update_no";
/// The panel last closed: 1 memo, 2 homework, 3 exam; any other value opens the memo.
inline constexpr const char* kLastUsedScheduleView = "lastUsedScheduleView";
// How the schedule list is sorted, kept in the group's suite as well for the watch.
inline constexpr const char* kScheduleListSortType = "scheduleListSortType";            ///< 0, 1, 2
inline constexpr const char* kScheduleListSortAscending = "scheduleListSortAscending";  ///< 3, 4
inline constexpr const char* kScheduleListSortLinked =
    "scheduleListSortLinked";  ///< 1 un-, 2 linked
inline constexpr const char* kWrittenReview =
    "writtenReview";  ///< 2 once the review link was followed

/// Counts the changes of one timetable.
inline std::string timetableUpdateNo(NSInteger index) {
    return stringWithFormat("T%ld", index);
}

}  // namespace gexlo::user_default
