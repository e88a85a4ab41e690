// Opening the store and saving to it, each beside what SQLite alone takes for the same.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <fstream>
#include <string>
#include <vector>

#include "large_store.h"
#include "store/data_manager.h"

namespace gexlo::bench {

namespace {

sqlite3* openDatabase(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    return database;
}

std::vector<std::string> tableNames(sqlite3* database) {
    std::vector<std::string> names;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT name FROM sqlite_master WHERE type='table'", -1,
                       &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    sqlite3_finalize(statement);
    return names;
}

/// Reads every value of every row once, as any reader must.
std::size_t readAll(sqlite3* database) {
    std::size_t sum = 0;
    for (const std::string& table : tableNames(database)) {
        sqlite3_stmt* statement = nullptr;
        const std::string sql = "SELECT * FROM \"" + table + "\"";
        sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
        const int columns = sqlite3_column_count(statement);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int column = 0; column < columns; ++column) {
                switch (sqlite3_column_type(statement, column)) {
                    case SQLITE_INTEGER:
                        sum += static_cast<std::size_t>(sqlite3_column_int64(statement, column));
                        break;
                    case SQLITE_FLOAT:
                        sum += sqlite3_column_double(statement, column) > 0 ? 1 : 0;
                        break;
                    case SQLITE_NULL:
                        break;
                    default:
                        sqlite3_column_blob(statement, column);
                        sum += static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
                }
            }
        }
        sqlite3_finalize(statement);
    }
    return sum;
}

void openStoreBound(benchmark::State& state) {
    const std::filesystem::path file = largeStoreFile();
    for (auto _ : state) {
        sqlite3* database = openDatabase(file);
        benchmark::DoNotOptimize(readAll(database));
        sqlite3_close(database);
    }
}

/// The data manager from its first call: open, move, read, version, repair of doubles.
void openStore(benchmark::State& state) {
    const std::filesystem::path root = largeStoreRoot();
    for (auto _ : state) {
        state.PauseTiming();
        auto device = deviceOn(root);
        state.ResumeTiming();
        benchmark::DoNotOptimize(GXDataManager::manager().timetableList().size());
        state.PauseTiming();
        device.reset();
        state.ResumeTiming();
    }
}

void saveOneBound(benchmark::State& state) {
    sqlite3* database = openDatabase(largeStoreFile());
    sqlite3_exec(database, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL", nullptr, nullptr,
                 nullptr);
    sqlite3_stmt* update = nullptr;
    sqlite3_prepare_v2(database, "UPDATE Lesson SET name=?1 WHERE rowKey=700", -1, &update,
                       nullptr);
    int number = 0;
    for (auto _ : state) {
        const std::string name = "Subject " + std::to_string(++number);
        sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_text(update, 1, name.c_str(), -1, SQLITE_STATIC);
        sqlite3_step(update);
        sqlite3_reset(update);
        sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
        // The same durability: on the disk when the turn ends.
        sqlite3_wal_checkpoint_v2(database, nullptr, SQLITE_CHECKPOINT_FULL, nullptr, nullptr);
    }
    sqlite3_finalize(update);
    sqlite3_close(database);
}

void saveOne(benchmark::State& state) {
    auto device = deviceOn(largeStoreRoot());
    GXDataManager& manager = GXDataManager::manager();
    GXLessonData& lesson = *manager.timetableList()[30]->lessons.anyObject();
    int number = 0;
    for (auto _ : state) {
        device->perform([&] {
            lesson.name = "Subject " + std::to_string(++number);
            manager.saveContext();
        });
    }
}

BENCHMARK(openStore)->Name("open the largest store")->Unit(benchmark::kMillisecond);
BENCHMARK(openStoreBound)->Name("open the largest store/bound")->Unit(benchmark::kMillisecond);
BENCHMARK(saveOne)->Name("save one attribute")->Unit(benchmark::kMillisecond);
BENCHMARK(saveOneBound)->Name("save one attribute/bound")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace gexlo::bench
