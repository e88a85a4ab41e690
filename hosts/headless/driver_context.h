// What the driver's commands work on.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/foundation/device.h"
#include "platform/services/application.h"
#include "platform/views/window.h"

namespace gexlo {

class Outbox;
struct DriverContext;

/// What a driver's host lends to the commands; each may be missing.
struct DriverHost {
    /// Where what is sent stays, shared with the device; null where it really leaves.
    std::shared_ptr<Outbox> outbox;
    /// Writes what the screen shows to a file, as a PNG; throws a `CommandError` if it cannot.
    std::function<void(const DriverContext&, const std::filesystem::path&)> takeScreenshot;
};

/// Handed to each command for as long as it runs.
struct DriverContext {
    Device& device;
    UIApplication& application;
    const DriverHost& host;

    /// Made by the launch.
    UIWindow& window() const { return UIWindow::keyWindow(); }
};

}  // namespace gexlo
