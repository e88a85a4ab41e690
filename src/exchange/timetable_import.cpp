#include "exchange/timetable_import.h"

#include "exchange/exchange_reader.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

void setSettings(GXTimetableData& timetable, const ExchangeTimetable& file) {
    timetable.name = file.name;
    timetable.numWeeks = file.numWeeks;
    timetable.firstDay = file.firstDay;
    timetable.lastDay = file.lastDay;
    timetable.firstPeriod = file.firstPeriod;
    timetable.lastPeriod = file.lastPeriod;
    timetable.daysOnLeft = file.daysOnLeft;
    timetable.useHalfPeriods = file.useHalfPeriods;
    timetable.daysToNumbers = file.daysToNumbers;
    timetable.showClasstimes = file.showClasstimes;
    timetable.useSameClasshours = file.useSameClasshours;
    timetable.textSize = file.textSize;
}

void addClasshour(GXTimetableData& timetable, const ExchangeClasshour& classhour) {
    auto& row = GXDataManager::manager().addNewData<GXClasstimeData>();
    row.name = classhour.name;
    row.shortName = classhour.shortName;
    row.week = classhour.week;
    row.period = static_cast<float>(classhour.period);
    row.beginHour = classhour.beginHour;
    row.beginMin = classhour.beginMin;
    row.endHour = classhour.endHour;
    row.endMin = classhour.endMin;
    timetable.classtimes.addObject(row);
}

/// `addNew` makes one more item.
template <typename Item>
void addItems(ToMany<Item>& items, const std::vector<ExchangeItem>& file,
              Item& (GXDataManager::*addNew)()) {
    for (const ExchangeItem& source : file) {
        Item& item = (GXDataManager::manager().*addNew)();
        item.title = source.title;
        item.content = source.content;
        item.date = source.date;
        item.repeat = source.repeat;
        item.complete = source.complete;
        items.addObject(item);
    }
}

template <typename Owner, typename File>
void addSchedule(Owner& owner, const File& file) {
    addItems(owner.homework, file.homework, &GXDataManager::addNewHomework);
    addItems(owner.exam, file.exams, &GXDataManager::addNewExam);
}

void addPlacements(GXLessonData& lesson, const std::vector<ExchangePlacement>& placements) {
    for (const ExchangePlacement& source : placements) {
        GXDayNPeriodData& placement = GXDataManager::manager().addNewDayNPeriod();
        placement.week = source.week;
        placement.day = source.day;
        placement.period = static_cast<float>(source.period);
        placement.room = source.room;
        lesson.times.addObject(placement);
    }
}

/// The memo that every new subject has gives way to those of the file, if any.
void replaceMemos(GXLessonData& lesson, const std::vector<ExchangeMemo>& memos) {
    GXDataManager& manager = GXDataManager::manager();
    for (GXMemoData* memo : lesson.memo.allObjects())
        manager.removeData(*memo);
    for (const ExchangeMemo& source : memos) {
        GXMemoData& memo = manager.addNewMemo();
        memo.title = source.title;
        memo.content = source.content;
        lesson.memo.addObject(memo);
    }
}

void addLesson(GXTimetableData& timetable, const ExchangeLesson& file) {
    GXLessonData& lesson = GXDataManager::manager().addNewLessonInTimetable(timetable);
    lesson.name = file.name;
    lesson.room1 = file.room1;
    lesson.room2 = file.room2;
    lesson.room3 = file.room3;
    lesson.color = file.color;
    lesson.rgbRed = file.rgbRed;
    lesson.rgbGreen = file.rgbGreen;
    lesson.rgbBlue = file.rgbBlue;
    lesson.colorAlpha = static_cast<float>(file.colorAlpha);
    lesson.fontColor = file.fontColor;
    lesson.absenceCount = file.absenceCount;
    lesson.latenessCount = file.latenessCount;
    if (file.professor) {
        lesson.professor->name = file.professor->name;
        lesson.professor->room = file.professor->room;
        lesson.professor->phone = file.professor->phone;
        lesson.professor->cellphone = file.professor->cellphone;
    }
    addPlacements(lesson, file.placements);
    replaceMemos(lesson, file.memos);
    addSchedule(lesson, file);
}

}  // namespace

GXTimetableData& importTimetable(const ExchangeTimetable& file) {
    GXDataManager& manager = GXDataManager::manager();
    GXTimetableData& timetable = manager.addNewTimetable();
    setSettings(timetable, file);
    if (!manager.fixedStartingTimetable()) {
        manager.setStartingTimetable_fixed(timetable.index.get(), false);
    }
    manager.saveContext();
    // A new timetable has none.
    for (GXClasstimeData* row : timetable.classtimes.allObjects())
        manager.removeData(*row);
    for (const ExchangeClasshour& classhour : file.classhours)
        addClasshour(timetable, classhour);
    for (const ExchangeLesson& lesson : file.lessons)
        addLesson(timetable, lesson);
    addSchedule(timetable, file);
    manager.saveContext();
    return timetable;
}

}  // namespace gexlo
