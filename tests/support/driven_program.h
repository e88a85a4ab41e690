// A host's program, played by lines of commands.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "support/child_process.h"
#include "support/phone.h"

namespace gexlo::test {

class DrivenProgram : public ::testing::Test {
protected:
    /// Runs it in the zone of the phone, and gives its answers, one a line.
    std::vector<nlohmann::json> play(std::vector<std::string> command, const std::string& lines,
                                     const std::vector<std::string>& options = {}) {
        command.insert(command.end(), {"--data", path(data), "--time-zone", "Asia/Seoul"});
        command.insert(command.end(), options.begin(), options.end());
        result = runProgram(command, lines);
        std::vector<nlohmann::json> answers;
        std::istringstream out(result.output);
        for (std::string line; std::getline(out, line);)
            answers.push_back(nlohmann::json::parse(line));
        return answers;
    }
    std::string path(const std::string& name) const { return (directory.path() / name).string(); }

    TemporaryDirectory directory;
    std::string data = "data";  ///< what it is run on, in the directory
    ChildResult result;
};

}  // namespace gexlo::test
