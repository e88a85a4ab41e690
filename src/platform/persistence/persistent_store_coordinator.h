// Stands between contexts and the store file, and opens and moves that file.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/persistence/persistent_store.h"

namespace gexlo {

inline constexpr const char* NSSQLiteStoreType = "SQLite";

/// Whether a file of a former model is brought forward, and whether that is worked out
/// from the difference of the models. Only with both may a file lack columns.
struct StoreOptions {
    bool migratePersistentStoresAutomatically = true;
    bool inferMappingModelAutomatically = true;
};

class NSPersistentStoreCoordinator {
public:
    explicit NSPersistentStoreCoordinator(const NSManagedObjectModel& model);
    ~NSPersistentStoreCoordinator();
    NSPersistentStoreCoordinator(const NSPersistentStoreCoordinator&) = delete;
    NSPersistentStoreCoordinator& operator=(const NSPersistentStoreCoordinator&) = delete;

    const NSManagedObjectModel& managedObjectModel() const { return model_; }

    /// Opens the file, making it when it is missing. What went wrong, or nothing.
    [[nodiscard]] std::optional<NSError> addPersistentStoreWithType_URL_options(
        const char* type, const std::filesystem::path& url, const StoreOptions& options);

    /// The store of that file, or null.
    NSPersistentStore* persistentStoreForURL(const std::filesystem::path& url) const;

    /// Goes over to the file at `url`: what `store` holds arrives there beside what that file
    /// held already, in one step and down to the disk, and the former file is closed. When it
    /// fails, as for a file with a row that could not be read, no store is left and the rows
    /// of both files are as they were.
    [[nodiscard]] std::optional<NSError> migratePersistentStore_toURL_options_withType(
        NSPersistentStore& store, const std::filesystem::path& url, const StoreOptions& options,
        const char* type);

    /// The store that contexts work on, or null.
    NSPersistentStore* store() const { return store_.get(); }
    /// Saves through the store, and notes it for the other contexts and the turn's end.
    [[nodiscard]] std::optional<NSError> save(const ChangeSet& changes);
    /// Counts the saves, so that a context knows when another has saved.
    std::uint64_t generation() const { return generation_; }

private:
    const NSManagedObjectModel& model_;
    std::unique_ptr<NSPersistentStore> store_;
    std::uint64_t generation_ = 1;
    bool savedThisTurn_ = false;
    // Outlives this object in the hook of the main queue, which asks it whether to act.
    std::shared_ptr<NSPersistentStoreCoordinator*> self_;
};

}  // namespace gexlo
