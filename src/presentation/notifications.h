// The notifications by which the pieces of the main screen talk about lessons and panels, and
// the keys of what they carry. Observers run within the post.
#pragma once

#include <memory>

#include "platform/foundation/notification_center.h"

namespace gexlo {

class GXCellView;
class GXDayNPeriodData;
class GXLessonData;
struct Placements;

inline constexpr const char* GX_NOTI_SET_LESSONS = "GX_NOTI_SET_LESSONS";
inline constexpr const char* GX_NOTI_BEGIN_ADD_LESSON = "GX_NOTI_BEGIN_ADD_LESSON";
inline constexpr const char* GX_NOTI_BEGIN_EDIT_LESSON = "GX_NOTI_BEGIN_EDIT_LESSON";
inline constexpr const char* GX_NOTI_CANCEL_ADD_LESSON = "GX_NOTI_CANCEL_ADD_LESSON";
inline constexpr const char* GX_NOTI_CANCEL_EDIT_LESSON = "GX_NOTI_CANCEL_EDIT_LESSON";
inline constexpr const char* GX_NOTI_FINISH_ADD_NEW_LESSON = "GX_NOTI_FINISH_ADD_NEW_LESSON";
inline constexpr const char* GX_NOTI_FINISH_EDIT_LESSON = "GX_NOTI_FINISH_EDIT_LESSON";
inline constexpr const char* GX_NOTI_REMOVE_LESSON = "GX_NOTI_REMOVE_LESSON";
/// Posted by nobody; the cells listen to it all the same.
inline constexpr const char* GX_NOTI_REMOVE_ALL_LESSONS = "GX_NOTI_REMOVE_ALL_LESSONS";
inline constexpr const char* GX_NOTI_LESSON_INFO_OPEN = "GX_NOTI_LESSON_INFO_OPEN";
inline constexpr const char* GX_NOTI_LESSON_INFO_CLOSE = "GX_NOTI_LESSON_INFO_CLOSE";
inline constexpr const char* GX_NOTI_CLOSE_ALL_SUBVIEWS = "GX_NOTI_CLOSE_ALL_SUBVIEWS";
inline constexpr const char* GX_NOTI_UPDATE_SCHEDULE_ICON = "GX_NOTI_UPDATE_SCHEDULE_ICON";

namespace user_info {

inline constexpr UserInfoKey<GXLessonData*> kLessonData{"lessonData"};
/// Every observer reads the same.
inline constexpr UserInfoKey<std::shared_ptr<const Placements>> kClasstimes{"classtimes"};
inline constexpr UserInfoKey<GXDayNPeriodData*> kClasstime{"classtime"};
inline constexpr UserInfoKey<int> kPositionX{"positionX"};  ///< points
inline constexpr UserInfoKey<int> kPositionY{"positionY"};  ///< points
inline constexpr UserInfoKey<int> kWeekNo{"weekNo"};
inline constexpr UserInfoKey<std::shared_ptr<GXCellView>> kLessonCell{"lessonCell"};
inline constexpr UserInfoKey<bool> kBottomViewClosed{"bottomViewClosed"};

}  // namespace user_info

}  // namespace gexlo
