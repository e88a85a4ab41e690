// The picture of what the window shows.
#pragma once

#include <filesystem>

namespace gexlo {

class PhoneWindow;

/// Waits until nothing moves, and writes a PNG file; throws a `CommandError` if it cannot.
void writeScreenshot(PhoneWindow& window, const std::filesystem::path& path);

}  // namespace gexlo
