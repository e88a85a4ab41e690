#include "hosts/desktop/desktop_session.h"

#include <algorithm>

#include "app/app_delegate.h"
#include "hosts/desktop/phone_window.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"

namespace gexlo {

namespace {

/// The application's states follow the window's.
void followState(Qt::ApplicationState state) {
    UIApplication& application = UIApplication::sharedApplication();
    if (state == Qt::ApplicationActive) {
        application.enterForeground();
    } else if (state == Qt::ApplicationHidden || state == Qt::ApplicationSuspended) {
        application.enterBackground();
    }
}

/// What was clicked no longer lies unseen, and brings the application to the front.
void openNotification(const UILocalNotification& note) {
    UIApplication& application = UIApplication::sharedApplication();
    const auto& rung = application.rungLocalNotifications();
    const auto found = std::find(rung.begin(), rung.end(), note);
    if (found != rung.end()) {
        application.removeRungLocalNotification(static_cast<std::size_t>(found - rung.begin()));
    }
    application.open(note);
}

/// As large as it was, maximised too.
void bringToFront(QWindow& window) {
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.setVisible(true);
    window.raise();
    window.requestActivate();
}

}  // namespace

DesktopSession::DesktopSession(PhoneWindow& window, const std::filesystem::path& root)
    : window_(window),
      notifications_(QStringLiteral("Gexlo"),
                     [&window](const UILocalNotification& note) {
                         bringToFront(window);
                         openNotification(note);
                     }),
      instance_(root, [this](const std::string& url) { receive(url); }) {
    UIApplication& application = UIApplication::sharedApplication();
    application.setRingHandler(
        [this](const UILocalNotification& note) { notifications_.show(note); });
    application.launch(GXAppDelegate::delegate());
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, followState);
    window.setDropped([this](const std::string& url) { receive(url); });
}

DesktopSession::~DesktopSession() {
    window_.setDropped({});
    UIApplication::sharedApplication().setRingHandler({});
}

void DesktopSession::receive(const std::string& url) {
    bringToFront(window_);
    if (!url.empty()) UIApplication::sharedApplication().receiveURL(url);
}

}  // namespace gexlo
