// The alert that is up, over everything else on the screen.
#pragma once

#include <QQuickItem>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/desktop/view_mirror.h"
#include "platform/views/window.h"

class QQmlEngine;

namespace gexlo {

class UITextField;

/// It has a window of its own, so that touches and keys go about in it as they do below.
class AlertLayer {
public:
    /// `actions` are what its items do to its views, as to those below.
    AlertLayer(QQmlEngine& engine, QQuickItem& phone, ViewPainter& painter,
               ViewMirror::Actions actions);

    /// Shows the topmost alert of the window, or none. A new one takes the keyboard.
    void synchronize(const UIWindow& window);
    void setScale(double scale) { mirror_.setScale(scale); }
    bool isUp() const { return window_ != nullptr; }
    /// Which it is of all that there were.
    unsigned number() const { return shown_; }
    /// Of one that is up.
    UIWindow& window() const { return *window_; }
    /// Whether what takes the keyboard is still this.
    bool hasFocus() const { return mirror_.root().hasFocus(); }

    // What the keys of a desktop do to an alert; nothing where it has no such button.
    void confirm();
    void cancel();

private:
    void build(const UIAlert& alert);
    void answer(std::optional<std::size_t> button);
    const UIAlert* alert() const;

    ViewMirror mirror_;
    std::shared_ptr<UIWindow> window_;
    std::vector<UITextField*> fields_;  // in the window
    unsigned shown_ = 0;
};

}  // namespace gexlo
