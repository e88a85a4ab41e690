#include "hosts/desktop/services/desktop_notifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace gexlo {

namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr const char* kOpenAction = "default";  // by which the service knows a click
constexpr const char* kProgram = "gexlo";       // its icon and desktop entry

/// Calls the service, and `then` with its answer; without one nothing happens.
template <typename Then>
void call(const QDBusConnection& bus, QObject* owner, const char* method,
          const QVariantList& arguments, Then then) {
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, kService, method);
    message.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, then] {
        watcher->deleteLater();
        if (!watcher->isError()) then(watcher->reply());
    });
}

QVariantMap hintsOf(const UILocalNotification& note) {
    QVariantMap hints{{"desktop-entry", kProgram}};
    if (note.soundName.empty()) {
        hints.insert("suppress-sound", true);
    } else {
        hints.insert("sound-name", "alarm-clock-elapsed");
    }
    return hints;
}

}  // namespace

DesktopNotifications::DesktopNotifications(const QString& applicationName, Open open,
                                           const QDBusConnection& bus)
    : applicationName_(applicationName), open_(std::move(open)), bus_(bus) {
    // From any sender: finding out who the service is would wait for the bus.
    bus_.connect(QString(), kPath, kService, "ActionInvoked", this,
                 SLOT(actionInvoked(uint, QString, QDBusMessage)));
    bus_.connect(QString(), kPath, kService, "NotificationClosed", this,
                 SLOT(notificationClosed(uint, uint, QDBusMessage)));
}

void DesktopNotifications::show(const UILocalNotification& note) {
    if (!bus_.isConnected()) return;
    // Asked each time, because another service may have taken over since.
    call(bus_, this, "GetCapabilities", {}, [this, note](const QDBusMessage& reply) {
        const QDBusPendingReply<QStringList> capabilities(reply);
        notify(note, capabilities.value().contains("body-markup"));
    });
}

void DesktopNotifications::notify(const UILocalNotification& note, bool bodyIsMarkup) {
    const QString text = QString::fromStdString(note.alertBody);
    const QString label =
        note.alertAction.empty() ? applicationName_ : QString::fromStdString(note.alertAction);
    constexpr uint kReplacesNone = 0;
    constexpr int kUsualTime = -1;
    const QVariantList arguments{applicationName_,
                                 kReplacesNone,
                                 kProgram,
                                 applicationName_,
                                 bodyIsMarkup ? text.toHtmlEscaped() : text,
                                 QStringList{kOpenAction, label},
                                 hintsOf(note),
                                 kUsualTime};
    call(bus_, this, "Notify", arguments, [this, note](const QDBusMessage& reply) {
        const QDBusPendingReply<uint> number(reply);
        if (number.isValid()) shown_.insert_or_assign({reply.service(), number.value()}, note);
    });
}

void DesktopNotifications::actionInvoked(uint number, const QString& action,
                                         const QDBusMessage& signal) {
    const auto found = shown_.find({signal.service(), number});
    if (found == shown_.end() || action != kOpenAction) return;
    const UILocalNotification note = found->second;
    shown_.erase(found);
    open_(note);
}

void DesktopNotifications::notificationClosed(uint number, uint /*reason*/,
                                              const QDBusMessage& signal) {
    shown_.erase({signal.service(), number});
}

}  // namespace gexlo
