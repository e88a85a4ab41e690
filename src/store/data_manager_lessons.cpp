// Making and removing subjects and what hangs under them.
#include <algorithm>

#include "store/data_manager.h"

namespace gexlo {

namespace {

template <typename Key>
void sortDescending(std::vector<GXLessonData*>& lessons, Key key) {
    std::stable_sort(lessons.begin(), lessons.end(), [&](const auto* left, const auto* right) {
        return (left->*key).get() > (right->*key).get();
    });
}

}  // namespace

std::vector<GXLessonData*> GXDataManager::lessonListForCurrentTimetable() {
    const GXTimetableData* timetable = currentTimetableData();
    if (!timetable || timetable->lessons.isEmpty()) return {};
    std::vector<GXLessonData*> lessons = timetable->lessons.allObjects();
    // Zero marks subjects that were never ordered; one of them, whichever comes first, tells.
    if (lessons.front()->sortIndex.get() != 0) {
        sortDescending(lessons, &GXLessonData::sortIndex);
        return lessons;
    }
    sortDescending(lessons, &GXLessonData::id);
    auto sortIndex = static_cast<NSInteger>(lessons.size());
    for (GXLessonData* lesson : lessons)
        lesson->sortIndex = sortIndex--;
    saveContext();
    return lessons;
}

GXLessonData& GXDataManager::addNewLessonInTimetable(GXTimetableData& timetable) {
    auto& lesson = addNewData<GXLessonData>();
    lesson.name = "";
    lesson.absenceCount = 0;
    lesson.colorAlpha = 1.0F;
    lesson.room1 = "";
    lesson.room2 = "";
    lesson.room3 = "";
    lesson.memo.addObject(addNewMemo());
    lesson.professor = &addNewProfessor();
    GXAppSettingData& setting = appSettingData();
    setting.lastLessonIndex = setting.lastLessonIndex.get() + 1;
    lesson.id = setting.lastLessonIndex.get();
    // After removals this can repeat a number in use; the order among equals is open.
    lesson.sortIndex = static_cast<NSInteger>(timetable.lessons.count()) + 1;
    timetable.lessons.addObject(lesson);
    saveContext();
    return lesson;
}

GXProfessorData& GXDataManager::addNewProfessor() {
    auto& professor = addNewData<GXProfessorData>();
    professor.name = "";
    professor.room = "";
    professor.phone = "";
    professor.cellphone = "";
    return professor;
}

GXMemoData& GXDataManager::addNewMemo() {
    auto& memo = addNewData<GXMemoData>();
    memo.title = "";
    memo.content = "";
    memo.genDate = NSDate::date();
    memo.editDate = NSDate::date();
    memo.index = 0;
    return memo;
}

GXDayNPeriodData& GXDataManager::addNewDayNPeriod() {
    auto& placement = addNewData<GXDayNPeriodData>();
    placement.week = 0;
    placement.day = 0;
    placement.period = 1.0F;
    placement.room = "";
    placement.alarmValue = 0;
    return placement;
}

void GXDataManager::removeLesson_inTimetable(GXLessonData& lesson, GXTimetableData& timetable) {
    // Scheduled notifications do not follow the store.
    cancelAlarms(lesson);
    std::vector<GXLessonData*> others = timetable.lessons.allObjects();
    std::erase(others, &lesson);
    removeData(lesson);
    timetable.lessons.setObjects(others);
    saveContext();
}

void GXDataManager::removeAllLessonsInTimetable(GXTimetableData& timetable) {
    for (GXLessonData* lesson : timetable.lessons.allObjects()) {
        removeLesson_inTimetable(*lesson, timetable);
    }
}

}  // namespace gexlo
