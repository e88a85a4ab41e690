#include "hosts/desktop/desktop_session.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QTimer>
#include <chrono>

#include "app/app_delegate.h"
#include "hosts/desktop/phone_window.h"
#include "platform/foundation/device.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"

namespace gexlo {

namespace {

/// What a desktop takes at most to show a window that was brought to the front.
constexpr std::chrono::seconds kUntilShown{1};

/// Neither closed nor minimised, and on the workspace that the desktop shows.
bool canBeSeen(const QWindow& window) {
    return window.isVisible() && window.isExposed() &&
           !window.windowStates().testFlag(Qt::WindowMinimized);
}

}  // namespace

DesktopSession::DesktopSession(PhoneWindow& window, const std::filesystem::path& root)
    : window_(window),
      notifications_(QStringLiteral("Gexlo"),
                     [this](const DesktopNotifications::Notes& notes) { open(notes); }),
      instance_(root, [this](const std::string& url) { receive(url); }),
      signals_([] { QCoreApplication::exit(); }) {
    UIApplication& application = UIApplication::sharedApplication();
    application.setRingHandler(
        [this](const DesktopNotifications::Notes& notes) { notifications_.show(notes); });
    application.setAlertHandler(
        [this](const UILocalNotification& note) { return showBesideAlert(note); });
    Device::current().requests().runRepliesAsTheyCome();
    application.launch(GXAppDelegate::delegate());
    window.installEventFilter(this);
    // The desktop's session may end the process right after this, or be kept by another program.
    const auto prepareForEnd = [this] {
        UIApplication::sharedApplication().enterBackground();
        followWindowSoon();
    };
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, prepareForEnd,
            Qt::DirectConnection);
    window.setDropped([this](const std::string& url) { receive(url); });
}

DesktopSession::~DesktopSession() {
    window_.setDropped({});
    window_.removeEventFilter(this);
    UIApplication& application = UIApplication::sharedApplication();
    application.enterBackground();
    application.setAlertHandler({});
    application.setRingHandler({});
}

bool DesktopSession::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Expose:
        case QEvent::Hide:
        case QEvent::WindowStateChange:
            followWindow();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void DesktopSession::followWindow() {
    UIApplication& application = UIApplication::sharedApplication();
    if (canBeSeen(window_)) {
        application.enterForeground();
    } else {
        application.enterBackground();
    }
}

/// What came to the application made it active; the desktop may not show the window even so.
void DesktopSession::followWindowSoon() {
    QTimer::singleShot(kUntilShown, this, &DesktopSession::followWindow);
}

/// As large as it was, maximised too.
void DesktopSession::bringToFront() {
    window_.setWindowStates(window_.windowStates() & ~Qt::WindowMinimized);
    window_.setVisible(true);
    window_.raise();
    window_.requestActivate();
    followWindowSoon();
}

void DesktopSession::receive(const std::string& url) {
    bringToFront();
    if (!url.empty()) UIApplication::sharedApplication().receiveURL(url);
}

void DesktopSession::open(const DesktopNotifications::Notes& notes) {
    bringToFront();
    UIApplication::sharedApplication().openRung(notes);
}

/// An alert in a window that a person works beside is easily overlooked: what is shown for it
/// goes with it.
std::shared_ptr<void> DesktopSession::showBesideAlert(const UILocalNotification& note) {
    if (window_.isActive()) return nullptr;
    const DesktopNotifications::Ticket ticket = notifications_.show({note});
    const auto withdraw = [shown = QPointer(&notifications_), ticket](void*) {
        if (shown) shown->withdraw(ticket);
    };
    return {static_cast<void*>(this), withdraw};
}

}  // namespace gexlo
