#include "platform/persistence/store_rows.h"

#include <sqlite3.h>

#include <string_view>

#include "platform/foundation/string_format.h"
#include "platform/foundation/utf8.h"

namespace gexlo {

namespace {

std::string_view columnBytes(sqlite3_stmt* row, int column) {
    const void* bytes = sqlite3_column_blob(row, column);
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    return {static_cast<const char*>(bytes), length};
}

}  // namespace

std::vector<const RelationshipDescription*> columnRelationships(const EntityDescription& entity) {
    std::vector<const RelationshipDescription*> relationships;
    for (const RelationshipDescription& relationship : entity.relationships) {
        if (relationship.hasColumn) relationships.push_back(&relationship);
    }
    return relationships;
}

StoreRows::StoreRows(const NSPersistentStore& store, const EntityDescription& entity)
    : store_(store), entity_(entity) {
    if (!store.hasTable(entity)) return;
    std::string sql = std::string("SELECT ") + kRowKeyColumn;
    const auto append = [&](const char* name) {
        sql += "," + (store.hasColumn(entity, name) ? sqlName(name) : "NULL");
    };
    for (const AttributeDescription& attribute : entity.attributes)
        append(attribute.name);
    for (const auto* relationship : columnRelationships(entity))
        append(relationship->name);
    sql += " FROM " + sqlName(entity.name) + " ORDER BY " + kRowKeyColumn;
    statement_ = prepare(store.database(), sql);
    if (!statement_) error_ = databaseError(store.database());
}

bool StoreRows::next() {
    if (error_ || !statement_) return false;
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) {
        rowKey_ = sqlite3_column_int64(statement_.get(), 0);
        if (rowKey_ < 1 || rowKey_ > kLargestInteger) reject(kRowKeyColumn);
        return !error_;
    }
    if (result != SQLITE_DONE) error_ = databaseError(store_.database());
    return false;
}

bool StoreRows::fill(NSManagedObject& object) {
    int column = 0;
    for (const AttributeDescription& attribute : entity_.attributes) {
        if (fillAttribute(object, attribute, ++column)) continue;
        reject(attribute.name);
        return false;
    }
    for (const auto* relationship : columnRelationships(entity_)) {
        const int type = sqlite3_column_type(statement_.get(), ++column);
        if (type == SQLITE_INTEGER || type == SQLITE_NULL) continue;
        reject(relationship->name);
        return false;
    }
    return true;
}

bool StoreRows::fillAttribute(NSManagedObject& object, const AttributeDescription& attribute,
                              int column) {
    sqlite3_stmt* row = statement_.get();
    const int type = sqlite3_column_type(row, column);
    return detail::withAttributeType(attribute.type, [&](auto* typed) {
        using T = std::remove_pointer_t<decltype(typed)>;
        auto& member = detail::attributeAt<T>(object, attribute);
        if (type == SQLITE_NULL) {
            if (member.isSet()) member.unload();
            return true;
        }
        if constexpr (std::is_same_v<T, bool>) {
            member.load(sqlite3_column_int(row, column) != 0);
            return type == SQLITE_INTEGER;
        } else if constexpr (std::is_same_v<T, NSInteger>) {
            const NSInteger number = sqlite3_column_int64(row, column);
            member.load(number);
            return type == SQLITE_INTEGER && number >= -kLargestInteger &&
                   number <= kLargestInteger;
        } else if constexpr (std::is_same_v<T, float>) {
            member.load(static_cast<float>(sqlite3_column_double(row, column)));
            return type == SQLITE_FLOAT || type == SQLITE_INTEGER;
        } else if constexpr (std::is_same_v<T, NSDate>) {
            member.load(NSDate::dateWithTimeIntervalSince1970(sqlite3_column_double(row, column)));
            return type == SQLITE_FLOAT || type == SQLITE_INTEGER;
        } else if constexpr (std::is_same_v<T, std::string>) {
            const std::string_view text = columnBytes(row, column);
            member.load(std::string(text));
            return type == SQLITE_TEXT && isValidUtf8(text);
        } else {
            const std::string_view bytes = columnBytes(row, column);
            member.load(NSData(bytes.begin(), bytes.end()));
            return type == SQLITE_BLOB;
        }
    });
}

std::optional<NSInteger> StoreRows::foreignKey(std::size_t n) const {
    const int column = static_cast<int>(1 + entity_.attributes.size() + n);
    if (sqlite3_column_type(statement_.get(), column) != SQLITE_INTEGER) return std::nullopt;
    return sqlite3_column_int64(statement_.get(), column);
}

void StoreRows::reject(const char* what) {
    error_ =
        NSError{kCocoaErrorDomain,
                kInvalidRow,
                {{"NSValidationErrorObject", stringWithFormat("%@ %ld", entity_.name, rowKey_)},
                 {"NSValidationErrorKey", what}}};
}

}  // namespace gexlo
