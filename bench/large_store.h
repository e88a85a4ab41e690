// The largest store that a person can have, as far as the limits of the screens go.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/foundation/device.h"

namespace gexlo::bench {

/// 60 timetables, each with 30 subjects, 150 placements, 140 class times and 120 items.
void writeLargeStore();

std::unique_ptr<Device> deviceOn(const std::filesystem::path& root);

/// A directory with the large store in it, made at first use and removed at the end.
const std::filesystem::path& largeStoreRoot();
std::filesystem::path largeStoreFile();

}  // namespace gexlo::bench
