// The command line of the window.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/device.h"

namespace gexlo {

struct DesktopOptions {
    DeviceFacts facts;
    Clock clock = Clock::real();
    bool drives = false;  ///< takes the driver's commands from standard input
    std::string opened;   ///< a file or URL to open, or ""
};

/// What the command line asks for; or, without options, the text to print and the exit code
/// with which to end: 0 for help, 2 for bad arguments.
struct DesktopCommandLine {
    std::optional<DesktopOptions> options;
    std::string text;
    int exitCode = 0;
};

/// With `--driver` all options of the driver count, else `--data`, `--screen` and a path.
DesktopCommandLine parseDesktopCommandLine(int count, const char* const* arguments);

}  // namespace gexlo
