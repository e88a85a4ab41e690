// Making, removing and renumbering homework and exams; one code path serves both.
#include "store/data_manager.h"

namespace gexlo {

namespace {

void setDefaults(ScheduleItem& item) {
    item.title = "";
    item.content = "";
    item.genDate = NSDate::date();
    item.editDate = NSDate::date();
    item.repeat = 0;
    item.alarmValue = 0;
    item.complete = false;
}

template <typename Item>
constexpr NSInteger scheduleType = 0;
template <>
constexpr NSInteger scheduleType<GXExamData> = 1;

// The set of an owner that holds items of the kind.
const ToMany<GXHomeworkData>& itemsOf(const GXHomeworkData&, const auto& owner) {
    return owner.homework;
}
const ToMany<GXExamData>& itemsOf(const GXExamData&, const auto& owner) {
    return owner.exam;
}

}  // namespace

GXHomeworkData& GXDataManager::addNewHomework() {
    auto& homework = addNewData<GXHomeworkData>();
    setDefaults(homework);
    return homework;
}

GXExamData& GXDataManager::addNewExam() {
    auto& exam = addNewData<GXExamData>();
    setDefaults(exam);
    return exam;
}

template <typename Item>
void GXDataManager::renumber(const ToMany<Item>& items) {
    NSInteger index = 0;
    for (Item* item : items.allObjects()) {
        item->index = index++;
        saveContext();
        // The notification carries the index.
        const NSInteger kind = item->alarmValue.get();
        if (kind != 0) setAlarm_inSchedule_scheduleType(kind, *item, scheduleType<Item>);
    }
}

template <typename Item>
void GXDataManager::removeItem(Item& item) {
    const GXLessonData* lesson = item.lesson.get();
    const GXTimetableData* timetable = item.timetable.get();
    clearAlarmInSchedule(item);
    removeData(item);
    if (lesson) {
        renumber(itemsOf(item, *lesson));
    } else if (timetable) {
        renumber(itemsOf(item, *timetable));
    }
}

void GXDataManager::removeHomework(GXHomeworkData& homework) {
    removeItem(homework);
}

void GXDataManager::removeExam(GXExamData& exam) {
    removeItem(exam);
}

void GXDataManager::removeHomework_fromLesson(GXHomeworkData& homework, GXLessonData& lesson) {
    lesson.homework.removeObject(homework);
    renumber(lesson.homework);
}

void GXDataManager::removeExam_fromLesson(GXExamData& exam, GXLessonData& lesson) {
    lesson.exam.removeObject(exam);
    renumber(lesson.exam);
}

void GXDataManager::removeHomework_fromTimetable(GXHomeworkData& homework,
                                                 GXTimetableData& timetable) {
    timetable.homework.removeObject(homework);
    renumber(timetable.homework);
}

void GXDataManager::removeExam_fromTimetable(GXExamData& exam, GXTimetableData& timetable) {
    timetable.exam.removeObject(exam);
    renumber(timetable.exam);
}

void GXDataManager::renumberItemsOf(const GXLessonData& lesson) {
    renumber(lesson.homework);
    renumber(lesson.exam);
}

void GXDataManager::renumberItemsOf(const GXTimetableData& timetable) {
    renumber(timetable.homework);
    renumber(timetable.exam);
}

}  // namespace gexlo
