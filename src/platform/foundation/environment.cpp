#include "platform/foundation/environment.h"

#include <unicode/timezone.h>

#include <cstdlib>
#include <sstream>

namespace gexlo {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::filesystem::path dataHome() {
    // The base directory rules: a relative path counts as not set.
    const std::filesystem::path told = variable("XDG_DATA_HOME");
    if (told.is_absolute()) return told;
    const std::filesystem::path home = variable("HOME");
    return home.is_absolute() ? home / ".local" / "share" : std::filesystem::temp_directory_path();
}

/// The locale as the C library picks it, without its encoding: "ko_KR".
std::string messagesLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string value = variable(name);
        if (!value.empty()) return value.substr(0, value.find_first_of(".@"));
    }
    return "";
}

bool isPlain(const std::string& locale) {
    return locale.empty() || locale == "C" || locale == "POSIX";
}

/// "zh_TW" as the code "zh-TW".
std::string languageCode(std::string locale) {
    locale = locale.substr(0, locale.find_first_of(".@"));
    const std::size_t underscore = locale.find('_');
    if (underscore == std::string::npos) return locale;
    const std::string language = locale.substr(0, underscore);
    // Only Chinese is written in a way that the region decides.
    return language == "zh" ? language + "-" + locale.substr(underscore + 1) : language;
}

std::vector<std::string> languages() {
    const std::string locale = messagesLocale();
    std::vector<std::string> codes;
    // The C library heeds LANGUAGE only where a locale is set at all.
    if (!isPlain(locale)) {
        std::istringstream list(variable("LANGUAGE"));
        for (std::string one; std::getline(list, one, ':');) {
            if (!isPlain(one)) codes.push_back(languageCode(one));
        }
        codes.push_back(languageCode(locale));
    }
    if (codes.empty()) codes.emplace_back("en");
    return codes;
}

std::string region() {
    const std::string locale = messagesLocale();
    const std::size_t underscore = locale.find('_');
    return isPlain(locale) || underscore == std::string::npos ? "US"
                                                              : locale.substr(underscore + 1);
}

std::string systemTimeZone() {
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString id;
    std::string name;
    return zone->getID(id).toUTF8String(name);
}

std::filesystem::path resourceDirectory() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    auto installed = program.parent_path().parent_path() / "share" / "gexlo";
    if (!error && std::filesystem::exists(installed / "strings", error)) return installed;
    return GEXLO_RESOURCES;
}

}  // namespace

DeviceFacts desktopFacts() {
    DeviceFacts facts;
    facts.root = dataHome() / "gexlo";
    facts.resources = resourceDirectory();
    facts.languages = languages();
    facts.region = region();
    facts.timeZone = systemTimeZone();
    return facts;
}

}  // namespace gexlo
