// The alert that is up, over everything else on the screen.
#pragma once

#include <QQuickItem>
#include <memory>
#include <string>
#include <vector>

#include "hosts/desktop/view_mirror.h"

class QQmlEngine;

namespace gexlo {

class UIWindow;

class AlertLayer {
public:
    AlertLayer(QQmlEngine& engine, QQuickItem& phone, ViewPainter& painter);

    /// Shows the topmost alert of the window, or none.
    void synchronize(UIWindow& window);
    void setScale(double scale) { mirror_.setScale(scale); }
    bool isUp() const { return view_ != nullptr; }
    /// A finger that was lifted there, in points of the screen.
    void touch(CGPoint point);

private:
    void press(UIView& view);
    std::vector<std::string> texts() const;

    ViewMirror mirror_;
    std::shared_ptr<UIView> view_;
    unsigned shown_ = 0;  // which alert of all there were
};

}  // namespace gexlo
