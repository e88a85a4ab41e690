// A session bus of the test's own, with a notification service that keeps what it is asked.
#pragma once

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>
#include <QProcess>

#include "desktop/run_until.h"

namespace gexlo::test {

class DesktopServices : public testing::Test {
protected:
    DesktopServices() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"); }

    int count = 0;
    QCoreApplication application{count, nullptr};
};

/// It answers in the thread of the test, so whoever waited for it would wait for good.
class NotificationService : public DesktopServices, public QDBusVirtualObject {
protected:
    NotificationService() {
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        daemon.waitForReadyRead();
        address = QString::fromUtf8(daemon.readLine().trimmed());
        for (const char* name : kPeers)
            EXPECT_TRUE(QDBusConnection::connectToBus(address, name).isConnected());
        EXPECT_TRUE(peer("service").registerVirtualObject(kPath, this) &&
                    peer("service").registerService(kName));
    }
    ~NotificationService() override {
        for (const char* name : kPeers)
            QDBusConnection::disconnectFromBus(name);
        daemon.terminate();
        daemon.waitForFinished();
    }
    static QDBusConnection peer(const char* name) { return QDBusConnection(name); }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == "GetCapabilities")
            return bus.send(message.createReply(QVariant(capabilities)));
        if (message.member() == "CloseNotification") {
            closed.push_back(message.arguments().front().toUInt());
            return bus.send(message.createReply());
        }
        shown.push_back(message.arguments());
        return bus.send(message.createReply(static_cast<uint>(shown.size())));
    }
    /// The texts of what was shown, oldest first.
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const QVariantList& arguments : shown)
            all.push_back(arguments[4].toString().toStdString());
        return all;
    }
    /// Comes back when the bus has passed it on.
    static void signal(const char* from, const char* name, uint number, const QVariant& what) {
        QDBusMessage signal = QDBusMessage::createSignal(kPath, kName, name);
        peer(from).send(signal << number << what);
        (void)peer(from).interface()->isServiceRegistered(kName);
    }

    QStringList capabilities;
    std::vector<QVariantList> shown;  ///< arguments; the numbers run from 1
    std::vector<uint> closed;         ///< numbers
    QString address;
    QProcess daemon;

private:
    static constexpr const char* kName = "org.freedesktop.Notifications";
    static constexpr const char* kPath = "/org/freedesktop/Notifications";
    static constexpr const char* kPeers[] = {"client", "service", "stranger"};
};

}  // namespace gexlo::test
