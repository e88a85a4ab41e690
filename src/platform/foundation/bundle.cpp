#include "platform/foundation/bundle.h"

#include <array>
#include <nlohmann/json.hpp>

#include "platform/foundation/device.h"
#include "platform/foundation/file_manager.h"

namespace gexlo {

namespace {

struct Localization {
    std::string_view prefix;  // of a language code
    const char* table;
};

/// The first match counts, so the narrower codes stand first.
constexpr std::array<Localization, 8> kLocalizations{{
    {"en", "en"},
    {"ko", "ko"},
    {"ja", "ja"},
    {"zh-Hant", "zh-Hant"},
    {"zh-TW", "zh-Hant"},
    {"zh-HK", "zh-Hant"},
    {"zh-MO", "zh-Hant"},
    {"zh", "zh-Hans"},
}};

bool isCodeWithin(std::string_view language, std::string_view prefix) {
    return language.starts_with(prefix) &&
           (language.size() == prefix.size() || language[prefix.size()] == '-');
}

std::map<std::string, std::string, std::less<>> readTable(const std::filesystem::path& file) {
    std::map<std::string, std::string, std::less<>> table;
    const auto json = nlohmann::json::parse(contentsOfFile(file).value_or(""), nullptr, false);
    if (!json.is_object()) {
        NSLog("No texts in %@", file.string());
        return table;
    }
    for (const auto& [key, text] : json.items()) {
        if (text.is_string()) table.emplace(key, text.get<std::string>());
    }
    return table;
}

}  // namespace

std::string localizationFor(const std::vector<std::string>& languages) {
    for (const std::string& language : languages) {
        for (const Localization& known : kLocalizations) {
            if (isCodeWithin(language, known.prefix)) return known.table;
        }
    }
    return "en";
}

NSBundle& NSBundle::mainBundle() {
    return Device::current().singleton<NSBundle>();
}

NSBundle::NSBundle() {
    const std::string localization = localizationFor(Device::current().facts().languages);
    const std::filesystem::path directory = Device::current().facts().resources / "strings";
    tables_.push_back(readTable(directory / (localization + ".json")));
    if (localization != "en") tables_.push_back(readTable(directory / "en.json"));
}

std::string NSBundle::objectForInfoDictionaryKey(std::string_view key) const {
    return key == "CFBundleVersion" ? Device::current().facts().bundleVersion : std::string();
}

std::string NSBundle::localizedStringForKey(std::string_view key) const {
    for (const Table& table : tables_) {
        if (const auto found = table.find(key); found != table.end()) return found->second;
    }
    return std::string(key);
}

}  // namespace gexlo
