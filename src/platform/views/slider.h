// A value between two ends, moved by a finger.
#pragma once

#include <algorithm>

#include "platform/views/control.h"

namespace gexlo {

class UISlider final : public UIControl {
public:
    using UIControl::UIControl;
    const char* className() const override { return "UISlider"; }

    float minimumValue() const { return minimumValue_; }
    float maximumValue() const { return maximumValue_; }
    void setRange(float minimum, float maximum) {
        change(minimumValue_, minimum);
        change(maximumValue_, maximum);
        setValue(value_);
    }
    float value() const { return value_; }
    void setValue(float value) { change(value_, std::clamp(value, minimumValue_, maximumValue_)); }

private:
    float minimumValue_ = 0;
    float maximumValue_ = 1;
    float value_ = 0;
};

}  // namespace gexlo
