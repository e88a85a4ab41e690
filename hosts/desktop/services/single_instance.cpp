#include "hosts/desktop/services/single_instance.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

#include <chrono>

#include "platform/foundation/utf8.h"

namespace gexlo {

namespace {

// A request is a text that a zero ends; the answer to one that was taken is this byte.
constexpr char kEnd = '\0';
constexpr char kTaken = '+';
constexpr std::chrono::seconds kPatience{2};

QString socketIn(const std::filesystem::path& root) {
    return QString::fromStdString((root / "socket").string());
}

bool isRequest(const std::string& text) {
    return text.size() <= SingleInstance::kLongestRequest && isValidUtf8(text) &&
           text.find(kEnd) == std::string::npos;
}

int remaining(const QDeadlineTimer& deadline) {
    return static_cast<int>(deadline.remainingTime());
}

/// A run that has the directory may not listen yet, as when two files are opened at once.
bool connectTo(const QString& name, QLocalSocket& socket, const QDeadlineTimer& deadline) {
    for (; !deadline.hasExpired(); QThread::msleep(20)) {
        socket.connectToServer(name);
        if (socket.waitForConnected(remaining(deadline))) return true;
    }
    return false;
}

}  // namespace

SingleInstance::SingleInstance(const std::filesystem::path& root, Receive receive)
    : receive_(std::move(receive)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { accept(); });
    QLocalServer::removeServer(socketIn(root));
    // Without a socket, as on a file system that has none, a later start is just refused.
    server_.listen(socketIn(root));
}

void SingleInstance::accept() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        // One byte more than what can be right, to tell that it is not.
        socket->setReadBufferSize(static_cast<qint64>(kLongestRequest) + 1);
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QLocalSocket::readyRead, socket,
                         [this, socket] { read(*socket); });
        read(*socket);
    }
}

void SingleInstance::read(QLocalSocket& socket) {
    const std::string text = socket.peek(socket.bytesAvailable()).toStdString();
    const std::size_t end = text.find(kEnd);
    if (end == std::string::npos && text.size() <= kLongestRequest) return;  // not yet whole
    QObject::disconnect(&socket, &QLocalSocket::readyRead, nullptr, nullptr);
    const std::string request = text.substr(0, end);
    if (!isRequest(request)) return socket.abort();
    socket.putChar(kTaken);
    socket.disconnectFromServer();
    receive_(request);
}

bool SingleInstance::handOver(const std::filesystem::path& root, const std::string& request) {
    if (!isRequest(request)) return false;
    const QDeadlineTimer deadline(kPatience);
    QLocalSocket socket;
    if (!connectTo(socketIn(root), socket, deadline)) return false;
    socket.write(request.data(), static_cast<qint64>(request.size()));
    socket.putChar(kEnd);
    char answer = 0;
    return socket.waitForReadyRead(remaining(deadline)) && socket.getChar(&answer) &&
           answer == kTaken;
}

}  // namespace gexlo
