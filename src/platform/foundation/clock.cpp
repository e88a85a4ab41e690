#include "platform/foundation/clock.h"

#include <chrono>

namespace gexlo {

Clock Clock::real() {
    return {};
}

Clock Clock::standingAt(NSDate now) {
    Clock clock;
    clock.stands_ = true;
    clock.standing_ = now;
    return clock;
}

NSDate Clock::now() const {
    if (stands_) return standing_;
    const std::chrono::duration<double> real = std::chrono::system_clock::now().time_since_epoch();
    return NSDate::dateWithTimeIntervalSince1970(real.count() + ahead_);
}

void Clock::turnTo(NSDate moment) {
    const NSTimeInterval step = moment.timeIntervalSinceDate(now());
    if (step <= 0) return;
    if (stands_) {
        standing_ = moment;
    } else {
        ahead_ += step;
    }
}

}  // namespace gexlo
