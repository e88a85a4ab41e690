// An image on the screen.
#pragma once

#include <utility>

#include "platform/views/image.h"
#include "platform/views/view.h"

namespace gexlo {

class UIImageView : public UIView {
public:
    UIImageView() : UIImageView(CGRect{}) {}
    explicit UIImageView(CGRect frame) : UIView(frame) { userInteractionEnabled_ = false; }

    const char* className() const override { return "UIImageView"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    const UIImage& image() const { return image_; }
    void setImage(UIImage image) { change(image_, std::move(image)); }

    /// The colour in which the image is drawn; clear for its own.
    const UIColor& tintColor() const { return tintColor_; }
    void setTintColor(UIColor color) { change(tintColor_, color); }

private:
    UIImage image_;
    UIColor tintColor_;
};

}  // namespace gexlo
