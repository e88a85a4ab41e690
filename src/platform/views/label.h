// A text on the screen.
#pragma once

#include <string>
#include <utility>

#include "platform/views/font.h"
#include "platform/views/view.h"

namespace gexlo {

enum class NSTextAlignment : std::uint8_t { left, center, right };

class UILabel : public UIView {
public:
    UILabel() : UILabel(CGRect{}) {}
    explicit UILabel(CGRect frame) : UIView(frame) { userInteractionEnabled_ = false; }

    const char* className() const override { return "UILabel"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    const std::string& text() const { return text_; }
    void setText(std::string_view text) { changeText(text_, text); }
    const UIFont& font() const { return font_; }
    void setFont(UIFont font) { change(font_, font); }
    const UIColor& textColor() const { return textColor_; }
    void setTextColor(UIColor color) { change(textColor_, color); }
    NSTextAlignment textAlignment() const { return textAlignment_; }
    void setTextAlignment(NSTextAlignment alignment) { change(textAlignment_, alignment); }
    /// 0 for as many as fit. What does not fit ends with an ellipsis.
    int numberOfLines() const { return numberOfLines_; }
    void setNumberOfLines(int lines) { change(numberOfLines_, lines); }
    /// How far the text shrinks as it is drawn, as a part of the font's size, until all of it
    /// stands there with its words whole. Where that is not far enough words break, best not before
    /// a last letter; and only a text that fits in no way is cut.
    double minimumScaleFactor() const { return minimumScaleFactor_; }
    void setMinimumScaleFactor(double factor) {
        change(minimumScaleFactor_, static_cast<float>(factor));
    }

private:
    std::string text_;
    UIFont font_ = UIFont::systemFontOfSize(17);
    UIColor textColor_ = UIColor::blackColor();
    int numberOfLines_ = 1;
    float minimumScaleFactor_ = 1;
    NSTextAlignment textAlignment_ = NSTextAlignment::left;
};

}  // namespace gexlo
