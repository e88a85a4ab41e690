// The application in a window.
#include <QGuiApplication>
#include <QImage>
#include <QOpenGLContext>
#include <QQmlEngine>
#include <QSGRendererInterface>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "hosts/desktop/application_bar.h"
#include "hosts/desktop/desktop_session.h"
#include "hosts/desktop/driver_input.h"
#include "hosts/desktop/event_loop.h"
#include "hosts/desktop/options.h"
#include "hosts/desktop/phone_window.h"
#include "hosts/desktop/services/desktop_composers.h"
#include "hosts/desktop/services/desktop_key_store.h"
#include "hosts/desktop/services/opened_url.h"
#include "hosts/desktop/window_screenshot.h"
#include "hosts/drawing/qt_image_coder.h"
#include "hosts/drawing/qt_text_measure.h"
#include "hosts/headless/outbox.h"
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

/// Qt Quick ends the process where it cannot have OpenGL, and draws by itself when it is told.
void drawWithWhatIsThere() {
    QOpenGLContext context;
    if (!context.create()) QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

/// Where nobody could see it, a picture of the first screen is all that can be shown.
int showPicture(PhoneWindow& window, const DeviceFacts& facts) {
    const std::string path = (facts.temporaryDirectory() / "first-screen.png").string();
    if (!window.grabWindow().save(QString::fromStdString(path))) {
        std::fprintf(stderr, "The picture cannot be written to %s\n", path.c_str());
        return 1;
    }
    std::printf("There is no display. A picture of the first screen is in %s\n", path.c_str());
    return 0;
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

/// The exit code of a start that cannot have the directory: another run may take its request.
int giveWay(const InstallationLock& lock, const DesktopOptions& options) {
    if (lock.isTaken() && !options.drives &&
        SingleInstance::handOver(options.facts.root, urlFromArgument(options.opened))) {
        return 0;
    }
    std::fprintf(stderr, "%s\n", lock.refusal().c_str());
    return lock.isTaken() ? 1 : 2;
}

int run(QGuiApplication& application, DesktopOptions options, bool visible) {
    const InstallationLock lock(options.facts.root);
    if (!lock.isHeld()) return giveWay(lock, options);
    HostServices services;
    services.textMeasure = std::make_shared<QtTextMeasure>();
    services.imageCoder = std::make_shared<QtImageCoder>(options.facts.resources / "images");
    const auto outbox = options.drives ? std::make_shared<Outbox>() : nullptr;
    if (outbox) {
        services.composers = outbox;
    } else {
        options.facts.keyboardHeight = 0;  // the desktop has one of its own
        services.keyStore = std::make_shared<DesktopKeyStore>(options.facts.root);
        services.composers = std::make_shared<DesktopComposers>(options.facts.temporaryDirectory());
    }
    Device device(options.facts, options.clock, services);

    QQmlEngine engine;
    ViewPainter painter(options.facts.resources / "images");
    PhoneWindow window(engine, painter);

    EventLoop loop;
    Driver driver(
        {.outbox = outbox, .takeScreenshot = [&window](const DriverContext&, const auto& path) {
             writeScreenshot(window, path);
         }});
    std::unique_ptr<DriverInput> input;
    std::optional<DesktopSession> session;
    std::optional<ApplicationBar> bar;
    if (options.drives) {
        if (device.clock().stands()) window.screen().showAtRest();
        input = std::make_unique<DriverInput>(driver, [&] { application.quit(); });
    } else {
        session.emplace(window, options.facts.root);
        if (visible) {
            bar.emplace(engine, window, [&](const std::string& url) { session->receive(url); });
        }
    }
    int exitCode = 0;
    if (!visible && !options.drives) {
        whenAtRest(window, window.screen(), [&] {
            exitCode = showPicture(window, options.facts);
            application.quit();
        });
    }
    window.show();
    if (session && !options.opened.empty()) session->receive(urlFromArgument(options.opened));
    application.exec();
    input.reset();
    bar.reset();
    session.reset();
    UIApplication::sharedApplication().terminate();
    return exitCode;
}

}  // namespace

}  // namespace gexlo

int main(int count, char** arguments) {
    const gexlo::DesktopCommandLine line = gexlo::parseDesktopCommandLine(count, arguments);
    if (!line.options) {
        std::fputs(line.end.text.c_str(), line.end.exitCode == 0 ? stdout : stderr);
        return line.end.exitCode;
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
    if (visible) gexlo::drawWithWhatIsThere();
    return gexlo::run(application, *line.options, visible);
}
