// The sign that something is under way.
#pragma once

#include "platform/views/view.h"

namespace gexlo {

class UIActivityIndicatorView final : public UIView {
public:
    explicit UIActivityIndicatorView(CGRect frame) : UIView(frame) {
        setUserInteractionEnabled(false);
    }
    const char* className() const override { return "UIActivityIndicatorView"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    const UIColor& color() const { return color_; }
    void setColor(UIColor color) { change(color_, color); }
    bool isAnimating() const { return animating_; }
    void startAnimating() { change(animating_, true); }
    void stopAnimating() { change(animating_, false); }

private:
    UIColor color_ = UIColor::colorWithWhite(0.72F);
    bool animating_ = false;
};

}  // namespace gexlo
