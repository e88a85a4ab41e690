#include "support/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace gexlo::test {

namespace {

struct Pipe {
    Pipe() {
        if (::pipe2(ends, O_CLOEXEC) != 0) std::abort();
    }
    ~Pipe() {
        closeReader();
        closeWriter();
    }
    void closeReader() { closeEnd(0); }
    void closeWriter() { closeEnd(1); }
    void closeEnd(int which) {
        if (ends[which] >= 0) ::close(ends[which]);
        ends[which] = -1;
    }
    int ends[2];
};

/// Feeds and drains a child until it has closed its outputs, and waits for its end.
ChildResult collect(int process, Pipe& in, Pipe& out, Pipe& err, const std::string& input) {
    out.closeWriter();
    err.closeWriter();
    in.closeReader();
    ::fcntl(in.ends[1], F_SETFL, O_NONBLOCK);
    ChildResult result;
    std::size_t written = 0;
    if (input.empty()) in.closeWriter();
    while (out.ends[0] >= 0 || err.ends[0] >= 0) {
        std::array<pollfd, 3> waits{
            {{out.ends[0], POLLIN, 0}, {err.ends[0], POLLIN, 0}, {in.ends[1], POLLOUT, 0}}};
        ::poll(waits.data(), waits.size(), -1);
        if (waits[2].revents != 0) {
            const ssize_t some =
                ::write(in.ends[1], input.data() + written, input.size() - written);
            written += some > 0 ? static_cast<std::size_t>(some) : 0;
            if (some < 0 || written == input.size()) in.closeWriter();
        }
        std::array<char, 65536> buffer;
        const auto drain = [&](const pollfd& wait, Pipe& from, std::string& to) {
            if (wait.fd < 0 || wait.revents == 0) return;
            const ssize_t some = ::read(wait.fd, buffer.data(), buffer.size());
            if (some > 0) {
                to.append(buffer.data(), static_cast<std::size_t>(some));
            } else {
                from.closeReader();
            }
        };
        drain(waits[0], out, result.output);
        drain(waits[1], err, result.errors);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    result.wasKilled = WIFSIGNALED(status);
    result.code = result.wasKilled ? WTERMSIG(status) : WEXITSTATUS(status);
    return result;
}

ChildResult runForked(const std::function<void()>& work, const std::string& input) {
    ::signal(SIGPIPE, SIG_IGN);
    Pipe in;
    Pipe out;
    Pipe err;
    std::fflush(nullptr);
    const int process = ::fork();
    if (process == 0) {
        ::dup2(in.ends[0], STDIN_FILENO);
        ::dup2(out.ends[1], STDOUT_FILENO);
        ::dup2(err.ends[1], STDERR_FILENO);
        work();
        std::fflush(nullptr);
        ::_exit(0);
    }
    return collect(process, in, out, err, input);
}

}  // namespace

ChildResult runProgram(const std::vector<std::string>& command, const std::string& input) {
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    return runForked(
        [&] {
            ::execv(arguments[0], arguments.data());
            ::_exit(127);
        },
        input);
}

ChildResult runInChild(const std::function<void()>& work) {
    return runForked(work, "");
}

Child::Child(const std::function<void()>& work) {
    std::fflush(nullptr);
    process_ = ::fork();
    if (process_ == 0) {
        work();
        ::_exit(0);
    }
}

Child::~Child() {
    kill();
}

void Child::kill() {
    if (process_ < 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = -1;
}

}  // namespace gexlo::test
