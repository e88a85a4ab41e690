#include "hosts/headless/input_wait.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

namespace gexlo {

InputWait::InputWait(Device& device, int file)
    : device_(device), file_(file), wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    device_.mainQueue().setWake([this] { ::eventfd_write(wake_, 1); });
}

InputWait::~InputWait() {
    device_.mainQueue().setWake({});
    ::close(wake_);
}

/// -1 for ever.
int InputWait::millisecondsUntilDue() const {
    constexpr double kFarthest = 60;  // a clock that is put right is noticed by then
    if (device_.clock().stands()) return -1;
    const auto due = device_.mainQueue().nextDue();
    const double seconds = due ? due->timeIntervalSinceDate(device_.clock().now()) : kFarthest;
    return static_cast<int>(std::ceil(std::clamp(seconds, 0.0, kFarthest) * 1000));
}

void InputWait::wait() {
    for (;;) {
        pollfd files[] = {{.fd = file_, .events = POLLIN, .revents = 0},
                          {.fd = wake_, .events = POLLIN, .revents = 0}};
        ::poll(files, std::size(files), millisecondsUntilDue());
        if (files[0].revents != 0) return;
        eventfd_t count = 0;
        ::eventfd_read(wake_, &count);
        device_.mainQueue().runQueued();
        if (!device_.clock().stands()) device_.mainQueue().runDue();
    }
}

}  // namespace gexlo
