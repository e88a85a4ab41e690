// Shows what rings through the desktop's notification service.
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <map>

#include "platform/services/local_notification.h"

class QDBusMessage;

namespace gexlo {

/// Never waits for the service. Where none runs, nothing is shown.
class DesktopNotifications final : public QObject {
    Q_OBJECT
public:
    using Open = std::function<void(const UILocalNotification& note)>;

    /// `open` is called with the notification that was clicked.
    DesktopNotifications(const QString& applicationName, Open open,
                         const QDBusConnection& bus = QDBusConnection::sessionBus());

    void show(const UILocalNotification& note);

private:
    /// As the service knows it: its own name on the bus, and the number that it gave.
    using Shown = std::pair<QString, uint>;

    void notify(const UILocalNotification& note, bool bodyIsMarkup);
    Q_SLOT void actionInvoked(uint number, const QString& action, const QDBusMessage& signal);
    Q_SLOT void notificationClosed(uint number, uint reason, const QDBusMessage& signal);

    QString applicationName_;
    Open open_;
    QDBusConnection bus_;
    std::map<Shown, UILocalNotification> shown_;
};

}  // namespace gexlo
