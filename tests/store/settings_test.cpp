// The working copy of a timetable's settings, and questions of language and region.
#include "store/settings_manager.h"

#include <gtest/gtest.h>

#include "store/app_local.h"
#include "support/phone.h"
#include "time/periods_controller.h"

namespace gexlo::test {

namespace {

TEST(Settings, the_copy_is_taken_whole_and_changes_reach_neither_store_nor_next_copy) {
    Phone phone;
    phone.launch();
    GXTimetableData& timetable = phone.timetable();
    timetable.showClasstimes = true;
    timetable.textSize.clear();
    GXSettingsManager& settings = GXSettingsManager::manager();
    settings.setData(timetable);
    EXPECT_EQ(settings.timetableName(), "New timetable");
    EXPECT_TRUE(settings.showClasshours());
    EXPECT_EQ(settings.subjectTextSize(), 0);
    EXPECT_EQ(settings.alphaPeriodsBack(), 0.6F);
    EXPECT_EQ(settings.backgroundImageName(), "#F3F0EC");
    EXPECT_EQ(settings.themeType(), 0);
    EXPECT_EQ(settings.periodsInfo()->numPeriods(), 9);

    settings.setLastPeriod(3);
    settings.setUseHalfPeriods(true);
    settings.setClassHourChanged(true);
    settings.setThemeType(2);
    EXPECT_EQ(settings.periodsInfo()->numPeriods(), 9) << "until the list is brought in line";
    settings.updatePeriodsInfo();
    EXPECT_EQ(settings.periodsInfo()->numPeriods(), 6);
    EXPECT_EQ(timetable.lastPeriod.get(), 9);

    settings.setData(timetable);
    EXPECT_EQ(settings.lastPeriod(), 9);
    EXPECT_FALSE(settings.classHourChanged());
    EXPECT_EQ(settings.themeType(), 0);
}

TEST(Settings, language_counts_by_its_first_two_letters_and_region_apart_from_it) {
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
