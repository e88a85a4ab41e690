#include "platform/views/alert.h"

#include <algorithm>

#include "platform/views/window.h"

namespace gexlo {

UIAlert UIAlert::notice(std::string title, std::string message, std::string button) {
    UIAlert alert;
    alert.title = std::move(title);
    alert.message = std::move(message);
    alert.buttons = {{std::move(button), Button::Style::cancel}};
    return alert;
}

std::optional<std::size_t> UIAlert::firstButton(Button::Style style) const {
    const auto found = std::ranges::find(buttons, style, &Button::style);
    if (found == buttons.end()) return std::nullopt;
    return static_cast<std::size_t>(found - buttons.begin());
}

std::optional<std::size_t> UIAlert::defaultButton() const {
    const auto choices = std::ranges::count(buttons, Button::Style::normal, &Button::style);
    if (choices == 0) return firstButton(Button::Style::cancel);
    if (choices > 1 && kind == Kind::sheet) return std::nullopt;
    std::size_t last = buttons.size() - 1;
    while (buttons[last].style != Button::Style::normal)
        --last;
    return last;
}

void UIAlert::show() && {
    UIWindow::keyWindow().present(std::move(*this));
}

void UIAlert::showFor(UIView& view) && {
    owner = view.weak_from_this();
    std::move(*this).show();
}

}  // namespace gexlo
