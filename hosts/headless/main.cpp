// The whole application with no window, told what to do line by line.
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <string>

#include "hosts/drawing/qt_image_coder.h"
#include "hosts/drawing/qt_text_measure.h"
#include "hosts/headless/driver.h"
#include "hosts/headless/driver_options.h"
#include "hosts/headless/input_wait.h"
#include "hosts/headless/line_reader.h"
#include "hosts/headless/outbox.h"
#include "hosts/headless/painted_screenshot.h"
#include "platform/foundation/installation_lock.h"

int main(int count, char** arguments) {
    gexlo::DriverCommandLine commandLine = gexlo::parseDriverCommandLine(count, arguments);
    if (!commandLine.options) {
        std::fputs(commandLine.end.text.c_str(), commandLine.end.exitCode == 0 ? stdout : stderr);
        return commandLine.end.exitCode;
    }
    gexlo::DriverOptions& options = *commandLine.options;
    const gexlo::InstallationLock lock(options.facts.root);
    if (!lock.isHeld()) {
        std::fprintf(stderr, "%s\n", lock.refusal().c_str());
        return lock.isTaken() ? 1 : 2;
    }
    gexlo::HostServices services;
    services.textMeasure = std::make_shared<gexlo::QtTextMeasure>();
    services.imageCoder = std::make_shared<gexlo::QtImageCoder>(options.facts.resources / "images");
    const auto outbox = std::make_shared<gexlo::Outbox>();
    services.composers = outbox;
    gexlo::Device device(options.facts, options.clock, services);
    gexlo::Driver driver({.outbox = outbox, .takeScreenshot = gexlo::paintScreenshot});
    gexlo::InputWait input(device, STDIN_FILENO);
    std::ios::sync_with_stdio(false);
    for (;;) {
        if (std::cin.rdbuf()->in_avail() <= 0) input.wait();
        std::string line;
        if (!gexlo::readDriverLine(std::cin, line)) break;
        std::cout << driver.answer(line) << std::endl;
    }
    driver.end();
    return 0;
}
