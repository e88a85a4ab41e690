// A view that answers touches with events.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/views/view.h"

namespace gexlo {

enum class UIControlEvent : std::uint8_t {
    touchDown,
    touchUpInside,
    touchUpOutside,
    touchCancel,
    valueChanged,
    editingChanged,
    editingDidBegin,
    editingDidEnd,
};

class UIControl : public UIView {
public:
    using UIView::UIView;

    const char* className() const override { return "UIControl"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    bool isEnabled() const { return enabled_; }
    virtual void setEnabled(bool enabled) { change(enabled_, enabled); }
    bool isSelected() const { return selected_; }
    void setSelected(bool selected) { change(selected_, selected); }
    bool isHighlighted() const { return highlighted_; }
    void setHighlighted(bool highlighted) { change(highlighted_, highlighted); }

    /// Calls `action` at each event from now on, after those that came before it.
    void addAction(UIControlEvent event, std::function<void()> action);
    virtual void sendActions(UIControlEvent event);

    /// A control that is not enabled swallows touches and tells nobody.
    void touchesBegan(CGPoint inWindow) override;
    void touchesMoved(CGPoint inWindow) override;
    void touchesEnded(CGPoint inWindow) override;
    void touchesCancelled() override;

private:
    std::vector<std::pair<UIControlEvent, std::function<void()>>> actions_;
    bool enabled_ = true;
    bool selected_ = false;
    bool highlighted_ = false;
};

}  // namespace gexlo
