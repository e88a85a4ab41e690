// The start options that the driver's hosts share.
#pragma once

#include <optional>
#include <string>

#include "hosts/headless/command_line.h"
#include "platform/foundation/device.h"

namespace gexlo {

struct DriverOptions {
    DeviceFacts facts;
    Clock clock = Clock::real();
};

/// What the command line asks for; or, without options, how to end instead.
struct DriverCommandLine {
    std::optional<DriverOptions> options;
    CommandLineEnd end;
};

/// Takes a screen of that size, as "375x667"; whether it is one.
bool readScreenSize(const std::string& text, DeviceFacts& facts);

DriverCommandLine parseDriverCommandLine(int count, const char* const* arguments);

}  // namespace gexlo
