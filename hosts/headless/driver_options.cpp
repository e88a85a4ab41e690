#include "hosts/headless/driver_options.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <sstream>

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

std::string checkLanguages(const std::vector<std::string>& languages) {
    for (const std::string& language : languages) {
        if (language.size() < 2 || !isValidUtf8(language))
            return "\"" + language + "\" is no language";
    }
    return "";
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

    CLI::App app("Plays Gexlo line by line: one JSON command in, one JSON answer out.");
    app.add_option("--data", data, "Directory that holds all that the application keeps")
        ->required()
        ->check([](const std::string& path) {
            return path.empty() ? std::string("is empty") : std::string();
        });
    app.add_option("--screen", screen, "Size in points, as 375x667")
        ->check([](const std::string& text) {
            return sizeFromText(text) ? std::string() : "\"" + text + "\" is no size as 375x667";
        });
    app.add_option("--status-bar", facts.statusBarHeight, "Height in points")
        ->check(CLI::Range(0, 200));
    app.add_option("--scale", facts.screenScale, "Pixels a point")->check(CLI::Range(0.5, 8.0));
    app.add_option("--keyboard-height", facts.keyboardHeight, "Height in points")
        ->check(CLI::Range(0, 2000));
    app.add_option("--languages", facts.languages, "Preferred first, as en,ko")->delimiter(',');
    app.add_option("--region", facts.region, "ISO 3166 code");
    app.add_option("--time-zone", facts.timeZone, "IANA name")->check([](const std::string& name) {
        return isTimeZone(name) ? std::string() : "\"" + name + "\" is no time zone";
    });
    app.add_option("--now", now, "Local time that stands still, as 2026-03-02T08:00:00");
    app.add_option("--bundle-version", facts.bundleVersion, "CFBundleVersion");
    app.add_option("--os-version", facts.osVersion, "Version of the phone's system");
    app.add_option("--machine", facts.machine, "hw.machine");
    app.add_option("--vendor-id", facts.vendorId, "Identifier for the vendor");
    app.add_flag("--no-watch", noWatch, "No watch can be paired");
    app.add_option("--service", facts.serviceUrl, "Base URL of the community service");
    app.add_option("--feedback", facts.feedbackUrl, "URL of the feedback upload");

    try {
        app.parse(count, arguments);
        if (const auto wrong = checkLanguages(facts.languages); !wrong.empty()) {
            throw CLI::ValidationError("--languages", wrong);
        }
        if (!screen.empty()) readScreenSize(screen, facts);
        if (!now.empty()) {
            const auto date =
                dateFromLocalTime(now, NSCalendar::calendarInTimeZone(facts.timeZone));
            if (!date)
                throw CLI::ValidationError("--now",
                                           "\"" + now + "\" is no time as 2026-03-02T08:00:00");
            options.clock = Clock::standingAt(*date);
        }
    } catch (const CLI::ParseError& error) {
        std::ostringstream text;
        const bool isHelp = app.exit(error, text, text) == 0;
        return {std::nullopt, text.str(), isHelp ? 0 : 2};
    }
    std::error_code error;
    facts.root = std::filesystem::absolute(data, error);
    facts.watchSupported = !noWatch;
    return {std::move(options), "", 0};
}

}  // namespace gexlo
