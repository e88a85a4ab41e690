// The store file: a table an entity, a column an attribute, a foreign key a relationship.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/persistence/entity_description.h"
#include "platform/persistence/error.h"
#include "platform/persistence/statement.h"

namespace gexlo {

class NSManagedObject;

/// The row of an object that goes.
struct RemovedRow {
    const EntityDescription* entity;
    NSInteger rowKey;
};

struct ChangeSet {
    std::vector<const NSManagedObject*> inserted;
    std::vector<const NSManagedObject*> updated;
    std::vector<RemovedRow> removed;
};

class NSPersistentStore {
public:
    /// Opens the file, making an empty one where there is none. Fails on a file that is no
    /// database, is damaged where it shows at once, cannot be written, was written by a later
    /// version, or lacks columns of the model where that `mayLackColumns` does not allow.
    /// Opening writes nothing; columns that are missing are added with the first save.
    static std::unique_ptr<NSPersistentStore> open(const std::filesystem::path& file,
                                                   const NSManagedObjectModel& model,
                                                   bool mayLackColumns, NSError& error);

    const std::filesystem::path& url() const { return file_; }
    sqlite3* database() const { return database_.get(); }

    /// A row key that no row of the entity has, nor was given to one since the file was opened.
    NSInteger takeRowKey(const EntityDescription& entity) { return ++lastRowKeys_[entity.index]; }

    /// Writes all of it or nothing.
    [[nodiscard]] std::optional<NSError> save(const ChangeSet& changes);

    /// Takes every row of another file beside the rows that are here, all or nothing.
    [[nodiscard]] std::optional<NSError> takeRowsOf(const NSPersistentStore& other);

    bool hasTable(const EntityDescription& entity) const { return !columns_[entity.index].empty(); }
    bool hasColumn(const EntityDescription& entity, const char* name) const {
        return columns_[entity.index].contains(name);
    }
    bool hasRows() const;
    /// Brings what is in the log of writes into the file itself, down to the disk. When it
    /// fails nothing is lost: the log still holds everything, and the next call goes on.
    bool checkpoint();

private:
    struct Writers {
        Statement insert;
        Statement update;
        Statement remove;
    };

    NSPersistentStore(std::filesystem::path file, const NSManagedObjectModel& model,
                      Database database);

    [[nodiscard]] std::optional<NSError> check(bool mayLackColumns);
    [[nodiscard]] std::optional<NSError> prepareToWrite();
    [[nodiscard]] std::optional<NSError> addTablesAndColumns();
    void readColumns();
    bool lacksColumns() const;
    void readLastRowKeys();
    Writers& writers(const EntityDescription& entity);
    bool write(const ChangeSet& changes);
    NSError rolledBack();

    std::filesystem::path file_;
    const NSManagedObjectModel& model_;
    Database database_;
    bool isPrepared_ = false;                     // for writing
    std::vector<std::set<std::string>> columns_;  // by entity, as they are in the file
    std::vector<NSInteger> lastRowKeys_;          // by entity
    std::vector<Writers> writers_;                // by entity, made at first use
};

/// The name of the column that holds row keys.
inline constexpr const char* kRowKeyColumn = "rowKey";

}  // namespace gexlo
