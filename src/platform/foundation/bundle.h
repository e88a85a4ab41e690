// The application's bundle: its version, its resources and its texts.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace gexlo {

class NSBundle {
public:
    static NSBundle& mainBundle();

    NSBundle();

    /// The text of "CFBundleVersion"; "" for any other key.
    std::string objectForInfoDictionaryKey(std::string_view key) const;

    /// The text in the user's language, else in English, else the key itself.
    std::string localizedStringForKey(std::string_view key) const;

private:
    using Table = std::map<std::string, std::string, std::less<>>;

    std::vector<Table> tables_;  // in the order in which they are asked
};

/// The localised text of a key.
inline std::string NSLocalizedString(std::string_view key) {
    return NSBundle::mainBundle().localizedStringForKey(key);
}

/// The first table that serves one of the languages, preferred first; "en" without one.
std::string localizationFor(const std::vector<std::string>& languages);

}  // namespace gexlo
