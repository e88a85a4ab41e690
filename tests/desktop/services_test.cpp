// What a desktop does for the application, on a bus of the test's own or on none.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>
#include <QLocalSocket>
#include <QProcess>
#include <QUrl>

#include <thread>

#include "hosts/desktop/services/desktop_key_store.h"
#include "hosts/desktop/services/desktop_notifications.h"
#include "hosts/desktop/services/single_instance.h"
#include "support/child_process.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";

class DesktopServices : public testing::Test {
protected:
    DesktopServices() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"); }
    /// Lets events come until one of them makes it true.
    template <typename Condition>
    static void runUntil(Condition isTrue) {
        while (!isTrue())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    TemporaryDirectory directory;
    int count = 0;
    QCoreApplication application{count, nullptr};
};

/// The first start comes after a run that died and left its socket.
class SecondStart : public DesktopServices {
protected:
    SecondStart() {
        runInChild([&] { (new QLocalServer)->listen(socketName); });
        EXPECT_TRUE(std::filesystem::exists(socketFile));
        first.emplace(directory.path(), [&](const std::string& text) { received.push_back(text); });
    }
    /// Whether a second start is rid of its request, while the first goes on.
    bool handOver(const std::string& request) {
        std::optional<bool> taken;
        std::thread start([&] {
            const bool isTaken = SingleInstance::handOver(directory.path(), request);
            const auto tell = [&taken, isTaken] { taken = isTaken; };
            QMetaObject::invokeMethod(qApp, tell, Qt::QueuedConnection);
        });
        runUntil([&] { return taken.has_value(); });
        start.join();
        return *taken;
    }
    /// Whether the first hangs up on what another program writes there, without an answer.
    bool isRefused(const QByteArray& noise) {
        QLocalSocket socket;
        socket.connectToServer(socketName);
        EXPECT_TRUE(socket.waitForConnected());
        socket.write(noise);
        runUntil([&] { return socket.state() == QLocalSocket::UnconnectedState; });
        return socket.bytesAvailable() == 0;
    }

    const std::filesystem::path socketFile = directory.path() / "socket";
    const QString socketName = QString::fromStdString(socketFile.string());
    std::vector<std::string> received;
    std::optional<SingleInstance> first;
};

TEST_F(SecondStart, hands_its_request_to_the_first_alone) {
    const std::string longest(SingleInstance::kLongestRequest, 'x');
    const std::vector<std::string> requests{"", "/집/2026년 시간표.gexlo", "tessaly:", longest};
    for (const std::string& request : requests)
        EXPECT_TRUE(handOver(request));
    EXPECT_EQ(received, requests);
    const auto allowed = std::filesystem::status(socketFile).permissions();
    EXPECT_EQ(static_cast<int>(allowed) & 077, 0) << "others can reach it";
}

TEST_F(SecondStart, is_refused_what_is_too_long_or_no_text) {
    const std::string tooLong(SingleInstance::kLongestRequest + 1, 'x');
    for (const std::string& request : {tooLong, std::string("\xff"), std::string("a\0b", 3)})
        EXPECT_FALSE(handOver(request));
    EXPECT_TRUE(isRefused(QByteArray::fromStdString(tooLong)) && isRefused({"\xff", 2}));
    EXPECT_EQ(received, std::vector<std::string>{});
    EXPECT_TRUE(handOver("still there"));
}

TEST_F(SecondStart, names_a_file_wherever_it_was_started) {
    std::filesystem::current_path("/usr");
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"lib/../한.gexlo", "/usr/한.gexlo"},
        {"file:///%EC%A7%91/1%202%233.gexlo", "/집/1 2#3.gexlo"},
        {"tessaly://open?a=%20b", "tessaly://open?a=%20b"}};
    for (const auto& [argument, request] : cases)
        EXPECT_EQ(SingleInstance::requestFrom(argument), request);
}

/// A bus with a notification service that keeps what it is asked to show. It answers in the
/// thread of the test, so whoever waited for it would wait for good.
class Notifications : public DesktopServices, public QDBusVirtualObject {
protected:
    Notifications() {
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        daemon.waitForReadyRead();
        const QString address = QString::fromUtf8(daemon.readLine().trimmed());
        for (const char* name : kPeers)
            EXPECT_TRUE(QDBusConnection::connectToBus(address, name).isConnected());
        EXPECT_TRUE(peer("service").registerVirtualObject(kPath, this) &&
                    peer("service").registerService(kName));
    }
    ~Notifications() override {
        daemon.terminate();
        daemon.waitForFinished();
    }
    static QDBusConnection peer(const char* name) { return QDBusConnection(name); }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == "GetCapabilities")
            return bus.send(message.createReply(QVariant(capabilities)));
        shown.push_back(message.arguments());
        return bus.send(message.createReply(static_cast<uint>(shown.size())));
    }
    /// Comes back when the bus has passed it on.
    static void signal(const char* from, const char* name, uint number, const QVariant& what) {
        QDBusMessage signal = QDBusMessage::createSignal(kPath, kName, name);
        peer(from).send(signal << number << what);
        (void)peer(from).interface()->isServiceRegistered(kName);
    }

    QStringList capabilities;
    std::vector<QVariantList> shown;
    static constexpr const char* kPeers[] = {"client", "service", "stranger"};
    QProcess daemon;
};

TEST_F(Notifications, are_shown_as_they_are_and_opened_by_a_click) {
    std::string opened;
    const auto open = [&](const UILocalNotification& clicked) { opened += clicked.alertBody; };
    DesktopNotifications notifications("Gexlo", open, peer("client"));
    UILocalNotification note;
    for (const char* body : {"<R&D>", "<R&D>", "of a stranger", "closed", "clicked"}) {
        note.alertBody = body;
        notifications.show(note);
        runUntil([&, before = shown.size()] { return shown.size() > before; });
        note.soundName = UILocalNotificationDefaultSoundName;
        capabilities = QStringList{"body", "body-markup"};
    }
    EXPECT_EQ(shown[0].mid(3, 2), QVariantList({"Gexlo", "<R&D>"}));
    EXPECT_EQ(shown[1].mid(3, 2), QVariantList({"Gexlo", "&lt;R&amp;D&gt;"}));
    EXPECT_TRUE(qdbus_cast<QVariantMap>(shown[0][6]).contains("suppress-sound"));
    EXPECT_TRUE(qdbus_cast<QVariantMap>(shown[1][6]).contains("sound-name"));
    signal("stranger", "ActionInvoked", 3, "default");
    signal("service", "NotificationClosed", 4, 1U);
    signal("service", "ActionInvoked", 4, "default");
    signal("service", "ActionInvoked", 5, "settings");
    signal("service", "ActionInvoked", 5, "default");
    runUntil([&] { return !opened.empty(); });
    EXPECT_EQ(opened, "clicked");
}

TEST_F(DesktopServices, without_a_bus_nothing_is_shown_read_or_said) {
    testing::internal::CaptureStderr();
    DesktopNotifications notifications("Gexlo", [](const UILocalNotification&) {});
    notifications.show({});
    DesktopKeyStore keys(directory.path());
    QCoreApplication::processEvents();
    EXPECT_EQ(keys.load(), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace gexlo::test
