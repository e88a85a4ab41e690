// The window: shows the phone's screen whole, at any size.
#pragma once

#include <QQuickWindow>
#include <functional>
#include <string>

#include "hosts/desktop/screen_item.h"

class QDropEvent;

namespace gexlo {

class PhoneWindow final : public QQuickWindow {
    Q_OBJECT

public:
    /// As large as the screen of the device that is installed.
    PhoneWindow(QQmlEngine& engine, ViewPainter& painter);

    ScreenItem& screen() { return screen_; }

    /// Keeps that many points free above the phone's screen; the window grows by them.
    void setTopMargin(int points);

    /// Called with the URL of a file that is dropped on the window, the last one of several.
    /// Nothing else can be dropped, and nothing at all before this.
    void setDropped(std::function<void(const std::string& url)> dropped);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeScreen();
    void drop(QDropEvent& event);

    ScreenItem screen_;
    int topMargin_ = 0;
    std::function<void(const std::string& url)> dropped_;
};

}  // namespace gexlo
