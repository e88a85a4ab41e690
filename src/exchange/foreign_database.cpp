#include "exchange/foreign_database.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string_view>

#include "platform/foundation/utf8.h"

namespace gexlo {

namespace {

// A full timetable has some 1,500 rows and 100 kB of text.
constexpr NSInteger kMostRows = 20'000;
constexpr std::size_t kMostText = 8U << 20;  // bytes, of all texts
constexpr int kLongestValue = 1 << 20;       // bytes, of a text or a row
// Steps of SQLite's machine: about two seconds.
constexpr int kStepsAtOnce = 100'000;
constexpr int kMostSteps = 1'000;  // of those

constexpr const char* kTables[] = {"data_info", "timetable", "classhour", "lesson", "professor",
                                   "classes",   "memo",      "homework",  "exam"};

bool isKnownTable(const char* name) {
    return std::any_of(std::begin(kTables), std::end(kTables),
                       [name](const char* known) { return sqlite3_stricmp(known, name) == 0; });
}

/// A file can hold expressions of its own: only plain columns of the known tables are read.
int authorize(void*, int action, const char* table, const char*, const char*, const char*) {
    switch (action) {
        case SQLITE_SELECT:
            return SQLITE_OK;
        case SQLITE_READ:
            return isKnownTable(table) ? SQLITE_OK : SQLITE_DENY;
        default:
            return SQLITE_DENY;
    }
}

/// The path as an address that asks SQLite for nothing but its bytes.
std::string readOnlyAddress(const NSURL& path) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string address = "file:";
    for (const char c : path.string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F && !std::strchr("%?#", c)) {
            address += c;
        } else {
            address += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return address + "?mode=ro&immutable=1";
}

void restrain(sqlite3* database) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestValue);
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    execute(database, "PRAGMA cell_size_check = ON");
    sqlite3_set_authorizer(database, authorize, nullptr);
}

}  // namespace

// MARK: ForeignRow

bool ForeignRow::isNull() const {
    return sqlite3_column_type(statement_, column_) == SQLITE_NULL;
}

std::string ForeignRow::text() {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column_));
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column_));
    ++column_;
    if (!bytes) return "";
    database_.takeText(length);
    const std::string_view whole(bytes, length);
    return repairedUtf8(whole.substr(0, whole.find('\0')));
}

bool ForeignRow::flag() {
    return sqlite3_column_int64(statement_, column_++) != 0;
}

NSInteger ForeignRow::identifier() {
    return sqlite3_column_int64(statement_, column_++);
}

NSInteger ForeignRow::integer(NSInteger least, NSInteger greatest) {
    const NSInteger number = sqlite3_column_int64(statement_, column_++);
    if (number >= least && number <= greatest) return number;
    database_.leaveBounds();
    return 0;
}

double ForeignRow::real(double limit) {
    const double number = sqlite3_column_double(statement_, column_++);
    if (std::abs(number) <= limit) return number;
    database_.leaveBounds();
    return 0;
}

// MARK: ForeignDatabase

ForeignDatabase::ForeignDatabase(const NSURL& path)
    : rowsLeft_(kMostRows), textLeft_(kMostText), stepsLeft_(kMostSteps) {
    std::error_code ignored;
    // Reading from a pipe or a device may never end.
    if (!std::filesystem::is_regular_file(path, ignored)) return;
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(readOnlyAddress(path).c_str(), &database,
                                       SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    database_.reset(database);
    if (result != SQLITE_OK) {
        database_.reset();
        return;
    }
    restrain(database);
    sqlite3_progress_handler(database, kStepsAtOnce, stepsTaken, this);
}

int ForeignDatabase::stepsTaken(void* self) {
    auto& database = *static_cast<ForeignDatabase*>(self);
    if (--database.stepsLeft_ <= 0) database.leaveBounds();
    return database.isWithinBounds() ? 0 : 1;
}

void ForeignDatabase::takeRows(NSInteger count) {
    rowsLeft_ -= std::min(std::max(count, NSInteger{0}), rowsLeft_ + 1);
    if (rowsLeft_ < 0) leaveBounds();
}

void ForeignDatabase::takeText(std::size_t bytes) {
    if (bytes > textLeft_) return leaveBounds();
    textLeft_ -= bytes;
}

bool ForeignDatabase::forEachRow(const char* sql, std::initializer_list<NSInteger> bound,
                                 const std::function<void(ForeignRow&)>& read) {
    sqlite3_stmt* statement = statements_.statement(database_.get(), sql);
    if (!statement) return false;
    int place = 0;
    for (const NSInteger value : bound)
        sqlite3_bind_int64(statement, ++place, value);
    int result = SQLITE_ROW;
    while (isWithinBounds_ && (result = sqlite3_step(statement)) == SQLITE_ROW) {
        takeRows(1);
        ForeignRow row(*this, statement);
        read(row);
    }
    if (result == SQLITE_TOOBIG || result == SQLITE_NOMEM) leaveBounds();
    sqlite3_reset(statement);
    return true;
}

}  // namespace gexlo
