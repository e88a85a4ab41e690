// Questions of language and region.
#include "store/app_local.h"

#include <gtest/gtest.h>

#include "support/phone.h"

namespace gexlo::test {

namespace {

TEST(AppLocal, language_counts_by_its_first_two_letters_and_region_apart_from_it) {
    const struct {
        std::string language, region;
        bool korean, japanese, chinese, us, canada, philippines;
    } cases[] = {
        {"ko-KR", "US", true, false, false, true, false, false},
        {"ja", "CA", false, true, false, false, true, false},
        {"zh-Hant-TW", "PH", false, false, true, false, false, true},
        {"en", "VI", false, false, false, true, false, false},
        {"", "", false, false, false, false, false, false},
    };
    Phone phone;
    for (const auto& expected : cases) {
        phone.facts.languages = {expected.language};
        phone.facts.region = expected.region;
        phone.restart();
        const GXAppLocal& local = GXAppLocal::appLocal();
        EXPECT_EQ(local.isKorean(), expected.korean) << expected.language;
        EXPECT_EQ(local.isJapanease(), expected.japanese);
        EXPECT_EQ(local.isChinese(), expected.chinese);
        EXPECT_EQ(local.isUS(), expected.us);
        EXPECT_EQ(local.isCanada(), expected.canada);
        EXPECT_EQ(local.isPhilippines(), expected.philippines);
        EXPECT_EQ(local.localBoldFontWithSize(12).bold, !expected.korean);
    }
}

}  // namespace

}  // namespace gexlo::test
