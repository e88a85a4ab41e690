// A setting that is on or off, thrown by a finger.
#pragma once

#include "platform/views/control.h"

namespace gexlo {

class UISwitch final : public UIControl {
public:
    static constexpr CGSize kSize{51, 31};

    /// In its own size, and in the middle of a frame that is larger.
    explicit UISwitch(CGRect frame = {0, 0, kSize.width, kSize.height}) : UIControl(frame) {}

    const char* className() const override { return "UISwitch"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    bool isOn() const { return on_; }
    void setOn(bool on) { change(on_, on); }
    /// As a finger does: tells, even where it was so already.
    void throwTo(bool on);

    /// A tap throws it; a finger that slides along it takes the knob to that end.
    void touchesBegan(CGPoint inWindow) override;
    void touchesMoved(CGPoint inWindow) override;
    void touchesEnded(CGPoint inWindow) override;
    void touchesCancelled() override;

private:
    bool on_ = false;
    bool isHeld_ = false;
    bool hasSlid_ = false;  // a tap no longer
    double start_ = 0;
};

}  // namespace gexlo
