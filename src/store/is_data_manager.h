// The generic data layer: one object context with plain operations.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/persistence/managed_object_context.h"

namespace gexlo {

/// A failed save or fetch is fatal: it logs "Unresolved error %@, %@" and ends the process.
class ISDataManager {
public:
    ISDataManager() = default;
    explicit ISDataManager(NSManagedObjectContext* context) : context_(context) {}

    NSManagedObjectContext* context() const { return context_; }
    void setContext(NSManagedObjectContext* context) { context_ = context; }

    /// Saves if there are changes.
    void saveContext();
    /// Reads what others have saved of the object, which keeps its unsaved changes.
    void refreshObject(NSManagedObject& object);

    /// A new object, unsaved. Needs a context.
    NSManagedObject& addNewDataWithEntityName(std::string_view entityName);
    /// Deletes the object with what hangs under it, and saves.
    void removeData(NSManagedObject& object);

    /// All rows; none without a context, as in the other two.
    std::vector<NSManagedObject*> dataListWithEntityName(std::string_view entityName);
    std::vector<NSManagedObject*> dataListWithEntityName_andPredicate(std::string_view entityName,
                                                                      NSPredicate predicate);
    std::vector<NSManagedObject*> dataListWithEntityName_sortingKey_ascending(
        std::string_view entityName, std::string_view key, bool ascending);

    /// The same operations by class.
    template <typename T>
    T& addNewData() {
        return static_cast<T&>(addNewDataWithEntityName(T::entity.name));
    }
    template <typename T>
    std::vector<T*> dataList() {
        return typed<T>(dataListWithEntityName(T::entity.name));
    }
    template <typename T>
    T* firstData(const NSPredicate& predicate) {
        const auto list = dataListWithEntityName_andPredicate(T::entity.name, predicate);
        return list.empty() ? nullptr : static_cast<T*>(list.front());
    }

protected:
    template <typename T>
    static std::vector<T*> typed(const std::vector<NSManagedObject*>& objects) {
        std::vector<T*> list;
        list.reserve(objects.size());
        for (NSManagedObject* object : objects)
            list.push_back(static_cast<T*>(object));
        return list;
    }

private:
    std::vector<NSManagedObject*> fetched(const NSFetchRequest& request);

    NSManagedObjectContext* context_ = nullptr;
};

/// Saves a context that has changes; a failure is fatal.
void saveOrDie(NSManagedObjectContext& context);

}  // namespace gexlo
