// A program's command line as a table of what it takes.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace gexlo {

/// What is wrong with a text, or "".
using ArgumentCheck = std::function<std::string(const std::string&)>;

struct CommandLineOption {
    std::string name;  ///< "--data"; without dashes, for what stands by itself
    /// Where it goes; a list's items stand between commas.
    std::variant<bool*, int*, double*, std::string*, std::vector<std::string>*> value;
    std::string help;
    ArgumentCheck check = {};
    bool isRequired = false;
};

/// A number between the two, both included.
ArgumentCheck between(double least, double most);

/// Why a program does not start: the text to print and the exit code, 0 for help and 2 for bad
/// arguments.
struct CommandLineEnd {
    std::string text;
    int exitCode = 0;
};
CommandLineEnd badArgument(const std::string& name, const std::string& wrong);

/// Writes what the arguments say to where the options say; what is not among them stays.
std::optional<CommandLineEnd> readCommandLine(const std::string& about,
                                              std::span<const CommandLineOption> options, int count,
                                              const char* const* arguments);

}  // namespace gexlo
