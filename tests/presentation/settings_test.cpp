// The working copy of a timetable's settings.
#include "presentation/settings_manager.h"

#include <sstream>

#include "support/launched_phone.h"
#include "time/periods_controller.h"

namespace gexlo::test {

namespace {

using Settings = LaunchedPhone;

TEST_F(Settings, the_copy_is_taken_whole) {
    GXTimetableData& timetable = manager().addNewTimetable();
    GXSettingsManager& settings = GXSettingsManager::manager();
    const auto told = [&] {
        const GXSettingsManager& s = settings;
        return std::vector<Object>{s.timetableNo,       s.firstDay,         s.lastDay,
                                   s.firstPeriod,       s.lastPeriod,       s.numWeeks,
                                   s.subjectTextSize,   s.timetableName,    s.colorBorder,
                                   s.colorTableBack,    s.colorDaysBack,    s.colorDaysFont,
                                   s.colorPeriodsBack,  s.colorPeriodsFont, s.backgroundImageName,
                                   s.alphaBorder,       s.alphaTableBack,   s.alphaDaysBack,
                                   s.alphaPeriodsBack,  s.useHalfPeriods,   s.daysToNumbers,
                                   s.useSameClasshours, s.daysOnLeft,       s.showClasshours};
    };
    std::istringstream keys(
        "index firstDay lastDay firstPeriod lastPeriod numWeeks textSize name colorBorder "
        "colorTableBack colorDaysBack colorDaysFont colorPeriodsBack colorPeriodsFont "
        "backgroundImage alphaBorder alphaTableBack alphaDaysBack alphaPeriodsBack useHalfPeriods "
        "daysToNumbers useSameClasshours daysOnLeft showClasstimes");
    settings.setData(timetable);
    auto expected = told();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const NSInteger number = static_cast<NSInteger>(i) + 20;  // no two alike
        if (i < 7) expected[i] = number;
        if (i >= 7 && i < 15) expected[i] = std::to_string(number);
        if (i >= 15 && i < 19) expected[i] = static_cast<float>(number);
        if (i >= 19) expected[i] = !expected[i].boolValue();
        std::string key;
        keys >> key;
        timetable.setValue_forKey(expected[i], key);
        settings.setData(timetable);
        EXPECT_EQ(told(), expected) << key;
    }
    timetable.textSize.clear();
    settings.setData(timetable);
    EXPECT_EQ(settings.subjectTextSize, 0);
}

TEST_F(Settings, changes_reach_neither_the_store_nor_the_next_copy) {
    GXTimetableData& timetable = phone.timetable();
    GXSettingsManager& settings = GXSettingsManager::manager();
    settings.setData(timetable);
    settings.lastPeriod = 3;
    settings.useHalfPeriods = true;
    settings.classHourChanged = true;
    settings.themeType = 2;
    EXPECT_EQ(settings.periodsInfo()->numPeriods(), 9) << "until the list is brought in line";
    settings.updatePeriodsInfo();
    EXPECT_EQ(settings.periodsInfo()->numPeriods(), 6);
    EXPECT_EQ(timetable.lastPeriod.get(), 9);

    settings.setData(timetable);
    EXPECT_EQ(settings.lastPeriod, 9);
    EXPECT_FALSE(settings.classHourChanged);
    EXPECT_EQ(settings.themeType, 0);
}

}  // namespace

}  // namespace gexlo::test
