// What a desktop does for the application, on a bus of the test's own or on none.
#include <gtest/gtest.h>

#include <QLocalSocket>

#include <sys/stat.h>

#include "desktop/notification_service.h"
#include "hosts/desktop/services/desktop_composers.h"
#include "hosts/desktop/services/desktop_key_store.h"
#include "hosts/desktop/services/desktop_notifications.h"
#include "hosts/desktop/services/opened_url.h"
#include "hosts/desktop/services/single_instance.h"
#include "support/child_process.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

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
        return runBeside([&] { return SingleInstance::handOver(directory.path(), request); });
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

    const TemporaryDirectory directory;
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

/// Others than those with which a second start is tested.
TEST(OpenedUrl, names_a_file_whatever_it_is_called) {
    const std::string parent = "file://" + std::filesystem::current_path().string() + "/..";
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"../한 1.gexlo", parent + "/%ED%95%9C%201.gexlo"},
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

    const TemporaryDirectory directory;
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
    const auto comes = [&](bool can) { runUntil([&] { return composers.canSendMail() == can; }); };
    // It answers when it is told to.
    ASSERT_EQ(::mkfifo((directory.path() / "pipe").c_str(), 0600), 0);
    command("xdg-mime", "read word <'" + (directory.path() / "pipe").string() +
                            "'; [ \"$*\" = 'query default x-scheme-handler/mailto' ] && echo mail");
    EXPECT_EQ(compose({"subject", "body", {}}), MFMailComposeResult::cancelled) << "no command";
    command("xdg-email", "");
    DesktopComposers patient(temporary, std::chrono::hours(1));
    EXPECT_FALSE(patient.canSendMail()) << "waits for no answer";
    writeFile(directory.path() / "pipe", "\n");
    runUntil([&] { return patient.canSendMail(); });
    command("xdg-mime", "echo mail");
    comes(true);
    command("xdg-mime", "echo");
    comes(false);
    command("xdg-mime", "exec /bin/sleep 3600");
    DesktopComposers impatient(temporary, std::chrono::milliseconds(10));
    EXPECT_FALSE(impatient.canSendMail());
    command("xdg-mime", "echo mail");
    runUntil([&] { return impatient.canSendMail(); });
}

TEST_F(Mail, that_lacks_an_attachment_is_not_sent) {
    const auto asked = directory.path() / "asked";
    command("xdg-email", ": >'" + asked.string() + "'");
    writeFile(temporary / "mail", "in the way of the directory");
    phone.expectLog((temporary / "mail").string());
    EXPECT_EQ(compose({"subject", "body", {{{'1'}, "", "a.gexlo"}}}),
              MFMailComposeResult::cancelled);
    EXPECT_FALSE(std::filesystem::exists(asked));
}

TEST_F(NotificationService, shows_what_rang_as_it_is_and_tells_of_a_click) {
    std::string opened;
    const auto open = [&](const DesktopNotifications::Notes& clicked) {
        for (const UILocalNotification& note : clicked)
            opened += note.alertBody + ";";
    };
    DesktopNotifications notifications("Gexlo", open, peer("client"));
    std::vector<UILocalNotification> notes(2);
    for (const char* body : {"<R&D>", "<R&D>", "of a stranger", "closed", "clicked"}) {
        notes[0].alertBody = body;
        notifications.show({notes[0]});
        runUntil([&, before = shown.size()] { return shown.size() > before; });
        notes[0].soundName = UILocalNotificationDefaultSoundName;
        capabilities = QStringList{"body", "body-markup"};
    }
    notes[1].alertBody = "together";
    notifications.show(notes);
    runUntil([&] { return shown.size() == 6; });
    EXPECT_EQ(shown[0].mid(3, 2), QVariantList({"Gexlo", "<R&D>"}));
    EXPECT_EQ(shown[1].mid(3, 2), QVariantList({"Gexlo", "&lt;R&amp;D&gt;"}));
    EXPECT_EQ(texts()[5], "clicked\ntogether");
    std::vector<UILocalNotification> many(12, notes[1]);
    many.back().alertBody = "newest";
    notifications.show(many);
    runUntil([&] { return shown.size() == 7; });
    EXPECT_TRUE(texts()[6].ends_with("\nnewest")) << "where not all have room";
    EXPECT_TRUE(qdbus_cast<QVariantMap>(shown[0][6]).contains("suppress-sound"));
    for (const int number : {1, 5})
        EXPECT_TRUE(qdbus_cast<QVariantMap>(shown[number][6]).contains("sound-name"));
    signal("stranger", "ActionInvoked", 3, "default");
    signal("service", "NotificationClosed", 4, 1U);
    signal("service", "ActionInvoked", 4, "default");
    signal("service", "ActionInvoked", 5, "settings");
    signal("service", "ActionInvoked", 5, "default");
    runUntil([&] {
        // A person is slower: the client may not know its number yet.
        signal("service", "ActionInvoked", 6, "default");
        return opened.ends_with("together;");
    });
    EXPECT_EQ(opened, "clicked;clicked;together;");
}

TEST_F(NotificationService, takes_away_what_is_withdrawn_at_any_stage_of_its_way) {
    DesktopNotifications notifications("Gexlo", {}, peer("client"));
    const auto show = [&](const char* body) {
        UILocalNotification note;
        note.alertBody = body;
        return notifications.show({note});
    };
    notifications.withdraw(show("before the service has heard of it"));
    const auto heardOf = show("before it has its number");
    runUntil([&] { return shown.size() == 1; });
    notifications.withdraw(heardOf);
    runUntil([&] { return closed.size() == 1; });
    const auto late = show("long after");
    show("stays");
    runUntil([&] { return shown.size() == 3; });
    notifications.withdraw(late);
    runUntil([&] { return closed.size() == 2; });
    EXPECT_EQ(texts(),
              (std::vector<std::string>{"before it has its number", "long after", "stays"}));
    EXPECT_EQ(closed, (std::vector<uint>{1, 2}));
}

TEST_F(DesktopServices, without_a_bus_nothing_is_shown_read_or_said) {
    testing::internal::CaptureStderr();
    const TemporaryDirectory directory;
    DesktopNotifications notifications("Gexlo", {});
    notifications.withdraw(notifications.show({UILocalNotification()}));
    DesktopKeyStore keys(directory.path());
    QCoreApplication::processEvents();
    EXPECT_EQ(keys.load(), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace gexlo::test
