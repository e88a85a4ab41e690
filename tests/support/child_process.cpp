#include "support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "support/phone.h"

namespace gexlo::test {

namespace {

/// Its input and outputs are files, which hold what they are given however slow it is.
ChildResult runForked(const std::function<void()>& work, const std::string& input) {
    const TemporaryDirectory directory;
    const std::string files[] = {directory.path() / "in", directory.path() / "out",
                                 directory.path() / "err"};
    writeFile(files[0], input);
    std::fflush(nullptr);
    const int process = ::fork();
    if (process == 0) {
        for (int stream = 0; stream < 3; ++stream)
            ::dup2(::open(files[stream].c_str(), O_RDWR | O_CREAT, 0600), stream);
        work();
        std::fflush(nullptr);
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return {WIFSIGNALED(status), WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status),
            readFile(files[1]), readFile(files[2])};
}

}  // namespace

ChildResult runProgram(const std::vector<std::string>& command, const std::string& input) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
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
