// The picture of a screen that is nowhere shown.
#pragma once

#include <filesystem>

#include "hosts/headless/driver_context.h"

namespace gexlo {

/// Paints the view tree into a PNG file; throws a `CommandError` if it cannot be written.
void paintScreenshot(const DriverContext& context, const std::filesystem::path& path);

}  // namespace gexlo
