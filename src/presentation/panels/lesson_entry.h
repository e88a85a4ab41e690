// What a person has entered about a subject, and how it gets into the store.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/types.h"
#include "presentation/panels/lesson_rooms.h"

namespace gexlo {

class GXCellView;
class GXLessonData;
class GXTimetableData;

struct LessonEntry {
    std::string name;
    std::string professor;
    NSInteger colorIndex = 0;  ///< below 0 the subject's own stays, as with the other
    NSInteger fontColorIndex = 0;
    LessonRooms rooms;
    std::vector<std::shared_ptr<GXCellView>> cells;  ///< the slots, with their rooms
};

/// A new subject, saved.
GXLessonData& addLesson(const LessonEntry& entry, GXTimetableData& timetable);
/// Gives the subject new placements, and saves. A slot that stays keeps its alarm; the alarm of
/// one that goes is cleared.
void updateLesson(const LessonEntry& entry, GXLessonData& lesson);

}  // namespace gexlo
