// Plays the application by commands, one JSON object in and one out.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "hosts/headless/driver_context.h"

namespace gexlo {

/// Works on the device that is installed. Whatever the line holds, it answers: with
/// `"ok": true` and what was asked, or with `"ok": false` and an error, and then nothing
/// has changed.
class Driver {
public:
    /// Lines longer than this are refused.
    static constexpr std::size_t kLongestLine = std::size_t{64} << 20;

    explicit Driver(DriverHost host = {}) : host_(std::move(host)) {}

    /// The answer to a line, without a line break.
    std::string answer(std::string_view line);
    /// The end of input: terminates the application as the platform would.
    void end();

private:
    DriverHost host_;
};

}  // namespace gexlo
