#include "hosts/headless/driver.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "app/app_delegate.h"
#include "hosts/headless/json_values.h"
#include "platform/foundation/device.h"
#include "platform/foundation/user_defaults.h"
#include "platform/foundation/utf8.h"
#include "platform/services/keychain.h"
#include "store/data_manager.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// A century: no scenario needs more, and each midnight on the way is a turn.
constexpr double kLongestAdvance = 100.0 * 366 * 86400;

json failure(const std::string& error) {
    return {{"ok", false}, {"error", error}};
}
json success() {
    return {{"ok", true}};
}

std::string written(const json& answer) {
    // Texts come from files too; an ill-formed one must not silence the answer.
    return answer.dump(-1, ' ', false, json::error_handler_t::replace);
}

/// Secrets are texts in this system; one that is not comes in base64.
json jsonFromSecret(const Object& secret) {
    const NSData* data = secret.as<NSData>();
    if (!data) return jsonFromObject(secret);
    const std::string text(data->begin(), data->end());
    return isValidUtf8(text) ? json(text) : json{{"base64", base64FromData(*data)}};
}

}  // namespace

struct Driver::Command {
    std::string_view name;
    json (Driver::*run)(const json& fields);
    bool needsLaunch;
};

const Driver::Command* Driver::commandNamed(std::string_view name) {
    static constexpr std::array<Command, 8> kCommands{{
        {"launch", &Driver::launch, false},
        {"background", &Driver::background, true},
        {"foreground", &Driver::foreground, true},
        {"advance", &Driver::advance, false},
        {"store", &Driver::store, true},
        {"defaults", &Driver::defaults, false},
        {"keychain", &Driver::keychain, false},
        {"log", &Driver::log, false},
    }};
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const Command& command) { return command.name == name; });
    return found == kCommands.end() ? nullptr : &*found;
}

std::string Driver::answer(std::string_view line) {
    if (line.size() > kLongestLine) return written(failure("the line is too long"));
    const json fields = json::parse(line, nullptr, false);
    if (fields.is_discarded()) return written(failure("the line is not JSON"));
    if (!fields.is_object()) return written(failure("the line is no JSON object"));
    const auto name = fields.find("cmd");
    if (name == fields.end()) return written(failure("\"cmd\" is missing"));
    if (!name->is_string()) return written(failure("\"cmd\" is no text"));
    const Command* command = commandNamed(name->get_ref<const std::string&>());
    if (!command) return written(failure("unknown command \"" + name->get<std::string>() + "\""));
    if (command->needsLaunch && !hasLaunched_) {
        return written(failure("the application was not launched"));
    }
    Device& device = Device::current();
    if (!device.clock().stands()) device.mainQueue().runDue();
    const std::scoped_lock held(device.lock());
    return written((this->*command->run)(fields));
}

void Driver::end() {
    if (!hasLaunched_) return;
    Device::current().perform([] { GXAppDelegate::delegate().applicationWillTerminate(); });
}

json Driver::launch(const json&) {
    if (hasLaunched_) return failure("the application was launched already");
    hasLaunched_ = true;
    Device::current().perform([] {
        GXAppDelegate::delegate().application_didFinishLaunchingWithOptions();
        GXAppDelegate::delegate().applicationDidBecomeActive();
    });
    return success();
}

json Driver::background(const json&) {
    if (isInBackground_) return failure("the application is in the background already");
    isInBackground_ = true;
    Device::current().perform([] {
        GXAppDelegate::delegate().applicationWillResignActive();
        GXAppDelegate::delegate().applicationDidEnterBackground();
    });
    return success();
}

json Driver::foreground(const json&) {
    if (!isInBackground_) return failure("the application is not in the background");
    isInBackground_ = false;
    Device::current().perform([] {
        GXAppDelegate::delegate().applicationWillEnterForeground();
        GXAppDelegate::delegate().applicationDidBecomeActive();
    });
    return success();
}

json Driver::advance(const json& fields) {
    const auto seconds = fields.find("seconds");
    if (seconds == fields.end()) return failure("\"seconds\" is missing");
    if (!seconds->is_number()) return failure("\"seconds\" is no number");
    const auto amount = seconds->get<double>();
    if (!(amount >= 0 && amount <= kLongestAdvance)) {
        return failure("\"seconds\" lies outside 0 to a century");
    }
    Device& device = Device::current();
    device.mainQueue().advanceTo(device.clock().now().dateByAddingTimeInterval(amount));
    return success();
}

json Driver::store(const json&) {
    json store = jsonFromStore(*GXDataManager::manager().managedObjectContext());
    if (store.is_null()) return failure("the store cannot be read");
    json answer = success();
    answer["store"] = std::move(store);
    return answer;
}

json Driver::defaults(const json&) {
    json answer = success();
    answer["standard"] =
        jsonFromDictionary(NSUserDefaults::standardUserDefaults().dictionaryRepresentation());
    answer["suites"] = json::object();
    for (const auto& [name, values] : userDefaultSuites()) {
        answer["suites"][name] = jsonFromDictionary(values);
    }
    return answer;
}

json Driver::keychain(const json&) {
    json answer = success();
    answer["items"] = json::array();
    for (const NSDictionary& item : keychainItems()) {
        json shown = json::object();
        for (const auto& [key, value] : item) {
            shown[key == kSecValueData ? "data" : key] = jsonFromSecret(value);
        }
        answer["items"].push_back(std::move(shown));
    }
    return answer;
}

json Driver::log(const json&) {
    json answer = success();
    answer["lines"] = Device::current().log().take();
    return answer;
}

}  // namespace gexlo
