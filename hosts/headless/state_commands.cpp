// What the application keeps: store, settings, keychain and log.
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "hosts/headless/json_values.h"
#include "platform/foundation/user_defaults.h"
#include "platform/foundation/utf8.h"
#include "platform/services/keychain.h"
#include "store/data_manager.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// Secrets are texts in this system; one that is not comes in base64.
json jsonFromSecret(const Object& secret) {
    const NSData* data = secret.as<NSData>();
    if (!data) return jsonFromObject(secret);
    const std::string text(data->begin(), data->end());
    return isValidUtf8(text) ? json(text) : json{{"base64", base64FromData(*data)}};
}

json store(const DriverContext&, const json&) {
    json store = jsonFromStore(*GXDataManager::manager().managedObjectContext());
    if (store.is_null()) throw CommandError("the store cannot be read");
    return {{"store", std::move(store)}};
}

json defaults(const DriverContext&, const json&) {
    json suites = json::object();
    for (const auto& [name, values] : userDefaultSuites())
        suites[name] = jsonFromDictionary(values);
    return {{"standard",
             jsonFromDictionary(NSUserDefaults::standardUserDefaults().dictionaryRepresentation())},
            {"suites", std::move(suites)}};
}

json keychain(const DriverContext&, const json&) {
    json items = json::array();
    for (const NSDictionary& item : keychainItems()) {
        json shown = json::object();
        for (const auto& [key, value] : item) {
            shown[key == kSecValueData ? "data" : key] = jsonFromSecret(value);
        }
        items.push_back(std::move(shown));
    }
    return {{"items", std::move(items)}};
}

json log(const DriverContext& context, const json&) {
    return {{"lines", context.device.log().take()}};
}

}  // namespace

std::span<const DriverCommand> stateCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"store", store},
        {"defaults", defaults, false},
        {"keychain", keychain, false},
        {"log", log, false},
    };
    return kCommands;
}

}  // namespace gexlo
