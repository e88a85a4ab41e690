// The platform's values as the driver's JSON.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/foundation/object.h"
#include "platform/persistence/managed_object_context.h"

namespace gexlo {

/// Dates as seconds since 1970, bytes in base64, absent as null.
nlohmann::json jsonFromObject(const Object& object);
nlohmann::json jsonFromDictionary(const NSDictionary& dictionary);
std::string base64FromData(const NSData& data);

/// Every entity by its name: its objects with the attributes that are set, and for each
/// relationship a list of references "Entity/n", n being the place in that entity's list.
/// Sees what is unsaved. Null when the store cannot be read.
nlohmann::json jsonFromStore(NSManagedObjectContext& context);

}  // namespace gexlo
