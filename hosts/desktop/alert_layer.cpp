#include "hosts/desktop/alert_layer.h"

#include "hosts/drawing/alert_view.h"
#include "platform/foundation/device.h"
#include "platform/views/button.h"
#include "platform/views/text_input.h"

namespace gexlo {

AlertLayer::AlertLayer(QQmlEngine& engine, QQuickItem& phone, ViewPainter& painter,
                       ViewMirror::Actions actions)
    : mirror_(engine, phone, painter, std::move(actions)) {}

void AlertLayer::synchronize(const UIWindow& window) {
    const bool isOther = shown_ != window.alertNumber();
    shown_ = window.alertNumber();
    if (window.alerts().empty()) {
        window_.reset();
        return mirror_.clear();
    }
    const UIAlert& alert = window.alerts().back();
    if (isOther) build(alert);
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->setText(alert.fields[i].text);
    mirror_.synchronize(*window_);
}

/// What is typed and pressed here is the alert's, for the driver and the answer alike.
void AlertLayer::build(const UIAlert& alert) {
    window_ = std::make_shared<UIWindow>();
    const AlertView made = alertView(alert, window_->frame().size());
    for (std::size_t i = 0; i < made.buttons.size(); ++i) {
        made.buttons[i]->addAction(UIControlEvent::touchUpInside, [this, i] {
            if (this->alert()) UIWindow::keyWindow().answer(i);
        });
    }
    fields_ = made.fields;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        fields_[i]->addAction(UIControlEvent::editingChanged, [this, i] {
            if (this->alert()) UIWindow::keyWindow().setAlertText(i, fields_[i]->text());
        });
    }
    window_->addSubview(made.view);
    mirror_.takeFocus();
    if (!fields_.empty()) fields_.front()->becomeFirstResponder();
}

/// Null where another has come, or none is left, since this was shown.
const UIAlert* AlertLayer::alert() const {
    const UIWindow& window = UIWindow::keyWindow();
    return isUp() && shown_ == window.alertNumber() ? &window.alerts().back() : nullptr;
}

void AlertLayer::answer(std::optional<std::size_t> button) {
    if (button) Device::current().perform([&] { UIWindow::keyWindow().answer(*button); });
}

void AlertLayer::confirm() {
    if (const UIAlert* shown = alert()) answer(shown->defaultButton());
}

/// Where there is but one button, there is but one way out.
void AlertLayer::cancel() {
    const UIAlert* shown = alert();
    if (!shown) return;
    const auto button = shown->firstButton(UIAlert::Button::Style::cancel);
    answer(button || shown->buttons.size() != 1 ? button : 0);
}

}  // namespace gexlo
