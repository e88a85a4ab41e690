#include "hosts/desktop/services/desktop_notifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>

namespace gexlo {

namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr const char* kOpenAction = "default";  // by which the service knows a click
constexpr const char* kProgram = "gexlo";       // its icon and desktop entry

/// How many texts a bubble on the screen has room for.
constexpr std::size_t kNewest = 10;

QDBusMessage callOf(const char* method, const QVariantList& arguments,
                    const QString& service = kService) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, kPath, kService, method);
    message.setArguments(arguments);
    return message;
}

/// Calls the service, and `then` with its answer; without one nothing happens.
template <typename Then>
void call(const QDBusConnection& bus, QObject* owner, const char* method,
          const QVariantList& arguments, Then then) {
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(callOf(method, arguments)), owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, then] {
        watcher->deleteLater();
        if (!watcher->isError()) then(watcher->reply());
    });
}

QVariantMap hintsOf(const DesktopNotifications::Notes& notes) {
    QVariantMap hints{{"desktop-entry", kProgram}};
    const bool isSilent =
        std::ranges::all_of(notes, [](const auto& note) { return note.soundName.empty(); });
    if (isSilent) {
        hints.insert("suppress-sound", true);
    } else {
        hints.insert("sound-name", "alarm-clock-elapsed");
    }
    return hints;
}

QString textOf(const DesktopNotifications::Notes& notes) {
    QStringList texts;
    for (const UILocalNotification& note : notes)
        texts << QString::fromStdString(note.alertBody);
    return texts.join(QLatin1Char('\n'));
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

DesktopNotifications::Ticket DesktopNotifications::show(Notes notes) {
    const Ticket ticket = ++lastTicket_;
    if (!bus_.isConnected() || notes.empty()) return ticket;
    underWay_.insert(ticket);
    // Asked each time, because another service may have taken over since.
    call(bus_, this, "GetCapabilities", {},
         [this, shown = Shown{ticket, std::move(notes)}](const QDBusMessage& reply) {
             const QDBusPendingReply<QStringList> capabilities(reply);
             notify(shown, capabilities.value().contains("body-markup"));
         });
    return ticket;
}

void DesktopNotifications::notify(Shown shown, bool bodyIsMarkup) {
    if (!underWay_.contains(shown.ticket)) return;
    const std::size_t older = shown.notes.size() - std::min(shown.notes.size(), kNewest);
    const Notes newest(shown.notes.begin() + static_cast<std::ptrdiff_t>(older), shown.notes.end());
    const QString text = textOf(newest);
    const std::string action = newest.size() == 1 ? newest.front().alertAction : "";
    const QString label = action.empty() ? applicationName_ : QString::fromStdString(action);
    constexpr uint kReplacesNone = 0;
    constexpr int kUsualTime = -1;
    const QVariantList arguments{applicationName_,
                                 kReplacesNone,
                                 kProgram,
                                 applicationName_,
                                 bodyIsMarkup ? text.toHtmlEscaped() : text,
                                 QStringList{kOpenAction, label},
                                 hintsOf(newest),
                                 kUsualTime};
    call(bus_, this, "Notify", arguments,
         [this, shown = std::move(shown)](const QDBusMessage& reply) {
             const QDBusPendingReply<uint> number(reply);
             if (!number.isValid()) return;
             const Address address{reply.service(), number.value()};
             if (underWay_.erase(shown.ticket) == 0) return close(address);
             shown_.insert_or_assign(address, shown);
         });
}

void DesktopNotifications::withdraw(Ticket ticket) {
    underWay_.erase(ticket);
    const auto found = std::ranges::find_if(
        shown_, [ticket](const auto& entry) { return entry.second.ticket == ticket; });
    if (found == shown_.end()) return;
    close(found->first);
    shown_.erase(found);
}

/// At the very service that shows it: another has numbers of its own.
void DesktopNotifications::close(const Address& address) {
    bus_.send(callOf("CloseNotification", {address.second}, address.first));
}

void DesktopNotifications::actionInvoked(uint number, const QString& action,
                                         const QDBusMessage& signal) {
    const auto found = shown_.find({signal.service(), number});
    if (found == shown_.end() || action != kOpenAction) return;
    const Notes notes = std::move(found->second.notes);
    shown_.erase(found);
    open_(notes);
}

void DesktopNotifications::notificationClosed(uint number, uint /*reason*/,
                                              const QDBusMessage& signal) {
    shown_.erase({signal.service(), number});
}

}  // namespace gexlo
