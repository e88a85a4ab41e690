#include "largest_grid.h"

#include "store/data_manager.h"
#include "time/periods_controller.h"

namespace gexlo::bench {

namespace {

constexpr int kSubjects = 60;
constexpr int kPlacementsAWeek = 300;
constexpr int kDays = 7;
constexpr float kSteps[] = {0.0F, 0.1F, 0.5F, 0.6F};

void addBreaks(GXDataManager& manager, GXTimetableData& timetable) {
    for (int n = 0; n <= GXPeriodsController::kLastPeriodNumber; ++n) {
        for (const float step : {0.1F, 0.6F}) {
            auto& row = manager.addNewData<GXClasstimeData>();
            row.week = 0;
            row.period = static_cast<float>(n) + step;
            row.name = "Break";
            row.shortName = "B";
            timetable.classtimes.addObject(row);
        }
    }
}

/// Every slot is taken by several subjects, in both weeks.
void addSubjects(GXDataManager& manager, GXTimetableData& timetable) {
    for (int n = 0; n < kSubjects; ++n) {
        GXLessonData& lesson = manager.addNewLessonInTimetable(timetable);
        lesson.name = stringWithFormat("Subject %d", n);
        lesson.color = "#4F96D0";
        lesson.fontColor = "#FFFFFF";
        for (int i = 0; i < 2 * kPlacementsAWeek; ++i) {
            GXDayNPeriodData& placement = manager.addNewDayNPeriod();
            const int slot = i / 2 * 3 + n;
            placement.week = i % 2;
            placement.day = slot % kDays;
            placement.period = static_cast<float>(slot / kDays % 35) + kSteps[slot % 4];
            placement.room = i % 4 == 0 ? "Room 12" : "Room 13";
            lesson.times.addObject(placement);
        }
    }
}

}  // namespace

void writeLargestGrid() {
    GXDataManager& manager = GXDataManager::manager();
    GXTimetableData& timetable = manager.addNewTimetable();
    timetable.firstDay = 0;
    timetable.lastDay = 6;
    timetable.firstPeriod = 0;
    timetable.lastPeriod = GXPeriodsController::kLastPeriodNumber;
    timetable.useHalfPeriods = true;
    timetable.numWeeks = 2;
    manager.setCurrentTimetableNo(timetable.index.get());
    addBreaks(manager, timetable);
    addSubjects(manager, timetable);
    manager.saveContext();
}

LargestGrid::LargestGrid() : device(deviceOn(root.path())) {
    writeLargestGrid();
}

}  // namespace gexlo::bench
