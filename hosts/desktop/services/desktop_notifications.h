// Shows what rings through the desktop's notification service.
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <map>
#include <set>
#include <vector>

#include "platform/services/local_notification.h"

class QDBusMessage;

namespace gexlo {

/// Never waits for the service. Where none runs, nothing is shown.
class DesktopNotifications final : public QObject {
    Q_OBJECT
public:
    using Notes = std::vector<UILocalNotification>;
    using Open = std::function<void(const Notes& notes)>;
    /// Numbers what is shown; no two alike.
    using Ticket = int;

    /// `open` is called with what was shown as the one that is clicked.
    DesktopNotifications(const QString& applicationName, Open open,
                         const QDBusConnection& bus = QDBusConnection::sessionBus());

    /// Shows them as one, the newest ten where there are more.
    Ticket show(Notes notes);
    /// Takes it off the screen; does nothing for one that has gone.
    void withdraw(Ticket ticket);

private:
    /// As the service knows it: its own name on the bus, and the number that it gave.
    using Address = std::pair<QString, uint>;
    struct Shown {
        Ticket ticket;
        Notes notes;
    };

    void notify(Shown shown, bool bodyIsMarkup);
    void close(const Address& address);
    Q_SLOT void actionInvoked(uint number, const QString& action, const QDBusMessage& signal);
    Q_SLOT void notificationClosed(uint number, uint reason, const QDBusMessage& signal);

    QString applicationName_;
    Open open_;
    QDBusConnection bus_;
    Ticket lastTicket_ = 0;
    std::set<Ticket> underWay_;  // on the way to the service, and not withdrawn
    std::map<Address, Shown> shown_;
};

}  // namespace gexlo
