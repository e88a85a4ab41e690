#include "hosts/desktop/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>
#include <string_view>
#include <vector>

#include "hosts/headless/driver_options.h"
#include "platform/foundation/environment.h"

namespace gexlo {

namespace {

DesktopCommandLine parsed(const DriverCommandLine& line, bool drives, std::string opened) {
    if (!line.options) return {std::nullopt, line.text, line.exitCode};
    return {DesktopOptions{line.options->facts, line.options->clock, drives, std::move(opened)}, "",
            0};
}

}  // namespace

DesktopCommandLine parseDesktopCommandLine(int count, const char* const* arguments) {
    std::vector<const char*> rest(arguments, arguments + count);
    const auto driver = std::find_if(rest.begin(), rest.end(), [](const char* argument) {
        return std::string_view(argument) == "--driver";
    });
    if (driver != rest.end()) {
        rest.erase(driver);
        return parsed(parseDriverCommandLine(static_cast<int>(rest.size()), rest.data()), true, "");
    }

    DesktopOptions options{
        .facts = desktopFacts(), .clock = Clock::real(), .drives = false, .opened = ""};
    std::string data = options.facts.root.string();
    std::string screen;
    CLI::App app("Gexlo, a timetable organiser.");
    app.add_option("--data", data, "Directory that holds all that the application keeps");
    app.add_option("--screen", screen, "Size of the screen in points, as 375x667");
    app.add_option("file", options.opened, "A timetable file or a URL to open");
    bool drives = false;  // taken above, and told here for the help
    app.add_flag("--driver", drives,
                 "Take commands from standard input, with the driver's options");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        std::ostringstream text;
        const bool isHelp = app.exit(error, text, text) == 0;
        return {std::nullopt, text.str(), isHelp ? 0 : 2};
    }
    std::error_code error;
    options.facts.root = std::filesystem::absolute(data, error);
    if (!screen.empty() && !readScreenSize(screen, options.facts)) {
        return {std::nullopt, "--screen: \"" + screen + "\" is no size as 375x667\n", 2};
    }
    return {std::move(options), "", 0};
}

}  // namespace gexlo
