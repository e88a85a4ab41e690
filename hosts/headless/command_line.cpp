// The one source that includes the library's header, which takes longer than any other to compile.
#include "hosts/headless/command_line.h"

#include <CLI/CLI.hpp>
#include <sstream>
#include <type_traits>

namespace gexlo {

namespace {

CLI::Option* add(CLI::App& app, const CommandLineOption& option) {
    return std::visit(
        [&](auto* value) {
            using Value = std::remove_pointer_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, bool>) {
                return app.add_flag(option.name, *value, option.help);
            } else {
                CLI::Option* added = app.add_option(option.name, *value, option.help);
                if (std::is_same_v<Value, std::vector<std::string>>) added->delimiter(',');
                return added;
            }
        },
        option.value);
}

CommandLineEnd ending(const CLI::App& app, const CLI::ParseError& error) {
    std::ostringstream text;
    const bool isHelp = app.exit(error, text, text) == 0;
    return {text.str(), isHelp ? 0 : 2};
}

}  // namespace

ArgumentCheck between(double least, double most) {
    return [range = CLI::Range(least, most)](const std::string& text) {
        std::string number = text;
        return range(number);
    };
}

CommandLineEnd badArgument(const std::string& name, const std::string& wrong) {
    return ending(CLI::App(), CLI::ValidationError(name, wrong));
}

std::optional<CommandLineEnd> readCommandLine(const std::string& about,
                                              std::span<const CommandLineOption> options, int count,
                                              const char* const* arguments) {
    CLI::App app(about);
    for (const CommandLineOption& option : options) {
        CLI::Option* added = add(app, option)->required(option.isRequired);
        if (option.check) added->check(option.check);
    }
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return ending(app, error);
    }
    return std::nullopt;
}

}  // namespace gexlo
