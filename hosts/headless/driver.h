// Plays the application by commands, one JSON object in and one out.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace gexlo {

struct DriverCommand;

/// Works on the device that is installed. Whatever the line holds, it answers: with
/// `"ok": true` and what was asked, or with `"ok": false` and an error, and then nothing
/// has changed.
class Driver {
public:
    /// Lines longer than this are refused.
    static constexpr std::size_t kLongestLine = std::size_t{64} << 20;

    /// With the commands of its host besides those that every host has.
    explicit Driver(std::span<const DriverCommand> ofHost = {}) : ofHost_(ofHost) {}

    /// The answer to a line, without a line break.
    std::string answer(std::string_view line);
    /// The end of input: terminates the application as the platform would.
    void end();

private:
    std::span<const DriverCommand> ofHost_;
};

}  // namespace gexlo
