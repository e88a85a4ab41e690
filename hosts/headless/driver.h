// Plays the application by commands, one JSON object in and one out.
#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace gexlo {

/// Works on the device that is installed. Whatever the line holds, it answers: with
/// `"ok": true` and what was asked, or with `"ok": false` and an error, and then nothing
/// has changed.
class Driver {
public:
    /// Lines longer than this are refused.
    static constexpr std::size_t kLongestLine = std::size_t{64} << 20;

    /// The answer to a line, without a line break.
    std::string answer(std::string_view line);
    /// The end of input: terminates the application as the platform would.
    void end();

private:
    struct Command;
    static const Command* commandNamed(std::string_view name);

    nlohmann::json launch(const nlohmann::json& fields);
    nlohmann::json background(const nlohmann::json& fields);
    nlohmann::json foreground(const nlohmann::json& fields);
    nlohmann::json advance(const nlohmann::json& fields);
    nlohmann::json store(const nlohmann::json& fields);
    nlohmann::json defaults(const nlohmann::json& fields);
    nlohmann::json keychain(const nlohmann::json& fields);
    nlohmann::json log(const nlohmann::json& fields);

    bool hasLaunched_ = false;
    bool isInBackground_ = false;
};

}  // namespace gexlo
