#include "hosts/headless/driver.h"

#include "hosts/headless/driver_command.h"

namespace gexlo {

using nlohmann::json;

namespace {

const DriverCommand* commandNamed(std::string_view name) {
    for (const auto& table :
         {applicationCommands(), stateCommands(), notificationCommands(), viewCommands(),
          tableCommands(), alertCommands(), typingCommands(), sendingCommands()}) {
        for (const DriverCommand& command : table) {
            if (command.name == name) return &command;
        }
    }
    return nullptr;
}

json run(std::string_view line, const DriverHost& host) {
    if (line.size() > Driver::kLongestLine) throw CommandError("the line is too long");
    const json fields = json::parse(line, nullptr, false);
    const bool hasZero = line.find('\0') != line.npos;  // the end, to the parser
    if (fields.is_discarded() || hasZero) throw CommandError("the line is not JSON");
    if (!fields.is_object()) throw CommandError("the line is no JSON object");
    const std::string name = textField(fields, "cmd");
    const DriverCommand* command = commandNamed(name);
    if (!command) throw CommandError("unknown command \"" + name + "\"");
    const DriverContext context{.device = Device::current(),
                                .application = UIApplication::sharedApplication(),
                                .host = host};
    if (command->needsLaunch &&
        context.application.applicationState() == UIApplicationState::notRunning) {
        throw CommandError("the application was not launched");
    }
    Device& device = context.device;
    if (!device.clock().stands()) device.mainQueue().runDue();
    std::unique_lock held(device.lock(), std::defer_lock);
    if (command->holdsDevice) held.lock();
    return command->run(context, fields);
}

}  // namespace

std::string Driver::answer(std::string_view line) {
    json answer;
    try {
        answer = run(line, host_);
        answer["ok"] = true;
    } catch (const CommandError& error) {
        answer = {{"ok", false}, {"error", error.what()}};
    }
    // Texts come from files too; an ill-formed one must not silence the answer.
    return answer.dump(-1, ' ', false, json::error_handler_t::replace);
}

void Driver::end() {
    UIApplication::sharedApplication().terminate();
}

}  // namespace gexlo
