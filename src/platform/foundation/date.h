// A moment in time.
#pragma once

#include <compare>

#include "platform/foundation/types.h"

namespace gexlo {

class NSDate {
public:
    /// Seconds from 1970 to 2001, the zero of the platform's archived dates.
    static constexpr NSTimeInterval kReferenceSince1970 = 978307200.0;

    NSDate() = default;
    static NSDate date();  ///< now, by the device's clock
    static constexpr NSDate dateWithTimeIntervalSince1970(NSTimeInterval seconds) {
        NSDate date;
        date.since1970_ = seconds;
        return date;
    }

    constexpr NSTimeInterval timeIntervalSince1970() const { return since1970_; }
    constexpr NSDate dateByAddingTimeInterval(NSTimeInterval seconds) const {
        return dateWithTimeIntervalSince1970(since1970_ + seconds);
    }
    constexpr NSTimeInterval timeIntervalSinceDate(const NSDate& other) const {
        return since1970_ - other.since1970_;
    }

    auto operator<=>(const NSDate&) const = default;

private:
    NSTimeInterval since1970_ = 0;
};

}  // namespace gexlo
