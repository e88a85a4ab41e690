#include "platform/persistence/managed_object_context.h"

#include <algorithm>

#include "platform/foundation/string_format.h"
#include "platform/persistence/store_rows.h"

namespace gexlo {

NSManagedObjectContext::NSManagedObjectContext(NSPersistentStoreCoordinator& coordinator)
    : coordinator_(coordinator), rows_(coordinator.managedObjectModel().entities().size()) {}

NSManagedObjectContext::~NSManagedObjectContext() = default;

/// Where the row with that key stands, or would stand.
NSManagedObjectContext::Rows::const_iterator NSManagedObjectContext::rowAt(const Rows& rows,
                                                                           NSInteger rowKey) {
    if (rows.empty() || rows.back()->rowKey_ < rowKey) return rows.end();
    return std::lower_bound(rows.begin(), rows.end(), rowKey,
                            [](const auto& row, NSInteger key) { return row->rowKey_ < key; });
}

bool NSManagedObjectContext::isRemovedHere(const EntityDescription& entity,
                                           NSInteger rowKey) const {
    return std::any_of(removed_.begin(), removed_.end(), [&](const RemovedRow& row) {
        return row.entity == &entity && row.rowKey == rowKey;
    });
}

std::unique_ptr<NSManagedObject> NSManagedObjectContext::made(const EntityDescription& entity,
                                                              NSInteger rowKey) {
    auto object = entity.make();
    object->context_ = this;
    object->entity_ = &entity;
    object->rowKey_ = rowKey;
    return object;
}

NSManagedObject* NSManagedObjectContext::insertNewObjectForEntityForName(
    std::string_view entityName) {
    const EntityDescription* entity = coordinator_.managedObjectModel().entity(entityName);
    if (!entity) return nullptr;
    // A store that cannot be read says so at the next fetch or save.
    (void)catchUp();
    Rows& rows = rows_[entity->index];
    NSPersistentStore* store = coordinator_.store();
    const NSInteger last = rows.empty() ? 0 : rows.back()->rowKey_;
    rows.push_back(made(*entity, store ? store->takeRowKey(*entity) : last + 1));
    NSManagedObject& object = *rows.back();
    object.state_ = NSManagedObject::State::inserted;
    inserted_.push_back(&object);
    return &object;
}

void NSManagedObjectContext::markUpdated(NSManagedObject& object) {
    object.state_ = NSManagedObject::State::updated;
    updated_.push_back(&object);
}

void NSManagedObjectContext::deleteObject(NSManagedObject& object) {
    if (object.isDeleted() || object.context_ != this) return;
    for (const RelationshipDescription& relationship : object.entity_->relationships) {
        RelationshipMember& member = RelationshipMember::of(object, relationship);
        const auto linked = member.targets(relationship.toMany);
        const std::vector<NSManagedObject*> targets(linked.begin(), linked.end());
        for (NSManagedObject* target : targets) {
            member.unlink(*target);
            if (relationship.deleteRule == DeleteRule::cascade) deleteObject(*target);
        }
    }
    if (object.state_ != NSManagedObject::State::inserted) {
        removed_.push_back({object.entity_, object.rowKey_});
    }
    std::erase(inserted_, &object);
    std::erase(updated_, &object);
    bury(object);
}

/// Turns the object into an empty shell.
void NSManagedObjectContext::bury(NSManagedObject& object) {
    object.state_ = NSManagedObject::State::removed;
    for (const AttributeDescription& attribute : object.entity_->attributes) {
        object.setValue_forKey({}, attribute.name);
    }
    for (const RelationshipDescription& relationship : object.entity_->relationships) {
        RelationshipMember::of(object, relationship).empty(relationship.toMany);
    }
    Rows& rows = rows_[object.entity_->index];
    const auto at = rowAt(rows, object.rowKey_);
    shells_.push_back(std::move(rows[static_cast<std::size_t>(at - rows.begin())]));
    rows.erase(at);
}

std::vector<NSManagedObject*> NSManagedObjectContext::executeFetchRequest(
    const NSFetchRequest& request, std::optional<NSError>& error) {
    error = catchUp();
    const EntityDescription* entity = coordinator_.managedObjectModel().entity(request.entityName);
    if (error || !entity) return {};
    std::vector<NSManagedObject*> objects;
    for (const auto& row : rows_[entity->index]) {
        if (!request.predicate || request.predicate->evaluateWithObject(*row)) {
            objects.push_back(row.get());
        }
    }
    if (request.sortDescriptor) sortObjects(objects, *request.sortDescriptor);
    return objects;
}

bool NSManagedObjectContext::hasChanges() const {
    return !inserted_.empty() || !updated_.empty() || !removed_.empty();
}

std::optional<NSError> NSManagedObjectContext::save() {
    if (!hasChanges()) return std::nullopt;
    if (auto error = catchUp()) return error;
    const ChangeSet changes{
        {inserted_.begin(), inserted_.end()}, {updated_.begin(), updated_.end()}, removed_};
    if (auto error = coordinator_.save(changes)) return error;
    for (auto* list : {&inserted_, &updated_}) {
        for (NSManagedObject* object : *list)
            object->state_ = NSManagedObject::State::clean;
        list->clear();
    }
    removed_.clear();
    generation_ = coordinator_.generation();
    return std::nullopt;
}

void NSManagedObjectContext::refreshObject_mergeChanges(NSManagedObject& object,
                                                        bool mergeChanges) {
    if (object.isDeleted() || object.context_ != this) return;
    if (!mergeChanges && object.state_ == NSManagedObject::State::updated) {
        std::erase(updated_, &object);
        object.state_ = NSManagedObject::State::clean;
        generation_ = 0;  // reads all anew, this object with it
    }
    // A store that cannot be read says so at the next fetch.
    (void)catchUp();
}

/// Reads the graph if it was never read or another context has saved since. What has
/// unsaved changes here stays as it is.
std::optional<NSError> NSManagedObjectContext::catchUp() {
    if (!coordinator_.store()) return NSError{kCocoaErrorDomain, kNoPersistentStores, {}};
    if (generation_ == coordinator_.generation()) return std::nullopt;
    if (readFrom_ && readFrom_ != coordinator_.store()) forgetAll();
    readFrom_ = coordinator_.store();
    for (const EntityDescription& entity : coordinator_.managedObjectModel().entities()) {
        if (auto error = readEntity(entity)) return error;
    }
    for (const EntityDescription& entity : coordinator_.managedObjectModel().entities()) {
        buryUnseen(entity);
    }
    if (auto error = link()) return error;
    generation_ = coordinator_.generation();
    return std::nullopt;
}

NSManagedObject* NSManagedObjectContext::objectWithKey(const EntityDescription& entity,
                                                       NSInteger rowKey) const {
    const Rows& rows = rows_[entity.index];
    // Where no row was ever removed, a row's place is its key. A damaged one may be any number.
    const std::size_t guess = static_cast<std::size_t>(rowKey) - 1;
    if (guess < rows.size() && rows[guess]->rowKey_ == rowKey) return rows[guess].get();
    const auto at = rowAt(rows, rowKey);
    return at != rows.end() && (*at)->rowKey_ == rowKey ? at->get() : nullptr;
}

std::optional<NSError> NSManagedObjectContext::readEntity(const EntityDescription& entity) {
    Rows& rows = rows_[entity.index];
    const bool firstTime = generation_ == 0 && rows.empty();
    for (const auto& row : rows)
        row->seenInStore_ = false;
    const auto relationships = columnRelationships(entity);
    StoreRows reader(*coordinator_.store(), entity);
    while (reader.next()) {
        NSManagedObject* object = firstTime ? nullptr : objectWithKey(entity, reader.rowKey());
        if (!object) {
            if (isRemovedHere(entity, reader.rowKey())) continue;
            auto added = made(entity, reader.rowKey());
            added->state_ = NSManagedObject::State::clean;
            object = added.get();
            rows.insert(rowAt(rows, reader.rowKey()), std::move(added));
        }
        object->seenInStore_ = true;
        if (object->state_ != NSManagedObject::State::clean) continue;
        if (!reader.fill(*object)) break;
        for (std::size_t i = 0; i < relationships.size(); ++i) {
            RelationshipMember::of(*object, *relationships[i]).empty(false);
            if (const auto key = reader.foreignKey(i)) {
                pendingLinks_.push_back({object, relationships[i], *key});
            }
        }
    }
    return reader.error();
}

/// The coordinator works on another file now: row keys mean other objects there.
void NSManagedObjectContext::forgetAll() {
    for (Rows& rows : rows_) {
        while (!rows.empty())
            bury(*rows.back());
    }
    inserted_.clear();
    updated_.clear();
    removed_.clear();
    generation_ = 0;
}

/// Sets the to-ones that were read, then every other side from them.
std::optional<NSError> NSManagedObjectContext::link() {
    const std::vector<PendingLink> pending = std::move(pendingLinks_);
    pendingLinks_.clear();
    std::vector<NSManagedObject*> orphans;
    for (const auto& [owner, relationship, targetKey] : pending) {
        if (NSManagedObject* target = objectWithKey(*relationship->destination, targetKey)) {
            RelationshipMember::of(*owner, *relationship).attach(*target, false);
        } else if (isRemovedHere(*relationship->destination, targetKey)) {
            // Another context hung it under an object that is removed here.
            owner->willChange();
            const auto* there = relationship->inverse;
            if (there && there->deleteRule == DeleteRule::cascade) orphans.push_back(owner);
        } else {
            const std::string row =
                stringWithFormat("%@ %ld", owner->entity_->name, owner->rowKey_);
            return NSError{
                kCocoaErrorDomain,
                kInvalidRow,
                {{"NSValidationErrorObject", row}, {"NSValidationErrorKey", relationship->name}}};
        }
    }
    linkOtherSides();
    for (NSManagedObject* orphan : orphans)
        deleteObject(*orphan);
    return std::nullopt;
}

void NSManagedObjectContext::linkOtherSides() {
    const auto& entities = coordinator_.managedObjectModel().entities();
    for (const EntityDescription& entity : entities) {
        for (const RelationshipDescription& relationship : entity.relationships) {
            if (relationship.hasColumn) continue;
            for (const auto& row : rows_[entity.index]) {
                RelationshipMember::of(*row, relationship).empty(relationship.toMany);
            }
        }
    }
    for (const EntityDescription& entity : entities) {
        for (const RelationshipDescription* here : columnRelationships(entity)) {
            const RelationshipDescription* there = here->inverse;
            if (!there) continue;
            for (const auto& row : rows_[entity.index]) {
                const auto targets = RelationshipMember::of(*row, *here).targets(false);
                if (targets.empty()) continue;
                RelationshipMember& otherSide = RelationshipMember::of(*targets.front(), *there);
                // Of two rows that claim one place the later has it.
                const auto former = otherSide.targets(there->toMany);
                if (!there->toMany && !former.empty()) otherSide.unlink(*former.front());
                otherSide.attach(*row, there->toMany);
            }
        }
    }
}

/// Objects that another context removed.
void NSManagedObjectContext::buryUnseen(const EntityDescription& entity) {
    std::vector<NSManagedObject*> gone;
    for (const auto& row : rows_[entity.index]) {
        if (!row->seenInStore_ && row->state_ != NSManagedObject::State::inserted) {
            gone.push_back(row.get());
        }
    }
    // Links are set anew after this, but for those of objects with unsaved changes.
    for (NSManagedObject* object : gone) {
        for (const RelationshipDescription& relationship : object->entity_->relationships) {
            RelationshipMember& member = RelationshipMember::of(*object, relationship);
            const auto linked = member.targets(relationship.toMany);
            if (!relationship.inverse) continue;
            for (NSManagedObject* target : linked) {
                RelationshipMember::of(*target, *relationship.inverse)
                    .detach(*object, relationship.inverse->toMany);
            }
        }
        std::erase(updated_, object);
        bury(*object);
    }
}

}  // namespace gexlo
