// The device's idea of now: the real time, or a time that stands until it is turned.
#pragma once

#include "platform/foundation/date.h"

namespace gexlo {

class Clock {
public:
    static Clock real();
    static Clock standingAt(NSDate now);

    NSDate now() const;
    bool stands() const { return stands_; }

    /// Turns on to `moment`; a real clock runs ahead by as much from then on.
    /// A moment before now changes nothing: time never runs backwards.
    void turnTo(NSDate moment);

private:
    bool stands_ = false;
    NSDate standing_;
    NSTimeInterval ahead_ = 0;
};

}  // namespace gexlo
