// The picture of a screen that is nowhere shown.
#pragma once

#include <span>

#include "hosts/headless/driver_command.h"

namespace gexlo {

std::span<const DriverCommand> screenshotCommands();

}  // namespace gexlo
