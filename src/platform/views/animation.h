// How what is seen of a view gets from one value to another over time.
#pragma once

#include <optional>

#include "platform/foundation/date.h"
#include "platform/views/color.h"
#include "platform/views/geometry.h"

namespace gexlo {

/// From when to when, by the device's clock.
struct AnimationSpan {
    NSDate begin;
    NSDate end;

    /// A clock that is set back does not hold anything up.
    bool isOver(NSDate moment) const { return moment < begin || moment >= end; }
    /// The part of the way that is gone: slow at both ends.
    double wayAt(NSDate moment) const;
};

/// Of one look. It tells what is seen; the view itself has the value at its end from the first.
template <typename T>
struct Animation {
    T from{};
    T to{};
    AnimationSpan span;

    T valueAt(NSDate moment) const;
};

/// Those of a view: each look has its own, and a new one takes its place.
struct ViewAnimations {
    std::optional<Animation<CGRect>> frame;
    std::optional<Animation<float>> alpha;
    std::optional<Animation<UIColor>> backgroundColor;
    std::optional<Animation<CGPoint>> contentOffset;

    bool areOver(NSDate moment) const;
};

}  // namespace gexlo
