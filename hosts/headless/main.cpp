// The whole application with no window, told what to do line by line.
#include <cstdio>
#include <iostream>
#include <string>

#include "hosts/drawing/qt_text_measure.h"
#include "hosts/headless/driver.h"
#include "hosts/headless/driver_options.h"
#include "hosts/headless/screenshot_command.h"
#include "platform/foundation/installation_lock.h"

namespace {

/// Reads a line of at most the driver's length; of a longer one the rest is passed over, and
/// what is given is just too long.
bool readLine(std::istream& in, std::string& line) {
    line.clear();
    std::streambuf& buffer = *in.rdbuf();
    for (int c = buffer.sbumpc(); c != std::char_traits<char>::eof(); c = buffer.sbumpc()) {
        if (c == '\n') return true;
        if (line.size() <= gexlo::Driver::kLongestLine) line += static_cast<char>(c);
    }
    return !line.empty();
}

}  // namespace

int main(int count, char** arguments) {
    gexlo::DriverCommandLine commandLine = gexlo::parseDriverCommandLine(count, arguments);
    if (!commandLine.options) {
        std::fputs(commandLine.text.c_str(), commandLine.exitCode == 0 ? stdout : stderr);
        return commandLine.exitCode;
    }
    gexlo::DriverOptions& options = *commandLine.options;
    options.facts.textMeasure = std::make_shared<gexlo::QtTextMeasure>();
    const gexlo::InstallationLock lock(options.facts.root);
    if (!lock.isHeld()) {
        std::fprintf(stderr, "%s\n", lock.refusal().c_str());
        return lock.isTaken() ? 1 : 2;
    }
    gexlo::Device device(options.facts, options.clock);
    gexlo::Driver driver(gexlo::screenshotCommands());
    std::ios::sync_with_stdio(false);
    std::string line;
    while (readLine(std::cin, line))
        std::cout << driver.answer(line) << std::endl;
    driver.end();
    return 0;
}
