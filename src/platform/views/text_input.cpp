#include "platform/views/text_input.h"

#include <algorithm>

#include "platform/views/window.h"

namespace gexlo {

namespace {

/// How many bytes of a line break the text begins with.
std::size_t lineBreakAt(std::string_view text) {
    for (const std::string_view end : {"\n", "\r", "\v", "\f", "\u0085", "\u2028", "\u2029"})
        if (text.starts_with(end)) return end.size();
    return 0;
}

/// The nearest place in the text, not behind that one, at which a character begins.
std::size_t characterAt(std::string_view text, std::size_t place) {
    if (place >= text.size()) return text.size();
    while (place > 0 && (text[place] & 0xC0) == 0x80)
        --place;
    return place;
}

}  // namespace

std::string onOneLine(std::string_view text) {
    std::string line;
    bool isBroken = false;
    while (!text.empty()) {
        const std::size_t end = lineBreakAt(text);
        if (end == 0) {
            if (isBroken && !line.empty()) line += ' ';
            line += text.front();
        }
        isBroken = end > 0;
        text.remove_prefix(std::max<std::size_t>(end, 1));
    }
    return line;
}

bool UITextInput::isFirstResponder() const {
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

bool UITextInput::replace(std::size_t location, std::size_t length, std::string_view written) {
    const std::string replacement = taken(written);
    if (length == 0 && replacement.empty()) return true;
    const auto asked = delegate();
    if (asked && !asked->shouldChange(*this, location, length, replacement)) return false;
    // The delegate may have set another text, in which the place is not what it was.
    std::string text = text_;
    const std::size_t begin = characterAt(text, location);
    const std::size_t end = characterAt(text, location + length);
    setText(text.replace(begin, end - begin, replacement));
    sendActions(UIControlEvent::editingChanged);
    return true;
}

bool UITextInput::insertText(std::string_view text) {
    return replace(text_.size(), 0, text);
}

bool UITextInput::deleteAll() {
    return text_.empty() || replace(0, text_.size(), "");
}

bool UITextInput::replaceAll(std::string_view text) {
    if (text == text_) return true;
    const auto changed = std::mismatch(text_.begin(), text_.end(), text.begin(), text.end()).first;
    const std::size_t location =
        characterAt(text, static_cast<std::size_t>(changed - text_.begin()));
    return replace(location, text_.size() - location, text.substr(location));
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
