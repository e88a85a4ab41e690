// Fields that a person types into: one line, or many.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/views/control.h"
#include "platform/views/font.h"
#include "platform/views/label.h"

namespace gexlo {

class UITextInput;

/// What a field of one line takes in of a text: line breaks become blanks, and go at its ends.
std::string onOneLine(std::string_view text);

/// Whom a field asks and tells.
class UITextInputDelegate {
public:
    virtual ~UITextInputDelegate() = default;
    /// Whether `length` bytes from `location` may give way to `replacement`.
    virtual bool shouldChange(UITextInput&, std::size_t /*location*/, std::size_t /*length*/,
                              std::string_view /*replacement*/) {
        return true;
    }
    /// The return key of a field of one line.
    virtual void shouldReturn(UITextInput&) {}
    virtual void didBeginEditing(UITextInput&) {}
    virtual void didEndEditing(UITextInput&) {}
};

/// What the two have alike. Text is written at its end; a change by the keyboard is asked of
/// the delegate and sends `editingChanged`, one by `setText` is neither asked nor told.
class UITextInput : public UIControl {
public:
    using UIControl::UIControl;

    const std::string& text() const { return text_; }
    void setText(std::string_view text) { changeText(text_, text); }
    const std::string& placeholder() const { return placeholder_; }
    void setPlaceholder(std::string_view text) { changeText(placeholder_, text); }
    const UIFont& font() const { return font_; }
    void setFont(UIFont font) { change(font_, font); }
    const UIColor& textColor() const { return textColor_; }
    void setTextColor(UIColor color) { change(textColor_, color); }
    NSTextAlignment textAlignment() const { return textAlignment_; }
    void setTextAlignment(NSTextAlignment alignment) { change(textAlignment_, alignment); }
    void setDelegate(std::weak_ptr<UITextInputDelegate> delegate) {
        delegate_ = std::move(delegate);
    }

    bool isFirstResponder() const;
    /// Takes the focus. Whether it could: a field off the screen or not enabled cannot.
    bool becomeFirstResponder();
    void resignFirstResponder();

    /// From the keyboard: whether the delegate let it in.
    bool insertText(std::string_view text);
    bool deleteAll();
    /// From a keyboard that edits anywhere: what differs is asked of the delegate.
    bool replaceAll(std::string_view text);
    virtual void returnKey() = 0;

    void touchesEnded(CGPoint inWindow) override;

protected:
    /// What the field takes in of a text that the keyboard brings.
    virtual std::string taken(std::string_view text) const { return std::string(text); }

private:
    friend class UIWindow;
    bool replace(std::size_t location, std::size_t length, std::string_view written);
    void focusChanged(bool hasFocus);

    std::string text_;
    std::string placeholder_;
    UIFont font_ = UIFont::systemFontOfSize(15);
    UIColor textColor_ = UIColor::blackColor();
    NSTextAlignment textAlignment_ = NSTextAlignment::left;
    std::weak_ptr<UITextInputDelegate> delegate_;

protected:
    std::shared_ptr<UITextInputDelegate> delegate() const { return delegate_.lock(); }
};

class UITextField final : public UITextInput {
public:
    using UITextInput::UITextInput;
    const char* className() const override { return "UITextField"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    bool isSecureTextEntry() const { return secureTextEntry_; }
    void setSecureTextEntry(bool secure) { change(secureTextEntry_, secure); }
    void returnKey() override;

protected:
    std::string taken(std::string_view text) const override { return onOneLine(text); }

private:
    bool secureTextEntry_ = false;
};

class UITextView final : public UITextInput {
public:
    using UITextInput::UITextInput;
    const char* className() const override { return "UITextView"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    void returnKey() override { insertText("\n"); }
};

}  // namespace gexlo
