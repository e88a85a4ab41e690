// What a command of the driver is, and how it reads its fields.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace gexlo {

struct DriverContext;

/// Answers with its own fields; throws a `CommandError` before it has changed anything.
struct DriverCommand {
    std::string_view name;
    nlohmann::json (*run)(const DriverContext& context, const nlohmann::json& fields);
    bool needsLaunch = true;
    /// Off for one that waits: other threads may need the device for what it waits for.
    bool holdsDevice = true;
};

/// What is wrong with a command, for its answer.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

std::span<const DriverCommand> applicationCommands();
std::span<const DriverCommand> stateCommands();
std::span<const DriverCommand> notificationCommands();
std::span<const DriverCommand> viewCommands();
std::span<const DriverCommand> tableCommands();
std::span<const DriverCommand> alertCommands();
std::span<const DriverCommand> typingCommands();
std::span<const DriverCommand> sendingCommands();

/// The answer of a command that has nothing to tell.
inline nlohmann::json nothing() {
    return nlohmann::json::object();
}

// Fields of a command. Those that must be there throw when they are not, all throw for a value
// of another kind.
double numberField(const nlohmann::json& fields, const char* name);
std::size_t indexField(const nlohmann::json& fields, const char* name);
std::string textField(const nlohmann::json& fields, const char* name);
std::optional<std::string> optionalText(const nlohmann::json& fields, const char* name);
std::optional<std::size_t> optionalIndex(const nlohmann::json& fields, const char* name);
bool flagField(const nlohmann::json& fields, const char* name);
bool flagField(const nlohmann::json& fields, const char* name, bool whenMissing);

}  // namespace gexlo
