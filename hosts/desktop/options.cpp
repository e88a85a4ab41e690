#include "hosts/desktop/options.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "hosts/headless/driver_options.h"
#include "platform/foundation/environment.h"

namespace gexlo {

namespace {

DesktopCommandLine parsed(const DriverCommandLine& line, bool drives, std::string opened) {
    if (!line.options) return {std::nullopt, line.end};
    return {DesktopOptions{line.options->facts, line.options->clock, drives, std::move(opened)},
            {}};
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
    bool drives = false;  // taken above, and told here for the help
    const CommandLineOption taken[] = {
        {"--data", &data, "Directory that holds all that the application keeps"},
        {"--screen", &screen, "Size of the screen in points, as 375x667"},
        {"file", &options.opened, "A timetable file or a URL to open"},
        {"--driver", &drives, "Take commands from standard input, with the driver's options"},
    };
    if (auto end = readCommandLine("Gexlo, a timetable organiser.", taken, count, arguments)) {
        return {std::nullopt, std::move(*end)};
    }
    std::error_code error;
    options.facts.root = std::filesystem::absolute(data, error);
    if (!screen.empty() && !readScreenSize(screen, options.facts)) {
        return {std::nullopt, badArgument("--screen", "\"" + screen + "\" is no size as 375x667")};
    }
    return {std::move(options), {}};
}

}  // namespace gexlo
