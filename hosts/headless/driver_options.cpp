#include "hosts/headless/driver_options.h"

#include <charconv>

#include "hosts/headless/command_line.h"
#include "platform/foundation/calendar.h"
#include "platform/foundation/environment.h"
#include "platform/foundation/utf8.h"

namespace gexlo {

namespace {

constexpr int kSmallestSide = 100;
constexpr int kLargestSide = 10'000;

struct Size {
    int width;
    int height;
};

/// Reads "375x667".
std::optional<Size> sizeFromText(const std::string& text) {
    Size size{};
    const char* const end = text.data() + text.size();
    const auto [cross, widthError] = std::from_chars(text.data(), end, size.width);
    if (widthError != std::errc() || cross == end || *cross != 'x') return std::nullopt;
    const auto [rest, heightError] = std::from_chars(cross + 1, end, size.height);
    const auto isSide = [](int side) { return side >= kSmallestSide && side <= kLargestSide; };
    if (heightError != std::errc() || rest != end || !isSide(size.width) || !isSide(size.height)) {
        return std::nullopt;
    }
    return size;
}

std::string wrongWithLanguage(const std::string& language) {
    if (language.size() >= 2 && isValidUtf8(language)) return "";
    return "\"" + language + "\" is no language";
}

}  // namespace

bool readScreenSize(const std::string& text, DeviceFacts& facts) {
    const auto size = sizeFromText(text);
    if (!size) return false;
    facts.screenWidth = size->width;
    facts.screenHeight = size->height;
    return true;
}

DriverCommandLine parseDriverCommandLine(int count, const char* const* arguments) {
    DriverOptions options{.facts = desktopFacts()};
    DeviceFacts& facts = options.facts;
    facts.languages = {"en"};
    facts.region = "US";
    std::string data;
    std::string screen;
    std::string now;
    bool noWatch = false;

    const CommandLineOption taken[] = {
        {.name = "--data",
         .value = &data,
         .help = "Directory that holds all that the application keeps",
         .check = [](const std::string& path) { return path.empty() ? "is empty" : ""; },
         .isRequired = true},
        {"--screen", &screen, "Size in points, as 375x667",
         [](const std::string& text) {
             return sizeFromText(text) ? "" : "\"" + text + "\" is no size as 375x667";
         }},
        {"--status-bar", &facts.statusBarHeight, "Height in points", between(0, 200)},
        {"--scale", &facts.screenScale, "Pixels a point", between(0.5, 8)},
        {"--keyboard-height", &facts.keyboardHeight, "Height in points", between(0, 2000)},
        {"--languages", &facts.languages, "Preferred first, as en,ko", wrongWithLanguage},
        {"--region", &facts.region, "ISO 3166 code"},
        {"--time-zone", &facts.timeZone, "IANA name",
         [](const std::string& name) {
             return isTimeZone(name) ? "" : "\"" + name + "\" is no time zone";
         }},
        {"--now", &now, "Local time that stands still, as 2026-03-02T08:00:00"},
        {"--bundle-version", &facts.bundleVersion, "CFBundleVersion"},
        {"--os-version", &facts.osVersion, "Version of the phone's system"},
        {"--machine", &facts.machine, "hw.machine"},
        {"--vendor-id", &facts.vendorId, "Identifier for the vendor"},
        {"--no-watch", &noWatch, "No watch can be paired"},
        {"--service", &facts.serviceUrl, "Base URL of the community service"},
        {"--feedback", &facts.feedbackUrl, "URL of the feedback upload"},
    };
    if (auto end = readCommandLine("Plays Gexlo line by line: one JSON command in, one JSON answer "
                                   "out.",
                                   taken, count, arguments)) {
        return {std::nullopt, std::move(*end)};
    }
    if (!screen.empty()) readScreenSize(screen, facts);
    if (!now.empty()) {
        const auto date = dateFromLocalTime(now, NSCalendar::calendarInTimeZone(facts.timeZone));
        if (!date) {
            return {std::nullopt,
                    badArgument("--now", "\"" + now + "\" is no time as 2026-03-02T08:00:00")};
        }
        options.clock = Clock::standingAt(*date);
    }
    std::error_code error;
    facts.root = std::filesystem::absolute(data, error);
    facts.watchSupported = !noWatch;
    return {std::move(options), {}};
}

}  // namespace gexlo
