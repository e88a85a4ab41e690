#include "hosts/desktop/event_loop.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/device.h"

namespace gexlo {

namespace {

/// A timer far ahead is set anew on the way, so that a clock that is put right is noticed.
constexpr double kFarthest = 60;

}  // namespace

EventLoop::EventLoop() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] {
        Device::current().mainQueue().runDue();
        arm();
    });
    Device::current().mainQueue().atEndOfTurn([this] { arm(); });
    arm();
}

void EventLoop::arm() {
    Device& device = Device::current();
    if (device.clock().stands()) return;  // somebody else turns it
    const auto due = device.mainQueue().nextDue();
    if (!due) return timer_.stop();
    const double delay = due->timeIntervalSinceDate(device.clock().now());
    timer_.start(static_cast<int>(std::ceil(std::clamp(delay, 0.0, kFarthest) * 1000)));
}

}  // namespace gexlo
