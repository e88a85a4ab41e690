#include "platform/persistence/persistent_store.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>

#include "platform/foundation/log.h"
#include "platform/persistence/managed_object.h"
#include "platform/persistence/store_rows.h"

namespace gexlo {

namespace {

/// Kept in the file's user_version; a file of a later one is not touched.
constexpr sqlite3_int64 kFormatVersion = 1;

/// Whether the file holds something that is too short to be a database. SQLite would take it
/// for an empty one and write over it.
bool isStump(const std::filesystem::path& file) {
    constexpr std::uintmax_t smallestPage = 512;
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return !error && size > 0 && size < smallestPage;
}

NSError fileError(const char* domain, int code, const std::filesystem::path& file) {
    return {domain, code, {{"NSFilePath", file.string()}}};
}

const char* columnType(AttributeType type) {
    switch (type) {
        case AttributeType::boolean:
        case AttributeType::integer:
            return "INTEGER";
        case AttributeType::real:
        case AttributeType::date:  // seconds since 1970
            return "REAL";
        case AttributeType::text:
            return "TEXT";
        case AttributeType::data:
            return "BLOB";
    }
    return "";
}

struct Column {
    std::string name;
    std::string definition;
};

/// The columns of an entity's table but for the row key.
std::vector<Column> columns(const EntityDescription& entity) {
    std::vector<Column> list;
    for (const AttributeDescription& attribute : entity.attributes) {
        list.push_back(
            {attribute.name, sqlName(attribute.name) + " " + columnType(attribute.type)});
    }
    for (const RelationshipDescription* relationship : columnRelationships(entity)) {
        list.push_back({relationship->name, sqlName(relationship->name) + " INTEGER REFERENCES " +
                                                sqlName(relationship->destinationName)});
    }
    return list;
}

std::string tableDefinition(const EntityDescription& entity) {
    std::string sql =
        "CREATE TABLE " + sqlName(entity.name) + " (" + kRowKeyColumn + " INTEGER PRIMARY KEY";
    for (const Column& column : columns(entity))
        sql += ", " + column.definition;
    return sql + ")";
}

/// Binds the members of an object to a statement, in the order of its columns.
void bindMembers(sqlite3_stmt* statement, const NSManagedObject& object) {
    int at = 0;
    const EntityDescription& entity = object.entityDescription();
    for (const AttributeDescription& attribute : entity.attributes) {
        ++at;
        detail::withAttributeType(attribute.type, [&](auto* typed) {
            using T = std::remove_pointer_t<decltype(typed)>;
            const auto& member = detail::attributeAt<T>(object, attribute);
            if (!member.isSet()) {
                sqlite3_bind_null(statement, at);
            } else if constexpr (std::is_same_v<T, std::string>) {
                const std::string& text = member.get();
                sqlite3_bind_text64(statement, at, text.data(), text.size(), SQLITE_STATIC,
                                    SQLITE_UTF8);
            } else if constexpr (std::is_same_v<T, NSData>) {
                const NSData& data = member.get();
                // A null pointer would bind NULL, which is absence.
                sqlite3_bind_blob64(statement, at,
                                    data.empty() ? static_cast<const void*>("") : data.data(),
                                    data.size(), SQLITE_STATIC);
            } else if constexpr (std::is_same_v<T, NSDate>) {
                sqlite3_bind_double(statement, at, member.get().timeIntervalSince1970());
            } else if constexpr (std::is_same_v<T, float>) {
                sqlite3_bind_double(statement, at, static_cast<double>(member.get()));
            } else {
                sqlite3_bind_int64(statement, at, member.get());
            }
        });
    }
    for (const RelationshipDescription* relationship : columnRelationships(entity)) {
        ++at;
        const auto targets = object.objectsForKey(relationship->name);
        if (targets.empty()) {
            sqlite3_bind_null(statement, at);
        } else {
            sqlite3_bind_int64(statement, at, targets.front()->rowKey());
        }
    }
    sqlite3_bind_int64(statement, at + 1, object.rowKey());
}

bool run(sqlite3_stmt* statement) {
    const bool done = statement && sqlite3_step(statement) == SQLITE_DONE;
    if (statement) sqlite3_reset(statement);
    return done;
}

}  // namespace

NSPersistentStore::NSPersistentStore(std::filesystem::path file, const NSManagedObjectModel& model,
                                     Database database)
    : file_(std::move(file)),
      model_(model),
      database_(std::move(database)),
      columns_(model.entities().size()),
      lastRowKeys_(model.entities().size()),
      writers_(model.entities().size()) {}

std::unique_ptr<NSPersistentStore> NSPersistentStore::open(const std::filesystem::path& file,
                                                           const NSManagedObjectModel& model,
                                                           bool mayLackColumns, NSError& error) {
    if (isStump(file)) {
        error = fileError(kSQLiteErrorDomain, SQLITE_NOTADB, file);
        return nullptr;
    }
    sqlite3* handle = nullptr;
    // The store is used under the device's lock alone.
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int result = sqlite3_open_v2(file.c_str(), &handle, flags, nullptr);
    Database database(handle);
    if (result != SQLITE_OK) {
        error = databaseError(handle);
        return nullptr;
    }
    std::unique_ptr<NSPersistentStore> store(
        new NSPersistentStore(file, model, std::move(database)));
    if (const auto failed = store->check(mayLackColumns)) {
        error = *failed;
        return nullptr;
    }
    store->readLastRowKeys();
    sqlite3_db_config(store->database(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return store;
}

std::optional<NSError> NSPersistentStore::check(bool mayLackColumns) {
    sqlite3* database = database_.get();
    // A file that is refused must not be written by closing it either.
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    execute(database, "PRAGMA cell_size_check=ON; PRAGMA synchronous=NORMAL");
    // The first read: it finds what is no database, and makes the file where there is none.
    if (execute(database, "SELECT count(*) FROM sqlite_master") != SQLITE_OK) {
        return databaseError(database);
    }
    if (sqlite3_db_readonly(database, "main") == 1) {
        return fileError(kSQLiteErrorDomain, SQLITE_READONLY, file_);
    }
    readColumns();
    const bool isLater = singleNumber(database, "PRAGMA user_version") > kFormatVersion;
    if (isLater || (!mayLackColumns && lacksColumns())) {
        return fileError(kCocoaErrorDomain, kPersistentStoreIncompatible, file_);
    }
    return std::nullopt;
}

void NSPersistentStore::readColumns() {
    for (const EntityDescription& entity : model_.entities()) {
        std::set<std::string>& names = columns_[entity.index];
        const Statement statement =
            prepare(database_.get(), "SELECT name FROM pragma_table_info(?1)");
        sqlite3_bind_text(statement.get(), 1, entity.name, -1, SQLITE_STATIC);
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            names.insert(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)));
        }
    }
}

