#include "hosts/desktop/window_screenshot.h"

#include <QEventLoop>
#include <QImage>
#include <QTimer>

#include "hosts/desktop/phone_window.h"
#include "hosts/headless/driver_command.h"

namespace gexlo {

namespace {

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

}  // namespace

void writeScreenshot(PhoneWindow& window, const std::filesystem::path& path) {
    waitForRest(window.screen());
    if (!window.grabWindow().save(QString::fromStdString(path.string()), "PNG")) {
        throw CommandError("\"" + path.string() + "\" cannot be written");
    }
}

}  // namespace gexlo
