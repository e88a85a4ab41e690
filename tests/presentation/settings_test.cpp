// The working copy of a timetable's settings.
#include "presentation/settings_manager.h"

#include <gtest/gtest.h>

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

}  // namespace

}  // namespace gexlo::test
