// What a desktop's environment says about languages, region, zone and places.
#include "platform/foundation/environment.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <map>
#include <optional>

#include "platform/foundation/bundle.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

/// The environment as the table has it, and as it was again at the end.
class Environment {
public:
    explicit Environment(const std::map<std::string, std::string>& variables) {
        for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG", "LC_CTYPE", "TZ",
                                 "XDG_DATA_HOME", "HOME"}) {
            const char* value = ::getenv(name);
            former_[name] = value ? std::optional<std::string>(value) : std::nullopt;
            const auto told = variables.find(name);
            set(name, told == variables.end() ? std::nullopt : std::optional(told->second));
        }
    }
    ~Environment() {
        for (const auto& [name, value] : former_)
            set(name, value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    static void set(const std::string& name, const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }
    std::map<std::string, std::optional<std::string>> former_;
};

TEST(DesktopEnvironment, tells_the_languages_and_the_region_as_other_programs_read_them) {
    struct Case {
        std::map<std::string, std::string> variables;
        std::vector<std::string> languages;
        std::string region;
        std::string texts;  // the table that the application takes
    };
    const Case cases[] = {
        {{}, {"en"}, "US", "en"},
        {{{"LANG", "C.UTF-8"}, {"LANGUAGE", "ko"}}, {"en"}, "US", "en"},
        {{{"LANG", "ko_KR.UTF-8"}}, {"ko"}, "KR", "ko"},
        {{{"LANG", "de_AT@euro"}}, {"de"}, "AT", "en"},
        {{{"LANG", "ko_KR"}, {"LC_MESSAGES", "ja_JP.UTF-8"}}, {"ja"}, "JP", "ja"},
        {{{"LANG", "ko_KR"}, {"LC_MESSAGES", "ja_JP"}, {"LC_ALL", "en_GB"}}, {"en"}, "GB", "en"},
        {{{"LANG", "ko_KR"}, {"LC_ALL", "C"}}, {"en"}, "US", "en"},
        {{{"LANG", "ko_KR"}, {"LC_ALL", ""}, {"LC_CTYPE", "ja_JP"}}, {"ko"}, "KR", "ko"},
        {{{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "fr:ja_JP.UTF-8:C:ko"}},
         {"fr", "ja", "ko", "en"},
         "US",
         "ja"},
        {{{"LANG", "zh_CN.UTF-8"}}, {"zh-CN"}, "CN", "zh-Hans"},
        {{{"LANG", "zh_SG"}}, {"zh-SG"}, "SG", "zh-Hans"},
        {{{"LANG", "zh_TW.UTF-8"}}, {"zh-TW"}, "TW", "zh-Hant"},
        {{{"LANG", "zh_HK.UTF-8"}}, {"zh-HK"}, "HK", "zh-Hant"},
        {{{"LANG", "en_HK"}, {"LANGUAGE", "zh_HK:zh"}}, {"zh-HK", "zh", "en"}, "HK", "zh-Hant"},
        {{{"LANG", "ko"}}, {"ko"}, "US", "ko"}};
    for (const auto& [variables, languages, region, texts] : cases) {
        const Environment environment(variables);
        const DeviceFacts facts = desktopFacts();
        EXPECT_EQ(facts.languages, languages);
        EXPECT_EQ(facts.region, region) << languages[0];
        EXPECT_EQ(localizationFor(facts.languages), texts) << languages[0];
    }
}

TEST(DesktopEnvironment, tells_the_zone_and_where_things_are_kept) {
    const Environment environment({{"TZ", "Asia/Seoul"}, {"HOME", "/home/a"}});
    EXPECT_EQ(desktopFacts().timeZone, "Asia/Seoul");
    EXPECT_EQ(desktopFacts().root, "/home/a/.local/share/gexlo");
    const Environment told({{"HOME", "/home/a"}, {"XDG_DATA_HOME", "/data"}});
    EXPECT_EQ(desktopFacts().root, "/data/gexlo");
    const Environment relative({{"HOME", "/home/a"}, {"XDG_DATA_HOME", "data"}});
    EXPECT_EQ(desktopFacts().root, "/home/a/.local/share/gexlo");
}

}  // namespace
}  // namespace gexlo::test
