// Sends mail by the mail program of the desktop.
#pragma once

#include <QProcess>
#include <QTimer>
#include <chrono>
#include <filesystem>

#include "platform/services/composers.h"

namespace gexlo {

class DesktopComposers final : public Composers {
public:
    /// Attachments lie below the directory until the next start, since nobody says when the mail
    /// program is done with them; those of an earlier run go. The desktop, which is asked from here
    /// on, has `patience` to answer.
    explicit DesktopComposers(const std::filesystem::path& temporaryDirectory,
                              std::chrono::milliseconds patience = std::chrono::seconds(2));

    ~DesktopComposers() override;

    /// Whether the desktop has a program for mail addresses, by its last answer; false before the
    /// first. Asks it anew, and waits for nothing.
    bool canSendMail() override;
    /// Opens the mail program with the mail, which counts as sent.
    void composeMail(Mail mail, std::function<void(MFMailComposeResult)> finished) override;

private:
    void ask();
    std::filesystem::path store(const MailAttachment& attachment);

    std::filesystem::path directory_;
    int attachments_ = 0;
    QProcess query_;
    QTimer patience_;
    bool hasProgram_ = false;
};

}  // namespace gexlo
