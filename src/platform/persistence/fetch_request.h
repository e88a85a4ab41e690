// Which objects of an entity are wanted, and in which order.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/object.h"

namespace gexlo {

class NSManagedObject;

/// "key == value".
struct NSPredicate {
    std::string key;
    Object value;

    bool evaluateWithObject(const NSManagedObject& object) const;
};

struct NSSortDescriptor {
    std::string key;
    bool ascending = true;
};

struct NSFetchRequest {
    std::string entityName;
    std::optional<NSPredicate> predicate{};
    std::optional<NSSortDescriptor> sortDescriptor{};
};

/// Sorts on the key; an absent value comes before every other, equals keep their order.
void sortObjects(std::vector<NSManagedObject*>& objects, const NSSortDescriptor& descriptor);

}  // namespace gexlo
