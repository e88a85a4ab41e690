#include "platform/views/text_input.h"

#include "platform/views/window.h"

namespace gexlo {

bool UITextInput::isFirstResponder() {
    const UIWindow* window = this->window();
    return window && window->firstResponder() == this;
}

bool UITextInput::becomeFirstResponder() {
    UIWindow* window = this->window();
    if (!window || !isEnabled()) return false;
    window->setFirstResponder(this);
    return true;
}

void UITextInput::resignFirstResponder() {
    if (isFirstResponder()) window()->setFirstResponder(nullptr);
}

bool UITextInput::replace(std::size_t location, std::string_view replacement) {
    const auto asked = delegate();
    if (asked && !asked->shouldChange(*this, location, text_.size() - location, replacement)) {
        return false;
    }
    setText(text_.substr(0, location) + std::string(replacement));
    sendActions(UIControlEvent::editingChanged);
    return true;
}

bool UITextInput::insertText(std::string_view text) {
    return replace(text_.size(), text);
}

bool UITextInput::deleteAll() {
    return text_.empty() || replace(0, "");
}

void UITextInput::touchesEnded(CGPoint inWindow) {
    if (isEnabled() && frameInWindow().contains(inWindow)) becomeFirstResponder();
    UIControl::touchesEnded(inWindow);
}

void UITextInput::focusChanged(bool hasFocus) {
    markChanged();
    sendActions(hasFocus ? UIControlEvent::editingDidBegin : UIControlEvent::editingDidEnd);
    const auto told = delegate();
    if (!told) return;
    if (hasFocus) {
        told->didBeginEditing(*this);
    } else {
        told->didEndEditing(*this);
    }
}

void UITextField::returnKey() {
    if (const auto told = delegate()) told->shouldReturn(*this);
}

}  // namespace gexlo
