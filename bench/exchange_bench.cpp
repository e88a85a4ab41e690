// Sending a full timetable off and taking it in, each beside what SQLite alone takes.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <array>
#include <fstream>
#include <string>
#include <vector>

#include "exchange/exchange_format.h"
#include "large_store.h"
#include "platform/persistence/statement.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo::bench {

namespace {

constexpr int kSubjects = 60;
constexpr int kPlacements = 10;  // of a subject
constexpr int kItems = 5;        // of a subject and kind
constexpr int kClasstimes = 140;
/// The new timetable, that it starts the application, each subject and the end of its first
/// memo, and the end.
constexpr int kSaves = 2 + 2 * kSubjects + 1;

template <typename Item>
void addItem(Item& item, ToMany<Item>& items) {
    item.title = "Chapter 12";
    item.content = "Read the chapter and answer the questions at its end";
    item.date = NSDate::date();
    items.addObject(item);
}

void addFullTimetable() {
    GXDataManager& manager = GXDataManager::manager();
    GXTimetableData& timetable = manager.addNewTimetable();
    manager.setCurrentTimetableNo(timetable.index.get());
    for (int n = 0; n < kClasstimes; ++n) {
        auto& row = manager.addNewData<GXClasstimeData>();
        row.week = n % 2;
        row.period = static_cast<float>(n / 4) + static_cast<float>(n / 2 % 2) / 2;
        row.name = "Period";
        row.shortName = "P";
        timetable.classtimes.addObject(row);
    }
    for (int n = 0; n < kSubjects; ++n) {
        GXLessonData& lesson = manager.addNewLessonInTimetable(timetable);
        lesson.name = "Subject number " + std::to_string(n);
        lesson.color = "#1479CC";
        lesson.fontColor = "#FFFFFF";
        for (int i = 0; i < kPlacements; ++i) {
            GXDayNPeriodData& placement = manager.addNewDayNPeriod();
            placement.day = i % 7;
            placement.period = static_cast<float>(n % 34);
            placement.room = "Room 12";
            lesson.times.addObject(placement);
        }
        for (int i = 0; i < kItems; ++i) {
            addItem(manager.addNewHomework(), lesson.homework);
            addItem(manager.addNewExam(), lesson.exam);
        }
    }
    manager.saveContext();
}

NSData exportedFile() {
    return *GXUIManager::manager().generateDataFileFromTimetable_errorCode(
        *GXDataManager::manager().currentTimetableData(), nullptr);
}

std::filesystem::path writeFile(const TemporaryRoot& root, const NSData& bytes) {
    const std::filesystem::path path = root.path() / "full.gexlo";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return path;
}

/// A device with the full timetable, and its file.
struct FullTimetable {
    FullTimetable() : device(deviceOn(root.path())) {
        device->perform(addFullTimetable);
        file = writeFile(root, exportedFile());
    }
    TemporaryRoot root;
    std::unique_ptr<Device> device;
    std::filesystem::path file;
};

// MARK: bare rows

using Row = std::vector<sqlite3_value*>;

struct Rows {
    Rows() = default;
    Rows(Rows&&) = default;
    ~Rows() {
        for (const Row& row : rows) {
            for (sqlite3_value* value : row)
                sqlite3_value_free(value);
        }
    }
    std::string insert;
    std::vector<Row> rows;
};

Database openFile(const std::filesystem::path& path) {
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    return Database(database);
}

/// Everything that the file holds, table by table.
std::vector<Rows> readRows(const std::filesystem::path& path) {
    const Database database = openFile(path);
    std::vector<Rows> all;
    for (const char* table : {"data_info", "timetable", "classhour", "lesson", "professor",
                              "classes", "memo", "homework", "exam"}) {
        Rows& rows = all.emplace_back();
        const Statement statement = prepare(database.get(), "SELECT * FROM " + std::string(table));
        const int columns = sqlite3_column_count(statement.get());
        rows.insert = "INSERT INTO " + std::string(table) + " VALUES (?";
        for (int i = 1; i < columns; ++i)
            rows.insert += ",?";
        rows.insert += ")";
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            Row& row = rows.rows.emplace_back();
            for (int i = 0; i < columns; ++i)
                row.push_back(sqlite3_value_dup(sqlite3_column_value(statement.get(), i)));
        }
    }
    return all;
}

void createTables(sqlite3* database) {
    for (const char* statement : exchange_format::kCreateStatements)
        execute(database, statement);
}

/// Calls `written` after each row.
template <typename Written>
void insertRows(sqlite3* database, const std::vector<Rows>& all, Written written) {
    for (const Rows& rows : all) {
        const Statement statement = prepare(database, rows.insert);
        for (const Row& row : rows.rows) {
            int place = 0;
            for (const sqlite3_value* value : row)
                sqlite3_bind_value(statement.get(), ++place, value);
            sqlite3_step(statement.get());
            sqlite3_reset(statement.get());
            written();
        }
    }
}

// MARK: cases

void exportFile(benchmark::State& state) {
    const FullTimetable full;
    for (auto _ : state)
        benchmark::DoNotOptimize(exportedFile().size());
}

void exportFileBound(benchmark::State& state) {
    const FullTimetable full;
    const std::vector<Rows> rows = readRows(full.file);
    const std::filesystem::path path = full.root.path() / "bare.gexlo";
    for (auto _ : state) {
        std::filesystem::remove(path);
        const Database database = openFile(path);
        execute(database.get(), "PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY; BEGIN");
        createTables(database.get());
        insertRows(database.get(), rows, [] {});
        execute(database.get(), "COMMIT");
    }
}

void importFile(benchmark::State& state) {
    const FullTimetable full;
    const std::string url = "file://" + full.file.string();
    GXDataManager& manager = GXDataManager::manager();
    for (auto _ : state) {
        full.device->perform([&] { GXUIManager::manager().openTimetableFromDataFile(url); });
        state.PauseTiming();
        full.device->log().take();
        full.device->perform([&] { manager.removeTimetable(manager.currentTimetableNo()); });
        state.ResumeTiming();
    }
}

void importFileBound(benchmark::State& state) {
    const FullTimetable full;
    const Database store = openFile(full.root.path() / "bare.sqlite");
    execute(store.get(), "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL");
    createTables(store.get());
    for (auto _ : state) {
        const std::vector<Rows> all = readRows(full.file);
        std::size_t count = 0;
        for (const Rows& rows : all)
            count += rows.rows.size();
        const std::size_t step = count / (kSaves - 1);
        std::size_t written = 0;
        execute(store.get(), "BEGIN IMMEDIATE");
        insertRows(store.get(), all, [&] {
            if (++written % step == 0) execute(store.get(), "COMMIT; BEGIN IMMEDIATE");
        });
        execute(store.get(), "COMMIT");
        // The same durability: on the disk when the turn ends.
        sqlite3_wal_checkpoint_v2(store.get(), nullptr, SQLITE_CHECKPOINT_FULL, nullptr, nullptr);
        state.PauseTiming();
        for (const char* table : {"data_info", "timetable", "classhour", "lesson", "professor",
                                  "classes", "memo", "homework", "exam"})
            execute(store.get(), "DELETE FROM " + std::string(table));
        state.ResumeTiming();
    }
}

BENCHMARK(exportFile)->Name("export a full timetable")->Unit(benchmark::kMillisecond);
BENCHMARK(exportFileBound)->Name("export a full timetable/bound")->Unit(benchmark::kMillisecond);
BENCHMARK(importFile)->Name("import a full timetable")->Unit(benchmark::kMillisecond);
BENCHMARK(importFileBound)->Name("import a full timetable/bound")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace gexlo::bench
