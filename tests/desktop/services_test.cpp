// What a desktop does for the application, on a bus of the test's own or on none.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>
#include <QLocalSocket>
#include <QProcess>

#include <sys/stat.h>
#include <thread>

#include "hosts/desktop/services/desktop_composers.h"
#include "hosts/desktop/services/desktop_key_store.h"
#include "hosts/desktop/services/desktop_notifications.h"
#include "hosts/desktop/services/opened_url.h"
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

TEST(OpenedUrl, names_a_file_whatever_it_is_called) {
    const TemporaryDirectory directory;
    std::filesystem::current_path(directory.path());
    writeFile("a:b.gexlo", "");
    const std::string here = "file://" + directory.path().string();
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"../한 1.gexlo", here + "/../%ED%95%9C%201.gexlo"},
        {"/50%/%41#1?.gexlo", "file:///50%25/%2541%231%3F.gexlo"},
        {"caf\xe9", here + "/caf%E9"},
        {"a:b.gexlo", here + "/a%3Ab.gexlo"},
        {"file:///%EC%A7%91/1%202%233.gexlo", "file:///%EC%A7%91/1%202%233.gexlo"},
        {"file:/집/1 2", "file:///%EC%A7%91/1%202"},
        {"tessaly://open?a=%20b", "tessaly://open?a=%20b"}};
    for (const auto& [argument, url] : cases)
        EXPECT_EQ(urlFromArgument(argument), url);
}

/// A desktop with commands of the test's own.
class Mail : public DesktopServices {
protected:
    Mail() {
        std::filesystem::create_directory(directory.path() / "bin");
        qputenv("PATH", (directory.path() / "bin").c_str());
    }
    ~Mail() override { qputenv("PATH", path); }
    void command(const char* name, const std::string& script) const {
        const auto file = directory.path() / "bin" / name;
        writeFile(file, "#!/bin/sh\n" + script);
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    }
    MFMailComposeResult compose(const gexlo::Mail& mail) {
        std::optional<MFMailComposeResult> result;
        Device::current().perform([&] {
            composers.composeMail(mail, [&](MFMailComposeResult told) { result = told; });
            EXPECT_FALSE(result) << "told before the composer was left";
        });
        return result.value();
    }

    const QByteArray path = qgetenv("PATH");
    Phone phone;
    const std::filesystem::path temporary = phone.facts.temporaryDirectory();
    DesktopComposers composers{temporary};
};

TEST_F(Mail, reaches_the_mail_program_word_for_word) {
    // A pipe is read to its end only when the program has come to its own.
    ASSERT_EQ(::mkfifo((directory.path() / "pipe").c_str(), 0600), 0);
    command("xdg-email", "printf '<%s>' \"$@\" >'" + (directory.path() / "pipe").string() + "'");
    const std::string body = "--help 'it''s' \"$HOME\" `id`;\n\n=\\n";
    ASSERT_EQ(
        compose(
            {"-s 시간표; $(id)",
             body,
             {{{'1'}, "", "a.gexlo"}, {{'2'}, "", "a.gexlo"}, {{'3'}, "", "../../-a b'c.gexlo"}}}),
        MFMailComposeResult::sent);
    const std::string mails = (temporary / "mail").string();
    EXPECT_EQ(readFile(directory.path() / "pipe"),
              "<--utf8><--attach><" + mails + "/1/a.gexlo><--attach><" + mails +
                  "/2/a.gexlo><--attach><" + mails +
                  "/3/-a b'c.gexlo><--subject><-s 시간표; $(id)><--body><" + body + ">");
    EXPECT_EQ(readFile(mails + "/2/a.gexlo") + readFile(mails + "/3/-a b'c.gexlo"), "23");
    EXPECT_EQ(std::filesystem::status(mails).permissions(), std::filesystem::perms::owner_all);
    const DesktopComposers atNextStart(temporary);
    EXPECT_FALSE(std::filesystem::exists(mails));
}

TEST_F(Mail, needs_a_command_and_a_program_for_its_addresses) {
    command("xdg-mime", "[ \"$*\" = 'query default x-scheme-handler/mailto' ] && echo mail");
    EXPECT_FALSE(composers.canSendMail()) << "no command";
    EXPECT_EQ(compose({"subject", "body", {}}), MFMailComposeResult::cancelled);
    command("xdg-email", "");
    EXPECT_TRUE(composers.canSendMail());
    command("xdg-mime", "echo");
    EXPECT_FALSE(composers.canSendMail()) << "no program";
    command("xdg-mime", "exec /bin/sleep 3600");
    DesktopComposers impatient(temporary, std::chrono::milliseconds(10));
    EXPECT_FALSE(impatient.canSendMail()) << "no answer";
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
