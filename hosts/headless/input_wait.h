// Waits for input while the system's work goes on.
#pragma once

#include "platform/foundation/device.h"

namespace gexlo {

class InputWait {
public:
    /// The device outlives it.
    InputWait(Device& device, int file);
    ~InputWait();
    InputWait(const InputWait&) = delete;
    InputWait& operator=(const InputWait&) = delete;

    /// Returns once there is something to read, or the input has ended. What other threads queue
    /// meanwhile runs at once, and by the real clock what falls due runs in time: later, it would
    /// count as having fallen due while the process slept.
    void wait();

private:
    int millisecondsUntilDue() const;

    Device& device_;
    int file_;
    int wake_;  // an event counter, or -1 where there are none left
};

}  // namespace gexlo
