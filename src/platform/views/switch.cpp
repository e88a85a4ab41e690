#include "platform/views/switch.h"

#include <cmath>

namespace gexlo {

namespace {

/// Points that a finger slides before the knob goes with it.
constexpr double kSlide = 10;

}  // namespace

void UISwitch::throwTo(bool on) {
    setOn(on);
    sendActions(UIControlEvent::valueChanged);
}

void UISwitch::touchesBegan(CGPoint inWindow) {
    isHeld_ = isEnabled();
    hasSlid_ = false;
    start_ = inWindow.x;
    UIControl::touchesBegan(inWindow);
}

void UISwitch::touchesMoved(CGPoint inWindow) {
    UIControl::touchesMoved(inWindow);
    const double way = inWindow.x - start_;
    if (!isHeld_ || !isEnabled() || std::abs(way) < kSlide) return;
    hasSlid_ = true;
    start_ = inWindow.x;
    const bool on = way > 0;
    if (isOn() != on) throwTo(on);
}

void UISwitch::touchesEnded(CGPoint inWindow) {
    const bool isTap = isHeld_ && !hasSlid_ && isEnabled() && frameInWindow().contains(inWindow);
    isHeld_ = false;
    UIControl::touchesEnded(inWindow);
    if (isTap) throwTo(!isOn());
}

void UISwitch::touchesCancelled() {
    isHeld_ = false;
    UIControl::touchesCancelled();
}

}  // namespace gexlo
