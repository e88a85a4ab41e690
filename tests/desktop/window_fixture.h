// The window of a phone, in a process that shows it to nobody.
#pragma once

#include <gtest/gtest.h>

#include <QQmlEngine>
#include <QTest>

#include "desktop/run_until.h"
#include "hosts/desktop/phone_window.h"
#include "hosts/drawing/gui_application.h"
#include "support/phone.h"

namespace gexlo::test {

struct Toolkit {
    Toolkit() {
        qputenv("QT_QUICK_BACKEND", "software");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
        needGuiApplication();
    }
};

class InAWindow : public Toolkit, public ::testing::Test {
protected:
    void showActive() {
        window.show();
        window.requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void mouse(QEvent::Type type, CGPoint place, unsigned long time) {
        const QPointF point(place.x, place.y);
        QMouseEvent event(
            type, point, point, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(&window, &event);
    }

    Phone phone;
    QQmlEngine engine;
    ViewPainter painter{GEXLO_RESOURCES "/images"};
    PhoneWindow window{engine, painter};
};

}  // namespace gexlo::test
