#include "platform/views/alert.h"

#include "platform/views/window.h"

namespace gexlo {

UIAlert UIAlert::notice(std::string title, std::string message, std::string button) {
    UIAlert alert;
    alert.title = std::move(title);
    alert.message = std::move(message);
    alert.buttons = {{std::move(button), Button::Style::cancel}};
    return alert;
}

void UIAlert::show() && {
    UIWindow::keyWindow().present(std::move(*this));
}

void UIAlert::showFor(UIView& view) && {
    owner = view.weak_from_this();
    std::move(*this).show();
}

}  // namespace gexlo
