// The platform's calls, the clock, and what is under way.
#include <chrono>

#include "app/app_delegate.h"
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// A century: no scenario needs more, and each midnight on the way is a turn.
constexpr double kLongestAdvance = 100.0 * 366 * 86400;

/// Seconds that `settle` waits at most, and where nothing else is said.
constexpr double kLongestSettling = 3600;
constexpr double kSettling = 60;

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

/// By the real clock a request's own time may run out meanwhile.
json settle(const DriverContext& context, const json& fields) {
    using std::chrono::steady_clock;
    constexpr std::chrono::milliseconds look(50);
    const double seconds = fields.contains("timeout") ? numberField(fields, "timeout") : kSettling;
    if (!(seconds >= 0 && seconds <= kLongestSettling)) {
        throw CommandError("\"timeout\" lies outside 0 to an hour");
    }
    const auto end = steady_clock::now() + std::chrono::duration<double>(seconds);
    Device& device = context.device;
    PendingRequests& requests = device.requests();
    std::size_t completed = 0;
    std::size_t timedOut = 0;
    while (requests.count() > 0) {
        if (const auto how = requests.runReply()) {
            ++(*how == PendingRequests::End::completed ? completed : timedOut);
            continue;
        }
        const auto left = end - steady_clock::now();
        if (left <= left.zero()) break;
        requests.waitForReply(std::min(look, std::chrono::ceil<std::chrono::milliseconds>(left)));
        if (!device.clock().stands()) device.mainQueue().runDue();
    }
    return {{"completed", completed}, {"pending", requests.count()}, {"timedOut", timedOut}};
}

}  // namespace

std::span<const DriverCommand> applicationCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"launch", launch, false},   {"background", background},      {"foreground", foreground},
        {"advance", advance, false}, {"settle", settle, true, false},
    };
    return kCommands;
}

}  // namespace gexlo
