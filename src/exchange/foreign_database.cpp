#include "exchange/foreign_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include "platform/foundation/utf8.h"

namespace gexlo {

namespace {

// As large as all texts and rows within the bounds make one.
constexpr std::size_t kLargestFile = 96U << 20;                                  // bytes
constexpr int kLongestRow = static_cast<int>(ExchangeBounds::kMostText) + 4096;  // bytes
constexpr int kLongestKey = 64;             // bytes, of one that is a text
constexpr int kLongestDefinition = 10'000;  // bytes, of a table or an index
constexpr int kMostColumns = 100;
// What SQLite may do, in steps of its machine: about a second.
constexpr int kStepsAtOnce = 1'000;
constexpr int kMostSteps = 50'000'000;
constexpr int kMostSchemaSteps = 10'000;
constexpr int kStepsOfPage = 40;  // as long as it takes to find a page

/// A table, and the column that tells whose its rows are, if any.
struct Table {
    const char* name;
    const char* owner;
};
const Table kTables[] = {
    {"data_info", nullptr},    {"timetable", nullptr},    {"classhour", "timetableID"},
    {"lesson", "timetableID"}, {"professor", "lessonID"}, {"classes", "lessonID"},
    {"memo", "lessonID"},      {"homework", "lessonID"},  {"exam", "lessonID"},
};

/// A file can hold expressions of its own: only plain columns of the known tables are read.
int authorize(void*, int action, const char* table, const char*, const char*, const char*) {
    const auto isTable = [table](const Table& known) {
        return sqlite3_stricmp(known.name, table) == 0;
    };
    if (action == SQLITE_SELECT) return SQLITE_OK;
    const bool isRead = action == SQLITE_READ;
    return isRead && std::any_of(std::begin(kTables), std::end(kTables), isTable) ? SQLITE_OK
                                                                                  : SQLITE_DENY;
}

std::string_view tableOf(std::string_view query) {
    constexpr std::string_view from = " FROM ";
    query.remove_prefix(query.find(from) + from.size());
    return query.substr(0, query.find(' '));
}

/// The query over the table itself: an index can hold anything and of any size.
std::string unindexed(std::string_view query) {
    const std::string_view table = tableOf(query);
    std::string result(query.data(), table.data() + table.size());
    const std::string_view rest = query.substr(result.size());
    return result.append(" NOT INDEXED").append(rest);
}

std::string firstBytes(std::istream& file, std::size_t count) {
    std::string bytes(count, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

/// Without the mark of a database whose last changes may stand in a log beside it: there is
/// none beside a copy in memory.
void forgetLog(std::string& file) {
    constexpr std::size_t writeVersion = 18;
    constexpr std::size_t readVersion = 19;
    if (file.size() <= readVersion) return;
    for (const std::size_t place : {writeVersion, readVersion}) {
        if (file[place] == 2) file[place] = 1;
    }
}

void restrain(sqlite3* database) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_drop_modules(database, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestRow);
    sqlite3_limit(database, SQLITE_LIMIT_SQL_LENGTH, kLongestDefinition);
    sqlite3_limit(database, SQLITE_LIMIT_COLUMN, kMostColumns);
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    // Room for any usual file, so that no page of it is fetched twice. This reads the schema.
    execute(database, "PRAGMA cell_size_check = ON; PRAGMA cache_size = -20000");
}

int pagesFound(sqlite3* database) {
    int all = 0;
    for (const int kind : {SQLITE_DBSTATUS_CACHE_HIT, SQLITE_DBSTATUS_CACHE_MISS}) {
        int count = 0;
        int highest = 0;
        sqlite3_db_status(database, kind, &count, &highest, 1);
        all += count;
    }
    return all;
}

template <typename IsSought>
bool hasColumn(sqlite3* database, const std::string& table, IsSought isSought) {
    const Statement columns = prepare(database, "PRAGMA table_xinfo(" + table + ")");
    while (columns && sqlite3_step(columns.get()) == SQLITE_ROW) {
        if (isSought(columns.get())) return true;
    }
    return false;
}

/// Whether a table has a column under the name by which SQLite tells a row's number.
bool hidesRowNumbers(sqlite3* database, const std::string& table) {
    return hasColumn(database, table, [](sqlite3_stmt* column) {
        constexpr int name = 1;
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(column, name));
        return text && sqlite3_stricmp(text, "rowid") == 0;
    });
}

bool isWritten(sqlite3_stmt* statement, int column) {
    const int type = sqlite3_column_type(statement, column);
    return type == SQLITE_TEXT || type == SQLITE_BLOB;
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
    database_.bounds().takeText(length);
    const std::string_view whole(bytes, length);
    return repairedUtf8(whole.substr(0, whole.find('\0')));
}

/// The column of the number that is next, once its text is counted if it comes as one.
int ForeignRow::nextNumber() {
    if (isWritten(statement_, column_)) {
        database_.bounds().takeText(
            static_cast<std::size_t>(sqlite3_column_bytes(statement_, column_)));
    }
    return column_++;
}

bool ForeignRow::flag() {
    return sqlite3_column_int64(statement_, nextNumber()) != 0;
}

NSInteger ForeignRow::identifier() {
    return sqlite3_column_int64(statement_, nextNumber());
}

NSInteger ForeignRow::integer(NSInteger least, NSInteger greatest) {
    const NSInteger number = sqlite3_column_int64(statement_, nextNumber());
    if (number >= least && number <= greatest) return number;
    database_.bounds().leave();
    return 0;
}

double ForeignRow::real(double limit) {
    const double number = sqlite3_column_double(statement_, nextNumber());
    if (std::abs(number) <= limit) return number;
    database_.bounds().leave();
    return 0;
}

// MARK: ForeignDatabase

ForeignDatabase::ForeignDatabase(const NSURL& path) : stepsLeft_(kMostSchemaSteps) {
    std::error_code error;
    // Reading from a pipe or a device may never end.
    if (!std::filesystem::is_regular_file(path, error)) return;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || !file) return;
    sqlite3* database = nullptr;
    sqlite3_open(":memory:", &database);
    database_.reset(database);
    if (size > kLargestFile) {
        bounds_.leave();
        return;
    }
    // A copy: whatever is written meanwhile, what is looked over is what is read.
    file_ = firstBytes(file, static_cast<std::size_t>(size));
    load();
}

void ForeignDatabase::load() {
    sqlite3* database = database_.get();
    if (!file_.empty()) {
        forgetLog(file_);
        const auto length = static_cast<sqlite3_int64>(file_.size());
        sqlite3_deserialize(database, "main", reinterpret_cast<unsigned char*>(file_.data()),
                            length, length, SQLITE_DESERIALIZE_READONLY);
    }
    sqlite3_progress_handler(database, kStepsAtOnce, stepsTaken, this);
    restrain(database);
    stepsLeft_ = kMostSteps;
    for (const Table& table : kTables) {
        if (!isPlain(table.name)) continue;
        plainTables_.insert(table.name);
        if (table.owner) lookOver(table.name, table.owner);
    }
    sqlite3_set_authorizer(database, authorize, nullptr);
}

/// Whether it is a table and nothing that computes: not even to be asked for its columns, as a
/// view of a few lines can keep SQLite busy for ever.
bool ForeignDatabase::isPlain(const char* table) {
    sqlite3* database = database_.get();
    if (!isWithinBounds() ||
        sqlite3_table_column_metadata(database, nullptr, table, nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr) != SQLITE_OK) {
        return false;
    }
    constexpr int hidden = 6;  // above 1 for a column that is computed
    return !hasColumn(database, table,
                      [](sqlite3_stmt* column) { return sqlite3_column_int(column, hidden) > 1; });
}

/// Passes all rows once: there are not too many of them, and what tells their owners is quickly
/// compared. The one integer that an owner can equal is asked of SQLite, just as a query binds it:
/// the sign before it keeps its type from changing what it is compared with.
void ForeignDatabase::lookOver(const char* table, const std::string& key) {
    sqlite3* database = database_.get();
    const auto query = [&](const std::string& columns) {
        return prepare(database, unindexed("SELECT " + columns + " FROM " + table));
    };
    const std::string number = "CAST(CAST(" + key + " AS NUMERIC) AS INTEGER)";
    std::string columns = key;
    columns.append(", ").append(number).append(", ").append(key).append(" = +").append(number);
    Statement rows;
    if (!hidesRowNumbers(database, table)) rows = query(columns + ", rowid");
    const bool canBeFound = rows != nullptr;
    if (!rows) rows = query(key);
    RowsByOwner byOwner;
    while (isWithinBounds() && rows && sqlite3_step(rows.get()) == SQLITE_ROW) {
        const bool isLong =
            isWritten(rows.get(), 0) && sqlite3_column_bytes(rows.get(), 0) > kLongestKey;
        if (isLong || rowsUnseen_-- == 0) bounds_.leave();
        if (!canBeFound || sqlite3_column_int(rows.get(), 2) == 0) continue;
        byOwner[sqlite3_column_int64(rows.get(), 1)].push_back(sqlite3_column_int64(rows.get(), 3));
    }
    if (canBeFound) rowsByOwner_.try_emplace(table, std::move(byOwner));
}

int ForeignDatabase::stepsTaken(void* self) {
    auto& database = *static_cast<ForeignDatabase*>(self);
    const int pages = std::min(pagesFound(database.database_.get()), kMostSteps / kStepsOfPage);
    database.stepsLeft_ -= kStepsAtOnce + kStepsOfPage * pages;
    if (database.stepsLeft_ <= 0) database.bounds_.leave();
    return database.isWithinBounds() ? 0 : 1;
}

bool ForeignDatabase::forEachRow(const char* sql, std::initializer_list<NSInteger> bound,
                                 const std::function<void(ForeignRow&)>& read) {
    if (!isWithinBounds() || !plainTables_.contains(tableOf(sql))) return false;
    const auto byOwner = bound.size() == 0 ? rowsByOwner_.end() : rowsByOwner_.find(tableOf(sql));
    const bool isByRow = byOwner != rowsByOwner_.end();
    sqlite3_stmt* prepared = statements_.statement(
        database_.get(), sql, [&] { return unindexed(sql) + (isByRow ? " AND rowid=?" : ""); });
    if (!prepared) return false;
    int place = 0;
    for (const NSInteger value : bound)
        sqlite3_bind_int64(prepared, ++place, value);
    if (!isByRow) {
        readRows(prepared, read);
        return true;
    }
    for (const NSInteger row : byOwner->second[*bound.begin()]) {
        sqlite3_bind_int64(prepared, place + 1, row);
        readRows(prepared, read);
    }
    return true;
}

void ForeignDatabase::readRows(sqlite3_stmt* statement,
                               const std::function<void(ForeignRow&)>& read) {
    int result = SQLITE_ROW;
    while (isWithinBounds() && (result = sqlite3_step(statement)) == SQLITE_ROW) {
        bounds_.takeRows(1);
        ForeignRow row(*this, statement);
        read(row);
    }
    if (result == SQLITE_TOOBIG || result == SQLITE_NOMEM) bounds_.leave();
    sqlite3_reset(statement);
}

}  // namespace gexlo
