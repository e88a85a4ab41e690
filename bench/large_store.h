// The largest store that a person can have, as far as the limits of the screens go.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/foundation/device.h"

namespace gexlo::bench {

/// 60 timetables, each with 30 subjects, 150 placements, 140 class times and 120 items.
void writeLargeStore();

/// A directory of its own that goes with its holder.
class TemporaryRoot {
public:
    TemporaryRoot();
    ~TemporaryRoot();
    TemporaryRoot(const TemporaryRoot&) = delete;
    TemporaryRoot& operator=(const TemporaryRoot&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

DeviceFacts factsOn(const std::filesystem::path& root);
std::unique_ptr<Device> deviceOn(const std::filesystem::path& root);

/// A directory with the large store in it, made at first use and removed at the end.
const std::filesystem::path& largeStoreRoot();
std::filesystem::path largeStoreFile();

/// What this process has in memory now.
double residentMegabytes();

}  // namespace gexlo::bench
