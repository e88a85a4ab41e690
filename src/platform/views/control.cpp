#include "platform/views/control.h"

namespace gexlo {

void UIControl::addAction(UIControlEvent event, std::function<void()> action) {
    actions_.emplace_back(event, std::move(action));
}

void UIControl::sendActions(UIControlEvent event) {
    // An action may take the control off the screen, or add another.
    const std::shared_ptr<UIView> self = weak_from_this().lock();
    for (std::size_t i = 0; i < actions_.size(); ++i) {
        const auto [wanted, action] = actions_[i];
        if (wanted == event) action();
    }
}

void UIControl::touchesBegan(CGPoint) {
    if (!enabled_) return;
    setHighlighted(true);
    sendActions(UIControlEvent::touchDown);
}

void UIControl::touchesMoved(CGPoint inWindow) {
    setHighlighted(enabled_ && frameInWindow().contains(inWindow));
}

void UIControl::touchesEnded(CGPoint inWindow) {
    setHighlighted(false);
    if (!enabled_) return;
    const bool inside = frameInWindow().contains(inWindow);
    sendActions(inside ? UIControlEvent::touchUpInside : UIControlEvent::touchUpOutside);
}

void UIControl::touchesCancelled() {
    setHighlighted(false);
    if (!enabled_) return;
    sendActions(UIControlEvent::touchCancel);
}

}  // namespace gexlo
