// The start options that the driver's hosts share.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/device.h"

namespace gexlo {

struct DriverOptions {
    DeviceFacts facts;
    Clock clock = Clock::real();
};

/// What the command line asks for; or, without options, the text to print and the exit
/// code with which to end: 0 for help, 2 for bad arguments.
struct DriverCommandLine {
    std::optional<DriverOptions> options;
    std::string text;
    int exitCode = 0;
};

/// Takes a screen of that size, as "375x667"; whether it is one.
bool readScreenSize(const std::string& text, DeviceFacts& facts);

DriverCommandLine parseDriverCommandLine(int count, const char* const* arguments);

}  // namespace gexlo
