// The notifications by which the pieces of the main screen talk about lessons and panels, and
// the keys of what they carry. Observers run within the post.
#pragma once

namespace gexlo {

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

inline constexpr const char* kLessonData = "lessonData";  ///< GXLessonData*
inline constexpr const char* kClasstimes = "classtimes";  ///< SharedPlacements
inline constexpr const char* kClasstime = "classtime";    ///< GXDayNPeriodData*
inline constexpr const char* kPositionX = "positionX";    ///< int, points
inline constexpr const char* kPositionY = "positionY";    ///< int, points
inline constexpr const char* kWeekNo = "weekNo";          ///< int
inline constexpr const char* kLessonCell = "lessonCell";  ///< std::shared_ptr<GXCellView>
inline constexpr const char* kBottomViewClosed = "bottomViewClosed";  ///< bool

}  // namespace user_info

}  // namespace gexlo
