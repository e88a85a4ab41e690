// A button: a title, an image or both, or nothing at all over what it makes touchable.
#pragma once

#include <string>
#include <utility>

#include "platform/views/control.h"
#include "platform/views/font.h"
#include "platform/views/image.h"

namespace gexlo {

class UIButton : public UIControl {
public:
    using UIControl::UIControl;

    const char* className() const override { return "UIButton"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    const std::string& title() const { return title_; }
    void setTitle(std::string_view title) { changeText(title_, title); }
    const UIFont& font() const { return font_; }
    void setFont(UIFont font) { change(font_, font); }
    const UIColor& titleColor() const { return titleColor_; }
    void setTitleColor(UIColor color) { change(titleColor_, color); }
    /// Stands in its own size beside the title.
    const UIImage& image() const { return image_; }
    void setImage(UIImage image) { change(image_, std::move(image)); }
    /// Fills the button.
    const UIImage& backgroundImage() const { return backgroundImage_; }
    void setBackgroundImage(UIImage image) { change(backgroundImage_, std::move(image)); }
    /// The colour in which the images are drawn; clear for their own.
    const UIColor& tintColor() const { return tintColor_; }
    void setTintColor(UIColor color) { change(tintColor_, color); }

private:
    std::string title_;
    UIFont font_ = UIFont::systemFontOfSize(15);
    UIColor titleColor_ = UIColor::whiteColor();
    UIImage image_;
    UIImage backgroundImage_;
    UIColor tintColor_;
};

}  // namespace gexlo
