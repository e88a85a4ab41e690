#include "platform/persistence/persistent_store_coordinator.h"

#include <string_view>
#include <utility>

#include "platform/foundation/device.h"
#include "platform/persistence/managed_object_context.h"

namespace gexlo {

NSPersistentStoreCoordinator::NSPersistentStoreCoordinator(const NSManagedObjectModel& model)
    : model_(model), self_(std::make_shared<NSPersistentStoreCoordinator*>(this)) {
    // What a person has seen done at the end of a turn survives a power cut as well.
    Device::current().mainQueue().atEndOfTurn([weak = std::weak_ptr(self_)] {
        const auto self = weak.lock();
        if (!self || !std::exchange((*self)->savedThisTurn_, false)) return;
        if (NSPersistentStore* store = (*self)->store()) store->checkpoint();
    });
}

NSPersistentStoreCoordinator::~NSPersistentStoreCoordinator() = default;

std::optional<NSError> NSPersistentStoreCoordinator::addPersistentStoreWithType_URL_options(
    const char* type, const std::filesystem::path& url, const StoreOptions& options) {
    if (std::string_view(type) != NSSQLiteStoreType) {
        return NSError{kCocoaErrorDomain, kPersistentStoreInvalidType, {{"NSStoreType", type}}};
    }
    NSError error;
    const bool mayLackColumns =
        options.migratePersistentStoresAutomatically && options.inferMappingModelAutomatically;
    store_ = NSPersistentStore::open(url, model_, mayLackColumns, error);
    if (!store_) return error;
    return std::nullopt;
}

NSPersistentStore* NSPersistentStoreCoordinator::persistentStoreForURL(
    const std::filesystem::path& url) const {
    return store_ && store_->url() == url ? store_.get() : nullptr;
}

std::optional<NSError> NSPersistentStoreCoordinator::migratePersistentStore_toURL_options_withType(
    NSPersistentStore& store, const std::filesystem::path& url, const StoreOptions& options,
    const char* type) {
    if (store.url() == url) return std::nullopt;
    std::optional<NSError> error;
    const bool hasRows = store.hasRows();
    // A row that cannot be read would make the other file unreadable too.
    if (hasRows) NSManagedObjectContext(*this).executeFetchRequest({}, error);
    const std::unique_ptr<NSPersistentStore> source = std::move(store_);
    ++generation_;
    if (!error) error = addPersistentStoreWithType_URL_options(type, url, options);
    if (!error && hasRows) error = store_->takeRowsOf(*source);
    if (!error && hasRows && !store_->checkpoint()) error = databaseError(store_->database());
    if (error) store_.reset();
    return error;
}

std::optional<NSError> NSPersistentStoreCoordinator::save(const ChangeSet& changes) {
    if (!store_) return NSError{kCocoaErrorDomain, kNoPersistentStores, {}};
    if (auto error = store_->save(changes)) return error;
    savedThisTurn_ = true;
    ++generation_;
    return std::nullopt;
}

}  // namespace gexlo
