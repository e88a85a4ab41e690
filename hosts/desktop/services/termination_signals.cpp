#include "hosts/desktop/services/termination_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace gexlo {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

/// A handler can do no more than write to it.
std::array<int, 2> pipeEnds{-1, -1};

void handle(int) {
    const int error = errno;
    const char byte = 0;
    static_cast<void>(!::write(pipeEnds[1], &byte, 1));  // a full pipe tells enough
    errno = error;
}

void setHandler(void (*handler)(int), void (*instead)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    for (const int signal : kSignals) {
        struct sigaction former {};
        ::sigaction(signal, nullptr, &former);
        if (former.sa_handler == instead) ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> asked) : asked_(std::move(asked)) {
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    arrived_.setSocket(pipeEnds[0]);
    QObject::connect(&arrived_, &QSocketNotifier::activated, &arrived_, [this] {
        std::array<char, 64> bytes;
        while (::read(pipeEnds[0], bytes.data(), bytes.size()) > 0) {
        }
        asked_();
    });
    arrived_.setEnabled(true);
    setHandler(handle, SIG_DFL);
}

TerminationSignals::~TerminationSignals() {
    setHandler(SIG_DFL, handle);
    arrived_.setEnabled(false);
    for (int& end : pipeEnds) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

}  // namespace gexlo
