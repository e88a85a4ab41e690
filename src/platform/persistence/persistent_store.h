// The store file: a table an entity, a column an attribute, a foreign key a relationship.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "platform/persistence/entity_description.h"
#include "platform/persistence/error.h"
#include "platform/persistence/statement.h"

namespace gexlo {

class NSManagedObject;

/// One object to be written, or the key of a row that goes.
struct RemovedRow {
    const EntityDescription* entity;
    NSInteger rowKey;
};

struct ChangeSet {
    std::vector<const NSManagedObject*> inserted;
    std::vector<const NSManagedObject*> updated;
    std::vector<RemovedRow> removed;

    bool isEmpty() const { return inserted.empty() && updated.empty() && removed.empty(); }
};

class NSPersistentStore {
public:
    /// Opens the file, making an empty one where there is none. Fails on a file that is no
    /// database, is damaged where it shows at once, cannot be written, or was written by a
    /// later version; a file that it refuses is left as it was.
    static std::unique_ptr<NSPersistentStore> open(const std::filesystem::path& file,
                                                   const NSManagedObjectModel& model, NSError& error);

    const std::filesystem::path& url() const { return file_; }
    const NSManagedObjectModel& model() const { return model_; }
    sqlite3* database() const { return database_.get(); }

    /// A row key of the entity that was never given before.
    NSInteger takeRowKey(const EntityDescription& entity) { return ++lastRowKeys_[entity.index]; }

    /// Writes all of it or nothing.
    [[nodiscard]] std::optional<NSError> save(const ChangeSet& changes);

    /// Takes every row of another file beside the rows that are here, all or nothing.
    [[nodiscard]] std::optional<NSError> takeRowsOf(const NSPersistentStore& other);

    bool hasTables() const { return hasTables_; }
    bool hasRows() const;
    /// Brings what is in the log of writes into the file itself, down to the disk.
    void checkpoint();

private:
    struct Writers {
        Statement insert;
        Statement update;
        Statement remove;
    };

    NSPersistentStore(std::filesystem::path file, const NSManagedObjectModel& model,
                      Database database);

    [[nodiscard]] std::optional<NSError> check();
    [[nodiscard]] std::optional<NSError> addMissingColumns();
    [[nodiscard]] std::optional<NSError> prepareToWrite();
    [[nodiscard]] std::optional<NSError> createTables();
    void readLastRowKeys();
    Writers& writers(const EntityDescription& entity);
    bool write(const ChangeSet& changes);
    NSError rolledBack();

    std::filesystem::path file_;
    const NSManagedObjectModel& model_;
    Database database_;
    bool hasTables_ = false;
    bool isPrepared_ = false;  // for writing
    std::vector<NSInteger> lastRowKeys_;  // by entity
    std::vector<Writers> writers_;        // by entity, made at first use
};

/// The name of the column that holds row keys.
inline constexpr const char* kRowKeyColumn = "rowKey";

}  // namespace gexlo