/// Of a file that holds tables at all; an empty one lacks nothing.
bool NSPersistentStore::lacksColumns() const {
    bool hasTables = false;
    bool lacks = false;
    for (const EntityDescription& entity : model_.entities()) {
        hasTables |= hasTable(entity);
        for (const Column& column : columns(entity))
            lacks |= !hasColumn(entity, column.name.c_str());
    }
    return hasTables && lacks;
}

std::optional<NSError> NSPersistentStore::prepareToWrite() {
    if (isPrepared_) return std::nullopt;
    if (execute(database_.get(), "PRAGMA journal_mode=WAL") != SQLITE_OK) {
        return databaseError(database_.get());
    }
    if (auto error = addTablesAndColumns()) return error;
    isPrepared_ = true;
    return std::nullopt;
}

/// What the model has and the file lacks. An empty file gets its tables with the first rows,
/// so that one which never holds any, as the file that each start makes and removes again,
/// costs next to nothing.
std::optional<NSError> NSPersistentStore::addTablesAndColumns() {
    std::string sql;
    for (const EntityDescription& entity : model_.entities()) {
        if (!hasTable(entity)) {
            sql += tableDefinition(entity) + ";";
            continue;
        }
        for (const Column& column : columns(entity)) {
            if (hasColumn(entity, column.name.c_str())) continue;
            sql += "ALTER TABLE " + sqlName(entity.name) + " ADD COLUMN " + column.definition + ";";
        }
    }
    if (sql.empty()) return std::nullopt;
    sql = "BEGIN IMMEDIATE;" + sql + "PRAGMA user_version=" + std::to_string(kFormatVersion) +
          "; COMMIT";
    if (execute(database_.get(), sql) != SQLITE_OK) return rolledBack();
    readColumns();
    return std::nullopt;
}

void NSPersistentStore::readLastRowKeys() {
    for (const EntityDescription& entity : model_.entities()) {
        if (!hasTable(entity)) continue;
        const std::string query =
            fmt::format("SELECT max({}) FROM {}", kRowKeyColumn, sqlName(entity.name));
        NSInteger& last = lastRowKeys_[entity.index];
        // A key out of range is told when its row is read.
        last = std::clamp<NSInteger>(singleNumber(database_.get(), query), 0, kLargestInteger);
    }
}

