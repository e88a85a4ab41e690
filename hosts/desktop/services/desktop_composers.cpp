#include "hosts/desktop/services/desktop_composers.h"

#include <QStandardPaths>

#include "hosts/drawing/qt_text.h"
#include "platform/foundation/device.h"
#include "platform/foundation/file_manager.h"
#include "platform/foundation/log.h"

namespace gexlo {

namespace {

constexpr auto kMailer = "xdg-email";

/// Makes it for its owner alone.
void makePrivateDirectory(const std::filesystem::path& directory) {
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    std::filesystem::permissions(directory, std::filesystem::perms::owner_all, error);
}

}  // namespace

DesktopComposers::DesktopComposers(const std::filesystem::path& temporaryDirectory,
                                   std::chrono::milliseconds patience)
    : directory_(temporaryDirectory / "mail") {
    std::error_code error;
    std::filesystem::remove_all(directory_, error);
    query_.setStandardInputFile(QProcess::nullDevice());
    query_.setStandardErrorFile(QProcess::nullDevice());
    query_.setProgram("xdg-mime");
    query_.setArguments({"query", "default", "x-scheme-handler/mailto"});
    patience_.setSingleShot(true);
    patience_.setInterval(patience);
    QObject::connect(&patience_, &QTimer::timeout, &query_, &QProcess::kill);
    QObject::connect(&query_, &QProcess::finished, &query_, [this] {
        patience_.stop();
        hasProgram_ = !query_.readAllStandardOutput().trimmed().isEmpty();
    });
    ask();
}

DesktopComposers::~DesktopComposers() {
    query_.kill();
    query_.waitForFinished();
}

void DesktopComposers::ask() {
    if (query_.state() != QProcess::NotRunning) return;
    query_.start();
    patience_.start();
}

bool DesktopComposers::canSendMail() {
    ask();
    return hasProgram_ && !QStandardPaths::findExecutable(kMailer).isEmpty();
}

/// The path of a file of its own, under the attachment's name; "" if it cannot be written.
std::filesystem::path DesktopComposers::store(const MailAttachment& attachment) {
    // Each in a directory of its own: two may have one name.
    const auto directory = directory_ / std::to_string(++attachments_);
    makePrivateDirectory(directory_);
    makePrivateDirectory(directory);
    const auto path = directory / std::filesystem::path(attachment.fileName).filename();
    const std::string_view bytes(reinterpret_cast<const char*>(attachment.data.data()),
                                 attachment.data.size());
    const auto wrong = writeFileAtomically(path, bytes);
    if (wrong) NSLog("%@", *wrong);
    return wrong ? std::filesystem::path() : path;
}

void DesktopComposers::composeMail(Mail mail, std::function<void(MFMailComposeResult)> finished) {
    QStringList arguments{"--utf8"};
    bool isComplete = true;
    for (const MailAttachment& attachment : mail.attachments) {
        const auto path = store(attachment);
        isComplete = isComplete && !path.empty();
        arguments << "--attach" << qtText(path.string());
    }
    // It takes an option without a value for a mistake.
    if (!mail.subject.empty()) arguments << "--subject" << qtText(mail.subject);
    if (!mail.body.empty()) arguments << "--body" << qtText(mail.body);

    // It may last as long as the mail program, which must outlive this one.
    QProcess mailer;
    mailer.setProgram(kMailer);
    mailer.setArguments(arguments);
    mailer.setStandardInputFile(QProcess::nullDevice());
    mailer.setStandardOutputFile(QProcess::nullDevice());
    mailer.setStandardErrorFile(QProcess::nullDevice());
    const bool isStarted = isComplete && mailer.startDetached();
    Device::current().mainQueue().async([finished = std::move(finished), isStarted] {
        finished(isStarted ? MFMailComposeResult::sent : MFMailComposeResult::cancelled);
    });
}

}  // namespace gexlo
