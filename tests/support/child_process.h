// Programs and functions in processes of their own.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace gexlo::test {

struct ChildResult {
    bool wasKilled = false;  ///< ended by a signal
    int code = 0;            ///< exit code, or the signal
    std::string output;
    std::string errors;
};

/// Runs the program with that standard input, to its end.
ChildResult runProgram(const std::vector<std::string>& command, const std::string& input);
/// Runs the function in a fork of this process, to its end.
ChildResult runInChild(const std::function<void()>& work);

/// A fork of this process that runs until it is killed or has done its work.
class Child {
public:
    explicit Child(const std::function<void()>& work);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    void kill();

private:
    int process_ = -1;
};

}  // namespace gexlo::test
