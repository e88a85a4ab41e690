// The object graph in memory, one object a row.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/persistence/fetch_request.h"
#include "platform/persistence/managed_object.h"
#include "platform/persistence/persistent_store_coordinator.h"

namespace gexlo {

/// Owns its objects. It works on the main queue; a fetch sees unsaved changes of its own,
/// and of another context what that has saved. An object that both changed stays as it is in
/// memory: of `NSMergeByPropertyObjectTrumpMergePolicy` this is the part that one person on
/// one device can meet.
class NSManagedObjectContext {
public:
    explicit NSManagedObjectContext(NSPersistentStoreCoordinator& coordinator);
    ~NSManagedObjectContext();
    NSManagedObjectContext(const NSManagedObjectContext&) = delete;
    NSManagedObjectContext& operator=(const NSManagedObjectContext&) = delete;

    NSPersistentStoreCoordinator& persistentStoreCoordinator() const { return coordinator_; }

    /// A new object of the entity, unsaved; null for a name that is none.
    NSManagedObject* insertNewObjectForEntityForName(std::string_view entityName);
    /// Takes the object out of all relationships, and what hangs under it along with it.
    void deleteObject(NSManagedObject& object);

    /// The objects that match, by row without a sort descriptor. On a failure `error` is set
    /// and there are none.
    std::vector<NSManagedObject*> executeFetchRequest(const NSFetchRequest& request,
                                                      std::optional<NSError>& error);

    bool hasChanges() const;
    /// One transaction. What went wrong, and then nothing was written and the changes stand.
    [[nodiscard]] std::optional<NSError> save();

    /// Reads what others have saved. With `mergeChanges` the object keeps unsaved changes;
    /// without, it goes back to what is in the store.
    void refreshObject_mergeChanges(NSManagedObject& object, bool mergeChanges);

private:
    friend class NSManagedObject;
    using Rows = std::vector<std::unique_ptr<NSManagedObject>>;  // by row key

    void markUpdated(NSManagedObject& object);
    [[nodiscard]] std::optional<NSError> catchUp();
    [[nodiscard]] std::optional<NSError> readEntity(const EntityDescription& entity);
    [[nodiscard]] std::optional<NSError> link();
    void linkOtherSides();
    void forgetAll();
    void buryUnseen(const EntityDescription& entity);
    NSManagedObject* objectWithKey(const EntityDescription& entity, NSInteger rowKey) const;
    static Rows::const_iterator rowAt(const Rows& rows, NSInteger rowKey);
    bool isRemovedHere(const EntityDescription& entity, NSInteger rowKey) const;
    std::unique_ptr<NSManagedObject> made(const EntityDescription& entity, NSInteger rowKey);
    void bury(NSManagedObject& object);

    /// A to-one as read, until every object is there to be linked.
    struct PendingLink {
        NSManagedObject* owner;
        const RelationshipDescription* relationship;
        NSInteger targetKey;
    };

    NSPersistentStoreCoordinator& coordinator_;
    std::vector<Rows> rows_;  // by entity
    Rows shells_;
    std::vector<NSManagedObject*> inserted_;
    std::vector<NSManagedObject*> updated_;
    std::vector<RemovedRow> removed_;
    std::vector<PendingLink> pendingLinks_;
    const NSPersistentStore* readFrom_ = nullptr;
    std::uint64_t generation_ = 0;  // of the coordinator, when last read; 0 never
};

}  // namespace gexlo
