#include "hosts/desktop/event_loop.h"

#include <QPointer>
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
    MainQueue& queue = Device::current().mainQueue();
    queue.atEndOfTurn([self = QPointer(this)] {
        if (self) self->arm();
    });
    queue.setWake(
        [this] { QMetaObject::invokeMethod(this, &EventLoop::runQueued, Qt::QueuedConnection); });
    arm();
}

EventLoop::~EventLoop() {
    Device::current().mainQueue().setWake({});
}

void EventLoop::runQueued() {
    Device::current().mainQueue().runQueued();
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
