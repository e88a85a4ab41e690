#include "platform/views/animation.h"

#include <cmath>

namespace gexlo {

namespace {

float between(float from, float to, double way) {
    return std::lerp(from, to, static_cast<float>(way));
}

CGPoint between(CGPoint from, CGPoint to, double way) {
    return {std::lerp(from.x, to.x, way), std::lerp(from.y, to.y, way)};
}

CGRect between(const CGRect& from, const CGRect& to, double way) {
    return {std::lerp(from.x, to.x, way), std::lerp(from.y, to.y, way),
            std::lerp(from.width, to.width, way), std::lerp(from.height, to.height, way)};
}

/// What is clear has no colour of its own to pass through; a pattern is there at once.
UIColor between(const UIColor& from, const UIColor& to, double way) {
    if (from.patternImage || to.patternImage) return to;
    const float alpha = between(from.alpha, to.alpha, way);
    if (alpha <= 0) return {};
    const auto part = [&](float UIColor::*component) {
        return between(from.*component * from.alpha, to.*component * to.alpha, way) / alpha;
    };
    return {part(&UIColor::red), part(&UIColor::green), part(&UIColor::blue), alpha};
}

}  // namespace

double AnimationSpan::wayAt(NSDate moment) const {
    if (isOver(moment)) return 1;
    const double part = moment.timeIntervalSinceDate(begin) / end.timeIntervalSinceDate(begin);
    return part < 0.5 ? 2 * part * part : 1 - 2 * (1 - part) * (1 - part);
}

template <typename T>
T Animation<T>::valueAt(NSDate moment) const {
    return span.isOver(moment) ? to : between(from, to, span.wayAt(moment));
}

template struct Animation<CGRect>;
template struct Animation<float>;
template struct Animation<UIColor>;
template struct Animation<CGPoint>;

bool ViewAnimations::areOver(NSDate moment) const {
    const auto isOver = [&](const auto& look) { return !look || look->span.isOver(moment); };
    return isOver(frame) && isOver(alpha) && isOver(backgroundColor) && isOver(contentOffset);
}

}  // namespace gexlo
