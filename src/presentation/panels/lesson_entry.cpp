#include "presentation/panels/lesson_entry.h"

#include <algorithm>

#include "presentation/grid/cell_view.h"
#include "presentation/style/color_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

void writeFields(const LessonEntry& entry, GXLessonData& lesson) {
    const GXColorManager& colors = GXColorManager::colorManager();
    lesson.name = entry.name;
    if (!lesson.professor) lesson.professor = &GXDataManager::manager().addNewProfessor();
    lesson.professor->name = entry.professor;
    if (entry.colorIndex >= 0) lesson.color = colors.colorNameAt(entry.colorIndex);
    if (entry.fontColorIndex >= 0) lesson.fontColor = colors.fontColorNameAt(entry.fontColorIndex);
    lesson.room1 = entry.rooms.room(0);
    lesson.room2 = entry.rooms.room(1);
    lesson.room3 = entry.rooms.room(2);
}

std::vector<GXDayNPeriodData*> newPlacements(const LessonEntry& entry) {
    std::vector<GXDayNPeriodData*> placements;
    for (const GXCellView* cell : onePerSlot(entry.cells)) {
        GXDayNPeriodData& placement = GXDataManager::manager().addNewDayNPeriod();
        placement.week = cell->slot().week;
        placement.day = cell->slot().day;
        placement.period = cell->slot().periodNo;
        placement.room = cell->room();
        placements.push_back(&placement);
    }
    return placements;
}

/// A slot that stays keeps its alarm: the new placement takes it, and the old one no longer
/// counts as having one.
void takeAlarm(GXDayNPeriodData& placement, const std::vector<GXDayNPeriodData*>& former) {
    const auto old = std::find_if(former.begin(), former.end(), [&](const auto* candidate) {
        return candidate->week.get() == placement.week.get() &&
               weekdayOf(candidate->day.get()) == placement.day.get() &&
               candidate->period.get() == placement.period.get();
    });
    if (old == former.end()) return;
    using T = GXDayNPeriodData;
    for (auto member : {&T::alarmExactly, &T::alarm5min, &T::alarm10min, &T::alarm1hour})
        (placement.*member).copyFrom((**old).*member);
    placement.time.copyFrom((*old)->time);
    placement.alarmValue.copyFrom((*old)->alarmValue);
    (*old)->alarmValue = 0;
}

}  // namespace

GXLessonData& addLesson(const LessonEntry& entry, GXTimetableData& timetable) {
    GXDataManager& data = GXDataManager::manager();
    GXLessonData& lesson = data.addNewLessonInTimetable(timetable);
    writeFields(entry, lesson);
    lesson.times.setObjects(newPlacements(entry));
    data.saveContext();
    return lesson;
}

void updateLesson(const LessonEntry& entry, GXLessonData& lesson) {
    GXDataManager& data = GXDataManager::manager();
    writeFields(entry, lesson);
    const std::vector<GXDayNPeriodData*> former = lesson.times.allObjects();
    const std::vector<GXDayNPeriodData*> placements = newPlacements(entry);
    for (GXDayNPeriodData* placement : placements) {
        takeAlarm(*placement, former);
        // Each removal saves: no placement may stand in the store without its subject.
        lesson.times.addObject(*placement);
    }
    for (GXDayNPeriodData* old : former) {
        if (old->alarmValue.get() != 0) data.clearAlarmInClass(*old);
        data.removeData(*old);
    }
    lesson.times.setObjects(placements);
    data.saveContext();
}

}  // namespace gexlo
