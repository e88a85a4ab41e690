#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

#include "platform/foundation/bundle.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

using Texts = std::map<std::string, std::string>;

const std::filesystem::path kStrings = std::filesystem::path(GEXLO_RESOURCES) / "strings";

/// What a text wants of each argument, by the argument's number.
std::multimap<int, std::string> placeholdersOf(const std::string& text) {
    static const std::regex directive(
        "%(?:%|(?:([0-9]+)\\$)?([-+ 0#]*[0-9]*(?:\\.[0-9]+)?l*[@dfs]))");
    std::multimap<int, std::string> wanted;
    int next = 0;
    for (std::sregex_iterator at(text.begin(), text.end(), directive), end; at != end; ++at) {
        const std::smatch& match = *at;
        if (match[0] == "%%") continue;
        wanted.emplace(match[1].matched ? std::stoi(match[1]) : ++next, match[2]);
    }
    EXPECT_EQ(std::regex_replace(text, directive, "").find('%'), text.npos) << text;
    return wanted;
}

/// What stands before and behind a number: a language may need one alone, or none.
bool mayBeEmpty(const std::string& key) {
    return key == "PERIOD_FRONT" || key == "PERIOD_BACK" || key == "DATEVIEW_DAY";
}

/// What is written so in every language, or in more than one.
bool mayBeEnglish(const std::string& key) {
    return mayBeEmpty(key) || key == "APP_NAME" || key == "OK_BUTTON";
}

TEST(Texts, every_language_says_the_same) {
    const Texts english = nlohmann::json::parse(readFile(kStrings / "en.json"));
    for (const auto& entry : std::filesystem::directory_iterator(kStrings)) {
        const Texts texts = nlohmann::json::parse(readFile(entry.path()));
        EXPECT_EQ(texts.size(), english.size()) << entry.path();
        for (const auto& [key, text] : texts) {
            ASSERT_TRUE(english.contains(key)) << key << " in " << entry.path();
            EXPECT_TRUE(mayBeEmpty(key) || text.find_first_not_of(" \t\n") != text.npos)
                << key << " in " << entry.path();
            EXPECT_TRUE(mayBeEnglish(key) || entry.path().stem() == "en" || text != english.at(key))
                << key << " in " << entry.path();
            EXPECT_EQ(placeholdersOf(text), placeholdersOf(english.at(key))) << key << entry.path();
        }
    }
}

/// Whether it is written as keys are, but names something else.
bool isNoText(const std::string& word) {
    static const std::regex other("GX_.*|(LC|QT|XDG)_.*|WAYLAND_DISPLAY");
    return std::regex_match(word, other);
}

TEST(Texts, every_key_in_the_source_has_one) {
    const Texts english = nlohmann::json::parse(readFile(kStrings / "en.json"));
    // Asked for, in a list of keys, or written in capitals with an underscore.
    static const std::regex lists(
        R"((NSLocalizedString|\btext)\([^()]*|Keys(\[\d*\])? ?= ?\{[^}]*)");
    static const std::regex word(R"re("([^"]+)")re");
    static const std::regex capitals(R"re("([A-Z][A-Z0-9]*(_[A-Z0-9]+)+)")re");
    std::set<std::string> keys;
    const auto take = [&](const std::string& text, const std::regex& kind) {
        for (std::sregex_iterator at(text.begin(), text.end(), kind), end; at != end; ++at)
            if (!isNoText((*at)[1])) keys.insert((*at)[1]);
    };
    for (const char* folder : {"src", "hosts"}) {
        const auto path = std::filesystem::path(GEXLO_RESOURCES).parent_path() / folder;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
            if (!entry.is_regular_file()) continue;
            const std::string source = readFile(entry.path());
            take(source, capitals);
            for (std::sregex_iterator at(source.begin(), source.end(), lists), end; at != end; ++at)
                take((*at)[0], word);
        }
    }
    EXPECT_TRUE(keys.contains("FRIDAY") && keys.contains("OPEN_FILE"));
    for (const std::string& key : keys)
        EXPECT_TRUE(english.contains(key)) << key;
}

TEST(Texts, the_first_language_that_has_a_table_counts) {
    const std::map<std::string, std::string> cases{{"ko-KR", "ko"},
                                                   {"kok", "en"},
                                                   {"fr", "en"},
                                                   {"zh-CN", "zh-Hans"},
                                                   {"zh-Hans-HK", "zh-Hans"},
                                                   {"zh-TW", "zh-Hant"},
                                                   {"zh-Hant-CN", "zh-Hant"},
                                                   {"ja", "ja"},
                                                   {"", "en"}};
    for (const auto& [language, expected] : cases) {
        EXPECT_EQ(localizationFor({language}), expected) << language;
        EXPECT_TRUE(std::filesystem::exists(kStrings / (expected + ".json"))) << expected;
    }
    EXPECT_EQ(localizationFor({"fr", "ko", "ja"}), "ko");
    EXPECT_EQ(localizationFor({"fr", "en-GB", "ko"}), "en");
    EXPECT_EQ(localizationFor({}), "en");
}

TEST(Texts, a_text_that_is_missing_comes_in_english_and_last_as_its_key) {
    Phone phone;
    std::filesystem::create_directory(phone.facts.root / "strings");
    writeFile(phone.facts.root / "strings" / "en.json", R"({"A": "a", "B": "b", "C": 7})");
    writeFile(phone.facts.root / "strings" / "ko.json", R"({"A": "가"})");
    writeFile(phone.facts.root / "strings" / "ja.json", R"({"A": )");
    phone.expectLog("ja.json");
    phone.facts.resources = phone.facts.root;
    for (const auto& [language, text] : {std::pair{"ko", "가bC"}, {"ja", "abC"}, {"fr", "abC"}}) {
        phone.facts.languages = {language};
        phone.restart();
        EXPECT_EQ(NSLocalizedString("A") + NSLocalizedString("B") + NSLocalizedString("C"), text);
    }
}

}  // namespace
}  // namespace gexlo::test
