// A value between two ends, moved by a finger.
#pragma once

#include <algorithm>

#include "platform/views/control.h"

namespace gexlo {

class UISlider final : public UIControl {
public:
    using UIControl::UIControl;
    const char* className() const override { return "UISlider"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    float minimumValue() const { return minimumValue_; }
    float maximumValue() const { return maximumValue_; }
    void setRange(float minimum, float maximum) {
        change(minimumValue_, minimum);
        change(maximumValue_, maximum);
        setValue(value_);
    }
    float value() const { return value_; }
    void setValue(float value) { change(value_, std::clamp(value, minimumValue_, maximumValue_)); }

    void touchesBegan(CGPoint inWindow) override {
        start_ = inWindow.x;
        valueAtStart_ = value_;
        UIControl::touchesBegan(inWindow);
    }
    /// The finger takes the value along, wherever on the slider it came down.
    void touchesMoved(CGPoint inWindow) override {
        if (!isEnabled() || frame().width <= 0) return;
        const double part = (inWindow.x - start_) / frame().width;
        setValue(valueAtStart_ + static_cast<float>(part) * (maximumValue_ - minimumValue_));
        sendActions(UIControlEvent::valueChanged);
    }

private:
    double start_ = 0;
    float valueAtStart_ = 0;
    float minimumValue_ = 0;
    float maximumValue_ = 1;
    float value_ = 0;
};

}  // namespace gexlo
