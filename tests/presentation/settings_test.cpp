// The working copy of a timetable's settings.
#include "presentation/settings_manager.h"

#include <gtest/gtest.h>

#include "support/phone.h"
#include "time/periods_controller.h"

namespace gexlo::test {

namespace {

TEST(Settings, the_copy_is_taken_whole) {
    Phone phone;
    phone.launch();
    GXTimetableData& timetable = phone.manager().addNewTimetable();
    GXSettingsManager& settings = GXSettingsManager::manager();
    using T = GXTimetableData;
    using S = GXSettingsManager;
    // No two alike, so that none is taken for another.
    const std::pair<Attribute<NSInteger> T::*, NSInteger (S::*)() const> numbers[] = {
        {&T::index, &S::timetableNo},        {&T::firstDay, &S::firstDay},
        {&T::lastDay, &S::lastDay},          {&T::firstPeriod, &S::firstPeriod},
        {&T::lastPeriod, &S::lastPeriod},    {&T::numWeeks, &S::numWeeks},
        {&T::textSize, &S::subjectTextSize},
    };
    const std::pair<Attribute<std::string> T::*, const std::string& (S::*)() const> texts[] = {
        {&T::name, &S::timetableName},
        {&T::colorBorder, &S::colorBorder},
        {&T::colorTableBack, &S::colorTableBack},
        {&T::colorDaysBack, &S::colorDaysBack},
        {&T::colorDaysFont, &S::colorDaysFont},
        {&T::colorPeriodsBack, &S::colorPeriodsBack},
        {&T::colorPeriodsFont, &S::colorPeriodsFont},
        {&T::backgroundImage, &S::backgroundImageName},
    };
    const std::pair<Attribute<float> T::*, float (S::*)() const> alphas[] = {
        {&T::alphaBorder, &S::alphaBorder},
        {&T::alphaTableBack, &S::alphaTableBack},
        {&T::alphaDaysBack, &S::alphaDaysBack},
        {&T::alphaPeriodsBack, &S::alphaPeriodsBack},
    };
    const std::pair<Attribute<bool> T::*, bool (S::*)() const> flags[] = {
        {&T::useHalfPeriods, &S::useHalfPeriods},       {&T::daysToNumbers, &S::daysToNumbers},
        {&T::useSameClasshours, &S::useSameClasshours}, {&T::daysOnLeft, &S::daysOnLeft},
        {&T::showClasstimes, &S::showClasshours},
    };
    NSInteger next = 1;
    for (const auto& [attribute, read] : numbers)
        timetable.*attribute = next++;
    for (const auto& [attribute, read] : texts)
        timetable.*attribute = std::to_string(next++);
    for (const auto& [attribute, read] : alphas)
        timetable.*attribute = static_cast<float>(next++);
    for (const auto& [on, readOn] : flags) {
        for (const auto& [attribute, read] : flags)
            timetable.*attribute = attribute == on;
        settings.setData(timetable);
        for (const auto& [attribute, read] : flags)
            EXPECT_EQ((settings.*read)(), attribute == on);
    }
    next = 1;
    for (const auto& [attribute, read] : numbers)
        EXPECT_EQ((settings.*read)(), next++);
    for (const auto& [attribute, read] : texts)
        EXPECT_EQ((settings.*read)(), std::to_string(next++));
    for (const auto& [attribute, read] : alphas)
        EXPECT_EQ((settings.*read)(), static_cast<float>(next++));
    EXPECT_EQ(settings.themeType(), 0);
    timetable.textSize.clear();
    settings.setData(timetable);
    EXPECT_EQ(settings.subjectTextSize(), 0);
}

TEST(Settings, changes_reach_neither_the_store_nor_the_next_copy) {
    Phone phone;
    phone.launch();
    GXTimetableData& timetable = phone.timetable();
    GXSettingsManager& settings = GXSettingsManager::manager();
    settings.setData(timetable);
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