bool NSPersistentStore::hasRows() const {
    for (const EntityDescription& entity : model_.entities()) {
        const std::string query = "SELECT EXISTS(SELECT 1 FROM " + sqlName(entity.name) + ")";
        if (hasTable(entity) && singleNumber(database_.get(), query) != 0) return true;
    }
    return false;
}

NSPersistentStore::Writers& NSPersistentStore::writers(const EntityDescription& entity) {
    Writers& made = writers_[entity.index];
    if (made.insert) return made;
    std::string names;
    std::string marks;
    std::string settings;
    for (const Column& column : columns(entity)) {
        names += sqlName(column.name) + ",";
        marks += "?,";
        settings += (settings.empty() ? "" : ",") + sqlName(column.name) + "=?";
    }
    sqlite3* database = database_.get();
    const std::string table = sqlName(entity.name);
    const std::string key = kRowKeyColumn;
    made.insert = prepare(
        database, "INSERT INTO " + table + " (" + names + key + ") VALUES (" + marks + "?)");
    made.update =
        prepare(database, "UPDATE " + table + " SET " + settings + " WHERE " + key + "=?");
    made.remove = prepare(database, "DELETE FROM " + table + " WHERE " + key + "=?");
    return made;
}

bool NSPersistentStore::write(const ChangeSet& changes) {
    for (const NSManagedObject* object : changes.inserted) {
        sqlite3_stmt* statement = writers(object->entityDescription()).insert.get();
        bindMembers(statement, *object);
        if (!run(statement)) return false;
    }
    for (const NSManagedObject* object : changes.updated) {
        sqlite3_stmt* statement = writers(object->entityDescription()).update.get();
        bindMembers(statement, *object);
        if (!run(statement)) return false;
    }
    for (const RemovedRow& row : changes.removed) {
        sqlite3_stmt* statement = writers(*row.entity).remove.get();
        sqlite3_bind_int64(statement, 1, row.rowKey);
        if (!run(statement)) return false;
    }
    return true;
}

NSError NSPersistentStore::rolledBack() {
    NSError error = databaseError(database_.get());
    execute(database_.get(), "ROLLBACK");
    return error;
}

std::optional<NSError> NSPersistentStore::save(const ChangeSet& changes) {
    if (auto error = prepareToWrite()) return error;
    sqlite3* database = database_.get();
    if (execute(database, "BEGIN IMMEDIATE") != SQLITE_OK) return databaseError(database);
    if (!write(changes) || execute(database, "COMMIT") != SQLITE_OK) return rolledBack();
    return std::nullopt;
}

std::optional<NSError> NSPersistentStore::takeRowsOf(const NSPersistentStore& other) {
    if (auto error = prepareToWrite()) return error;
    sqlite3* database = database_.get();
    const Statement attach = prepare(database, "ATTACH ?1 AS source");
    sqlite3_bind_text(attach.get(), 1, other.file_.c_str(), -1, SQLITE_TRANSIENT);
    if (!run(attach.get())) return databaseError(database);
    // Keys move up past those that are here, references with them.
    std::string sql = "BEGIN IMMEDIATE;";
    for (const EntityDescription& entity : model_.entities()) {
        const auto shifted = [&](const std::string& column, const EntityDescription& of) {
            return column + "+" + std::to_string(lastRowKeys_[of.index]);
        };
        std::string names = kRowKeyColumn;
        std::string values = shifted(kRowKeyColumn, entity);
        if (!other.hasTable(entity)) continue;
        for (const AttributeDescription& attribute : entity.attributes) {
            if (!other.hasColumn(entity, attribute.name)) continue;
            names += "," + sqlName(attribute.name);
            values += "," + sqlName(attribute.name);
        }
        for (const RelationshipDescription* relationship : columnRelationships(entity)) {
            if (!other.hasColumn(entity, relationship->name)) continue;
            names += "," + sqlName(relationship->name);
            values += "," + shifted(sqlName(relationship->name), *relationship->destination);
        }
        const std::string table = sqlName(entity.name);
        sql += "INSERT INTO main." + table + " (" + names + ") SELECT " + values + " FROM source." +
               table + ";";
    }
    std::optional<NSError> error;
    if (execute(database, sql + "COMMIT") != SQLITE_OK) error = rolledBack();
    execute(database, "DETACH source");
    readLastRowKeys();
    return error;
}

bool NSPersistentStore::checkpoint() {
    const int result = sqlite3_wal_checkpoint_v2(database_.get(), nullptr, SQLITE_CHECKPOINT_FULL,
                                                 nullptr, nullptr);
    if (result != SQLITE_OK) {
        NSLog("The store's file waits for its log: %@", sqlite3_errmsg(database_.get()));
    }
    return result == SQLITE_OK;
}

}  // namespace gexlo
