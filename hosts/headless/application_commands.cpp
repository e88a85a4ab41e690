// The platform's calls, and the clock.
#include "app/app_delegate.h"
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// A century: no scenario needs more, and each midnight on the way is a turn.
constexpr double kLongestAdvance = 100.0 * 366 * 86400;

json launch(const DriverContext& context, const json&) {
    UIApplication& application = context.application;
    if (application.applicationState() != UIApplicationState::notRunning) {
        throw CommandError("the application was launched already");
    }
    application.launch(GXAppDelegate::delegate());
    return nothing();
}

json background(const DriverContext& context, const json&) {
    UIApplication& application = context.application;
    if (application.applicationState() == UIApplicationState::background) {
        throw CommandError("the application is in the background already");
    }
    application.enterBackground();
    return nothing();
}

json foreground(const DriverContext& context, const json&) {
    UIApplication& application = context.application;
    if (application.applicationState() != UIApplicationState::background) {
        throw CommandError("the application is not in the background");
    }
    application.enterForeground();
    return nothing();
}

json advance(const DriverContext& context, const json& fields) {
    const double seconds = numberField(fields, "seconds");
    if (!(seconds >= 0 && seconds <= kLongestAdvance)) {
        throw CommandError("\"seconds\" lies outside 0 to a century");
    }
    Device& device = context.device;
    device.mainQueue().advanceTo(device.clock().now().dateByAddingTimeInterval(seconds));
    return nothing();
}

}  // namespace

std::span<const DriverCommand> applicationCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"launch", launch, false},
        {"background", background},
        {"foreground", foreground},
        {"advance", advance, false},
    };
    return kCommands;
}

}  // namespace gexlo
