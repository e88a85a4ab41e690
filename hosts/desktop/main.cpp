// The application in a window.
#include <QGuiApplication>
#include <QImage>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

#include "app/app_delegate.h"
#include "hosts/desktop/driver_input.h"
#include "hosts/desktop/event_loop.h"
#include "hosts/desktop/options.h"
#include "hosts/desktop/screen_item.h"
#include "hosts/desktop/window_commands.h"
#include "hosts/drawing/qt_text_measure.h"
#include "platform/foundation/installation_lock.h"
#include "platform/services/application.h"

namespace gexlo {

namespace {

bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

/// Where nobody could see it, a picture of the first screen is all that can be shown.
int showPicture(QQuickWindow& window, const DeviceFacts& facts) {
    const std::string path = (facts.temporaryDirectory() / "first-screen.png").string();
    if (!window.grabWindow().save(QString::fromStdString(path))) {
        std::fprintf(stderr, "The picture cannot be written to %s\n", path.c_str());
        return 1;
    }
    std::printf("There is no display. A picture of the first screen is in %s\n", path.c_str());
    return 0;
}

/// The application's states follow the window's.
void followState(Qt::ApplicationState state) {
    UIApplication& application = UIApplication::sharedApplication();
    if (state == Qt::ApplicationActive) {
        application.enterForeground();
    } else if (state == Qt::ApplicationHidden || state == Qt::ApplicationSuspended) {
        application.enterBackground();
    }
}

/// Once the splash has faded and nothing moves any more.
void whenAtRest(QObject& context, const ScreenItem& screen, const std::function<void()>& act) {
    constexpr int splash = 600;
    constexpr int step = 30;
    QTimer::singleShot(splash, &context, [&context, &screen, act] {
        auto* timer = new QTimer(&context);
        QObject::connect(timer, &QTimer::timeout, timer, [timer, &screen, act] {
            if (screen.isAnimating()) return;
            timer->deleteLater();
            act();
        });
        timer->start(step);
    });
}

int run(QGuiApplication& application, DesktopOptions options, bool visible) {
    const InstallationLock lock(options.facts.root);
    if (!lock.isHeld()) {
        std::fprintf(stderr, "%s\n", lock.refusal().c_str());
        return lock.isTaken() ? 1 : 2;
    }
    options.facts.textMeasure = std::make_shared<QtTextMeasure>();
    if (!options.drives) options.facts.keyboardHeight = 0;  // the desktop has one of its own
    Device device(options.facts, options.clock);

    QQmlEngine engine;
    ViewPainter painter(options.facts.resources / "images");
    ScreenItem screen(engine, painter);
    QQuickWindow window;
    window.setTitle(QStringLiteral("Gexlo"));
    window.setColor(Qt::black);
    window.resize(options.facts.screenWidth, options.facts.screenHeight);
    screen.setParentItem(window.contentItem());
    const auto fill = [&] { screen.setSize(window.size()); };
    QObject::connect(&window, &QQuickWindow::widthChanged, &screen, fill);
    QObject::connect(&window, &QQuickWindow::heightChanged, &screen, fill);
    fill();

    EventLoop loop;
    Driver driver(windowCommands());
    std::unique_ptr<DriverInput> input;
    if (options.drives) {
        input = std::make_unique<DriverInput>(driver, [&] { application.quit(); });
    } else {
        UIApplication::sharedApplication().launch(GXAppDelegate::delegate());
        QObject::connect(&application, &QGuiApplication::applicationStateChanged, &screen,
                         followState);
    }
    int exitCode = 0;
    if (!visible && !options.drives) {
        whenAtRest(window, screen, [&] {
            exitCode = showPicture(window, options.facts);
            application.quit();
        });
    }
    window.show();
    application.exec();
    input.reset();
    UIApplication::sharedApplication().terminate();
    return exitCode;
}

}  // namespace

}  // namespace gexlo

int main(int count, char** arguments) {
    const gexlo::DesktopCommandLine line = gexlo::parseDesktopCommandLine(count, arguments);
    if (!line.options) {
        std::fputs(line.text.c_str(), line.exitCode == 0 ? stdout : stderr);
        return line.exitCode;
    }
    const bool visible = gexlo::hasDisplay();
    if (!visible) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_QUICK_BACKEND", "software");
    }
    QGuiApplication application(count, arguments);
    QGuiApplication::setApplicationName(QStringLiteral("gexlo"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Gexlo"));
    QGuiApplication::setDesktopFileName(QStringLiteral("gexlo"));
    return gexlo::run(application, *line.options, visible);
}
