// The bar above the phone's screen: what the desktop adds, by mouse, keys and spoken.
#pragma once

#include <QObject>
#include <QQuickItem>
#include <memory>

#include "hosts/desktop/timetable_files.h"

class QQmlEngine;

namespace gexlo {

class PhoneWindow;

class ApplicationBar final : public QObject {
    Q_OBJECT

public:
    /// In points, whatever the size of the window.
    static constexpr int kHeight = 26;

    /// Takes its room at once, so that nothing jumps, and comes after the window's first frame.
    ApplicationBar(QQmlEngine& engine, PhoneWindow& window, TimetableFiles::Receive receive);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show();
    bool isAltAlone(const QEvent& event);

    QQmlEngine& engine_;
    PhoneWindow& window_;
    TimetableFiles files_;
    std::unique_ptr<QQuickItem> item_;  // uses the files to its end
    bool isAltDown_ = false;            // and nothing has come since
};

}  // namespace gexlo
