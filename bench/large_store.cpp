#include "large_store.h"

#include <stdlib.h>

#include <fstream>

#include "store/data_manager.h"

namespace gexlo::bench {

namespace {

constexpr int kTimetables = 60;
constexpr int kSubjects = 30;
constexpr int kPlacementsPerSubject = 5;
constexpr int kItemsPerSubject = 2;  // of each kind
constexpr int kPeriods = 35;
constexpr float kSteps[] = {0.0F, 0.5F};

void addClasstimes(GXDataManager& manager, GXTimetableData& timetable) {
    for (int week = 0; week < 2; ++week) {
        for (int n = 0; n < kPeriods; ++n) {
            for (const float step : kSteps) {
                auto& row = manager.addNewData<GXClasstimeData>();
                row.week = week;
                row.period = static_cast<float>(n) + step;
                row.name = "Period";
                row.shortName = "P";
                row.beginHour = 8 + n / 4;
                row.beginMin = n % 4 * 15;
                row.endHour = 8 + n / 4;
                row.endMin = n % 4 * 15 + 10;
                timetable.classtimes.addObject(row);
            }
        }
    }
}

template <typename Item>
void addItem(Item& item, ToMany<Item>& items, int number) {
    item.title = stringWithFormat("Chapter %d", number);
    item.content = "Read the chapter and answer the questions at its end";
    item.date = NSDate::date().dateByAddingTimeInterval(number * 86400.0);
    item.index = static_cast<NSInteger>(items.count());
    items.addObject(item);
}

void addSubject(GXDataManager& manager, GXTimetableData& timetable, int number) {
    GXLessonData& lesson = manager.addNewLessonInTimetable(timetable);
    lesson.name = stringWithFormat("Subject number %d", number);
    lesson.color = "darkcyan";
    lesson.fontColor = "white";
    lesson.room1 = "Room 12";
    lesson.professor->name = "A teacher's name";
    lesson.memo.anyObject()->content = "Bring the atlas";
    for (int i = 0; i < kPlacementsPerSubject; ++i) {
        GXDayNPeriodData& placement = manager.addNewDayNPeriod();
        placement.day = 1 + i;
        placement.period = static_cast<float>(number % kPeriods);
        placement.room = "Room 12";
        lesson.times.addObject(placement);
    }
    for (int i = 0; i < kItemsPerSubject; ++i) {
        addItem(manager.addNewHomework(), lesson.homework, i);
        addItem(manager.addNewExam(), lesson.exam, i);
    }
}

struct LargeStore {
    LargeStore() { deviceOn(root.path())->perform(writeLargeStore); }
    TemporaryRoot root;
};

}  // namespace

TemporaryRoot::TemporaryRoot() {
    std::string pattern = (std::filesystem::temp_directory_path() / "gexlo-bench-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
}

TemporaryRoot::~TemporaryRoot() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

DeviceFacts factsOn(const std::filesystem::path& root) {
    DeviceFacts facts;
    facts.root = root;
    facts.resources = GEXLO_RESOURCES;
    return facts;
}

std::unique_ptr<Device> deviceOn(const std::filesystem::path& root) {
    return std::make_unique<Device>(factsOn(root), Clock::real());
}

void writeLargeStore() {
    GXDataManager& manager = GXDataManager::manager();
    for (int i = 0; i < kTimetables; ++i) {
        GXTimetableData& timetable = manager.addNewTimetable();
        timetable.name = stringWithFormat("Timetable %d", i);
        timetable.numWeeks = 2;
        timetable.lastPeriod = kPeriods - 1;
        timetable.useHalfPeriods = true;
        addClasstimes(manager, timetable);
        for (int n = 0; n < kSubjects; ++n)
            addSubject(manager, timetable, n);
    }
    manager.saveContext();
}

const std::filesystem::path& largeStoreRoot() {
    static const LargeStore store;
    return store.root.path();
}

std::filesystem::path largeStoreFile() {
    return largeStoreRoot() / "Group" / "Vetra.sqlite";
}

double residentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

}  // namespace gexlo::bench
