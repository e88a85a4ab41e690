// The command line of the window.
#pragma once

#include <optional>
#include <string>

#include "hosts/headless/command_line.h"
#include "platform/foundation/device.h"

namespace gexlo {

struct DesktopOptions {
    DeviceFacts facts;
    Clock clock = Clock::real();
    bool drives = false;  ///< takes the driver's commands from standard input
    std::string opened;   ///< a file or URL to open, or ""
};

/// What the command line asks for; or, without options, how to end instead.
struct DesktopCommandLine {
    std::optional<DesktopOptions> options;
    CommandLineEnd end;
};

/// With `--driver` all options of the driver count, else `--data`, `--screen` and a path.
DesktopCommandLine parseDesktopCommandLine(int count, const char* const* arguments);

}  // namespace gexlo
