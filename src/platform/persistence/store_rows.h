// Reads the rows of one entity into objects, checking each value on its way.
#pragma once

#include <optional>
#include <string>

#include "platform/persistence/managed_object.h"
#include "platform/persistence/persistent_store.h"

namespace gexlo {

class StoreRows {
public:
    /// All rows in the order of their keys.
    StoreRows(const NSPersistentStore& store, const EntityDescription& entity);

    /// Goes to the next row; false at the end and after an error.
    bool next();
    NSInteger rowKey() const { return rowKey_; }
    /// Reads the row's attributes; false when one is not of its kind.
    bool fill(NSManagedObject& object);
    /// The row key that a to-one refers to; nothing for none. The n-th of those with a column.
    std::optional<NSInteger> foreignKey(std::size_t n) const;

    const std::optional<NSError>& error() const { return error_; }

private:
    bool fillAttribute(NSManagedObject& object, const AttributeDescription& attribute, int column);
    void reject(const char* what);

    const NSPersistentStore& store_;
    const EntityDescription& entity_;
    Statement statement_;
    NSInteger rowKey_ = 0;
    std::optional<NSError> error_;
};

/// The relationships that have a column, in the order of the columns.
std::vector<const RelationshipDescription*> columnRelationships(const EntityDescription& entity);

}  // namespace gexlo
