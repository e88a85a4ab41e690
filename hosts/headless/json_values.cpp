#include "hosts/headless/json_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace gexlo {

using nlohmann::json;

namespace {

struct JsonMaker {
    json operator()(std::monostate) const { return nullptr; }
    json operator()(bool value) const { return value; }
    json operator()(NSInteger value) const { return value; }
    json operator()(double value) const { return value; }
    json operator()(const std::string& value) const { return value; }
    json operator()(NSDate value) const { return value.timeIntervalSince1970(); }
    json operator()(const NSData& value) const { return base64FromData(value); }
    json operator()(const NSArray& value) const {
        json list = json::array();
        for (const Object& element : value)
            list.push_back(jsonFromObject(element));
        return list;
    }
    json operator()(const NSSet& value) const { return (*this)(value.members); }
    json operator()(const NSDictionary& value) const { return jsonFromDictionary(value); }
    json operator()(const std::shared_ptr<NSCoding>&) const { return nullptr; }
};

/// A float as the decimal number that it was written as: 0.8, not 0.800000011920929.
json jsonFromFloat(double value) {
    json number = json::parse(fmt::format("{}", static_cast<float>(value)), nullptr, false);
    return number.is_discarded() ? json() : number;  // not a number, or infinite
}

using Places = std::map<const NSManagedObject*, std::size_t>;

json jsonFromManagedObject(const NSManagedObject& object, const Places& places) {
    json result = json::object();
    const EntityDescription& entity = object.entityDescription();
    for (const AttributeDescription& attribute : entity.attributes) {
        const Object value = object.valueForKey(attribute.name);
        if (value.isAbsent()) continue;
        result[attribute.name] = attribute.type == AttributeType::real
                                     ? jsonFromFloat(value.doubleValue())
                                     : jsonFromObject(value);
    }
    for (const RelationshipDescription& relationship : entity.relationships) {
        json references = json::array();
        for (const NSManagedObject* target : object.objectsForKey(relationship.name)) {
            references.push_back(std::string(relationship.destinationName) + "/" +
                                 std::to_string(places.at(target)));
        }
        result[relationship.name] = std::move(references);
    }
    return result;
}

}  // namespace

std::string base64FromData(const NSData& data) {
    static constexpr char kDigits[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < data.size(); i += 3) {
        const std::size_t left = std::min<std::size_t>(3, data.size() - i);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < left ? data[i + k] : 0U);
        for (std::size_t k = 0; k < 4; ++k) {
            text += k <= left ? kDigits[bits >> (18 - 6 * k) & 0x3F] : '=';
        }
    }
    return text;
}

json jsonFromObject(const Object& object) {
    return std::visit(JsonMaker{}, object.value());
}

json jsonFromDictionary(const NSDictionary& dictionary) {
    json result = json::object();
    for (const auto& [key, value] : dictionary)
        result[key] = jsonFromObject(value);
    return result;
}

json jsonFromStore(NSManagedObjectContext& context) {
    const auto& entities = context.persistentStoreCoordinator().managedObjectModel().entities();
    std::vector<std::vector<NSManagedObject*>> rows;
    Places places;
    for (const EntityDescription& entity : entities) {
        std::optional<NSError> error;
        rows.push_back(context.executeFetchRequest({.entityName = entity.name}, error));
        if (error) return nullptr;
        for (std::size_t i = 0; i < rows.back().size(); ++i)
            places[rows.back()[i]] = i;
    }
    json store = json::object();
    for (std::size_t i = 0; i < entities.size(); ++i) {
        json list = json::array();
        for (const NSManagedObject* object : rows[i])
            list.push_back(jsonFromManagedObject(*object, places));
        store[entities[i].name] = std::move(list);
    }
    return store;
}

}  // namespace gexlo
