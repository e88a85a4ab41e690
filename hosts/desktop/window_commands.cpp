#include "hosts/desktop/window_commands.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QImage>
#include <QTimer>

#include "hosts/desktop/phone_window.h"

namespace gexlo {

using nlohmann::json;

namespace {

PhoneWindow& theWindow() {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (auto* shown = qobject_cast<PhoneWindow*>(window)) return *shown;
    }
    throw CommandError("there is no window");
}

/// Lets what moves come to its place, as a person would before taking a picture.
void waitForRest(const ScreenItem& screen) {
    constexpr int step = 10;
    constexpr int longest = 500;
    for (int i = 0; i < longest && (i < 2 || screen.isAnimating()); ++i) {
        QEventLoop loop;
        QTimer::singleShot(step, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

json screenshot(const json& fields) {
    const QString path = QString::fromStdString(textField(fields, "path"));
    PhoneWindow& window = theWindow();
    waitForRest(window.screen());
    if (!window.grabWindow().save(path, "PNG")) {
        throw CommandError("\"" + path.toStdString() + "\" cannot be written");
    }
    return nothing();
}

}  // namespace

std::span<const DriverCommand> windowCommands() {
    static constexpr DriverCommand kCommands[] = {{"screenshot", screenshot}};
    return kCommands;
}

}  // namespace gexlo
