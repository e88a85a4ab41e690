#include "hosts/desktop/services/desktop_key_store.h"

#include <qt6keychain/keychain.h>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QTimer>

#include <array>

namespace gexlo {

namespace {

constexpr const char* kProgram = "gexlo";
/// Those that the library below speaks to. It asks some of them without a limit in time, so
/// they must have answered before it is let at them.
constexpr std::array kServices{"org.freedesktop.secrets", "org.kde.kwalletd6", "org.kde.kwalletd5"};

}  // namespace

DesktopKeyStore::DesktopKeyStore(const std::filesystem::path& root,
                                 std::chrono::milliseconds patience) {
    std::error_code error;
    const std::filesystem::path place = std::filesystem::weakly_canonical(root, error);
    // Each data directory has a secret of its own.
    key_ = QString::fromStdString("keychain of " + (error ? root : place).string());
    if (!QDBusConnection::sessionBus().isConnected()) return;
    QTimer::singleShot(patience, &answers_, &QEventLoop::quit);
    askService(0);
    answers_.exec();
}

void DesktopKeyStore::askService(std::size_t index) {
    if (index == kServices.size()) return answers_.quit();
    const QDBusMessage ping =
        QDBusMessage::createMethodCall(kServices[index], "/", "org.freedesktop.DBus.Peer", "Ping");
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(ping), &answers_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &answers_, [=, this] {
        watcher->deleteLater();
        if (watcher->isError()) return askService(index + 1);
        read();
    });
}

void DesktopKeyStore::read() {
    auto* job = new QKeychain::ReadPasswordJob(kProgram);
    job->setKey(key_);
    QObject::connect(job, &QKeychain::Job::finished, &answers_, [this, job] {
        if (job->error() == QKeychain::NoError) secret_ = job->textData().toStdString();
        if (job->error() == QKeychain::EntryNotFound) secret_ = "";
        answers_.quit();
    });
    job->start();
}

void DesktopKeyStore::save(const std::string& text, std::function<void()> kept) {
    auto* job = new QKeychain::WritePasswordJob(kProgram);
    job->setKey(key_);
    job->setTextData(QString::fromStdString(text));
    QObject::connect(job, &QKeychain::Job::finished, &answers_, [job, kept = std::move(kept)] {
        if (job->error() == QKeychain::NoError) kept();
    });
    job->start();
}

}  // namespace gexlo
