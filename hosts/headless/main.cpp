// The whole application with no window, told what to do line by line.
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
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

namespace {

/// By the real clock, what falls due while no line comes runs in time: later, it would count as
/// having fallen due while the process slept.
void runDueUntilInput(gexlo::Device& device) {
    gexlo::MainQueue& queue = device.mainQueue();
    while (!device.clock().stands() && std::cin.rdbuf()->in_avail() <= 0) {
        constexpr double kFarthest = 60;  // a clock that is put right is noticed by then
        double seconds = kFarthest;
        if (const auto due = queue.nextDue()) {
            seconds = std::clamp(due->timeIntervalSinceDate(gexlo::NSDate::date()), 0.0, seconds);
        }
        pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
        if (::poll(&input, 1, static_cast<int>(std::ceil(seconds * 1000))) != 0) return;
        queue.runDue();
    }
}

}  // namespace

int main(int count, char** arguments) {
    gexlo::DriverCommandLine commandLine = gexlo::parseDriverCommandLine(count, arguments);
    if (!commandLine.options) {
        std::fputs(commandLine.end.text.c_str(), commandLine.end.exitCode == 0 ? stdout : stderr);
        return commandLine.end.exitCode;
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
    for (;;) {
        runDueUntilInput(device);
        std::string line;
        if (!gexlo::readDriverLine(std::cin, line)) break;
        std::cout << driver.answer(line) << std::endl;
    }
    driver.end();
    return 0;
}
