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

    void atRest() {
        runUntil([&] {
            phone.advance(1);
            window.screen().synchronize();
            return !window.screen().isAnimating();
        });
    }
    void drag(CGPoint from, CGPoint to) {
        mouse(QEvent::MouseButtonPress, from, mouseTime += 2000);
        constexpr int kSteps = 10;
        for (int i = 1; i <= kSteps; ++i) {
            const double part = static_cast<double>(i) / kSteps;
            mouse(QEvent::MouseMove,
                  {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part},
                  mouseTime += 10);
        }
        // The finger has rested.
        mouse(QEvent::MouseButtonRelease, to, mouseTime += 500);
        atRest();
    }
    void click(CGPoint place) {
        mouse(QEvent::MouseButtonPress, place, mouseTime += 2000);
        mouse(QEvent::MouseButtonRelease, place, mouseTime += 10);
        atRest();
    }

    unsigned long mouseTime = 5000;  ///< milliseconds
    Phone phone;
    QQmlEngine engine;
    ViewPainter painter{GEXLO_RESOURCES "/images"};
    PhoneWindow window{engine, painter};
};

}  // namespace gexlo::test
