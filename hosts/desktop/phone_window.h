// The window: shows the phone's screen whole, at any size.
#pragma once

#include <QQuickWindow>

#include "hosts/desktop/screen_item.h"

namespace gexlo {

class PhoneWindow final : public QQuickWindow {
    Q_OBJECT

public:
    /// As large as the screen of the device that is installed.
    PhoneWindow(QQmlEngine& engine, ViewPainter& painter);

    ScreenItem& screen() { return screen_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    ScreenItem screen_;
};

}  // namespace gexlo
