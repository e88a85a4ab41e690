#include "hosts/desktop/alert_layer.h"

#include "hosts/drawing/alert_view.h"
#include "platform/foundation/device.h"
#include "platform/views/button.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

void collectTexts(const UIView& view, std::vector<std::string>& texts) {
    if (const auto* field = dynamic_cast<const UITextField*>(&view)) texts.push_back(field->text());
    for (const auto& child : view.subviews())
        collectTexts(*child, texts);
}

}  // namespace

AlertLayer::AlertLayer(QQmlEngine& engine, QQuickItem& phone, ViewPainter& painter)
    : mirror_(engine, phone, painter,
              {.press = [this](UIView& view) { press(view); },
               .text = {.focus = [](UITextInput&) {},
                        .edit = [](UITextInput& input,
                                   const QString& text) { input.setText(text.toStdString()); },
                        .returnKey = [](UITextInput&) {}}}) {}

void AlertLayer::synchronize(UIWindow& window) {
    if (shown_ != window.alertNumber()) {
        shown_ = window.alertNumber();
        view_ = window.alerts().empty() ? nullptr
                                        : alertView(window.alerts().back(), window.frame().size());
    }
    if (view_) {
        mirror_.synchronize(*view_);
    } else {
        mirror_.clear();
    }
}

void AlertLayer::touch(CGPoint point) {
    if (UIView* hit = view_ ? view_->hitTest(point) : nullptr) press(*hit);
}

void AlertLayer::press(UIView& view) {
    const auto* button = dynamic_cast<const UIButton*>(&view);
    if (!button) return;
    const auto index = static_cast<std::size_t>(button->tag());
    Device::current().perform([&, texts = texts()] { UIWindow::keyWindow().answer(index, texts); });
}

std::vector<std::string> AlertLayer::texts() const {
    std::vector<std::string> texts;
    collectTexts(*view_, texts);
    return texts;
}

}  // namespace gexlo
