// The whole application with no window, told what to do line by line.
#include <cstdio>
#include <iostream>
#include <string>

#include "hosts/drawing/qt_text_measure.h"
#include "hosts/headless/driver.h"
#include "hosts/headless/driver_options.h"
#include "hosts/headless/line_reader.h"
#include "hosts/headless/outbox.h"
#include "hosts/headless/screenshot_command.h"
#include "platform/foundation/installation_lock.h"

int main(int count, char** arguments) {
    gexlo::DriverCommandLine commandLine = gexlo::parseDriverCommandLine(count, arguments);
    if (!commandLine.options) {
        std::fputs(commandLine.text.c_str(), commandLine.exitCode == 0 ? stdout : stderr);
        return commandLine.exitCode;
    }
    gexlo::DriverOptions& options = *commandLine.options;
    options.facts.textMeasure = std::make_shared<gexlo::QtTextMeasure>();
    options.facts.composers = std::make_shared<gexlo::Outbox>();
    const gexlo::InstallationLock lock(options.facts.root);
    if (!lock.isHeld()) {
        std::fprintf(stderr, "%s\n", lock.refusal().c_str());
        return lock.isTaken() ? 1 : 2;
    }
    gexlo::Device device(options.facts, options.clock);
    gexlo::Driver driver(gexlo::screenshotCommands());
    std::ios::sync_with_stdio(false);
    std::string line;
    while (gexlo::readDriverLine(std::cin, line))
        std::cout << driver.answer(line) << std::endl;
    driver.end();
    return 0;
}
