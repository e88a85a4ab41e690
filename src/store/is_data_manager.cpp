#include "store/is_data_manager.h"

#include "platform/foundation/log.h"

namespace gexlo {

namespace {

[[noreturn]] void unresolved(const NSError& error) {
    fatal(stringWithFormat("Unresolved error %@, %@", error.description(),
                           error.userInfoDescription()));
}

}  // namespace

void saveOrDie(NSManagedObjectContext& context) {
    if (!context.hasChanges()) return;
    if (const auto error = context.save()) unresolved(*error);
}

void ISDataManager::saveContext() {
    if (context_) saveOrDie(*context_);
}

void ISDataManager::refreshObject(NSManagedObject& object) {
    if (context_) context_->refreshObject_mergeChanges(object, true);
}

NSManagedObject& ISDataManager::addNewDataWithEntityName(std::string_view entityName) {
    NSManagedObject* object = context_->insertNewObjectForEntityForName(entityName);
    if (!object) fatal(stringWithFormat("There is no entity \"%@\"", entityName));
    return *object;
}

void ISDataManager::removeData(NSManagedObject& object) {
    if (!context_) return;
    context_->deleteObject(object);
    saveContext();
}

std::vector<NSManagedObject*> ISDataManager::fetched(const NSFetchRequest& request) {
    if (!context_) return {};
    std::optional<NSError> error;
    std::vector<NSManagedObject*> objects = context_->executeFetchRequest(request, error);
    if (error) unresolved(*error);
    return objects;
}

std::vector<NSManagedObject*> ISDataManager::dataListWithEntityName(std::string_view entityName) {
    return fetched({.entityName = std::string(entityName)});
}

std::vector<NSManagedObject*> ISDataManager::dataListWithEntityName_andPredicate(
    std::string_view entityName, NSPredicate predicate) {
    return fetched({.entityName = std::string(entityName), .predicate = std::move(predicate)});
}

std::vector<NSManagedObject*> ISDataManager::dataListWithEntityName_sortingKey_ascending(
    std::string_view entityName, std::string_view key, bool ascending) {
    return fetched({.entityName = std::string(entityName),
                    .sortDescriptor = NSSortDescriptor{std::string(key), ascending}});
}

}  // namespace gexlo
