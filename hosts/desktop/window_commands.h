// The driver's commands that the window answers itself.
#pragma once

#include <span>

#include "hosts/headless/driver_command.h"

namespace gexlo {

std::span<const DriverCommand> windowCommands();

}  // namespace gexlo
