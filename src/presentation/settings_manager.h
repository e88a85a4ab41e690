// The working copy of the timetable whose settings are being edited.
#pragma once

#include <memory>
#include <string>

#include "platform/foundation/types.h"

namespace gexlo {

class GXPeriodsController;
class GXTimetableData;

/// Nothing here reaches the store: a change that is not saved by the main screen is gone
/// with the next `setData`.
class GXSettingsManager {
public:
    static GXSettingsManager& manager();
    GXSettingsManager();
    ~GXSettingsManager();

    /// Fills the copy from a timetable, the period list included, and forgets that the
    /// class-time screen was opened. The theme is that of the theme manager.
    void setData(const GXTimetableData& timetable);
    /// Brings the period list in line with the range of periods and the use of half periods.
    void updatePeriodsInfo();

    /// Null before the first `setData`.
    GXPeriodsController* periodsInfo() const { return periodsInfo_.get(); }
    void setPeriodsInfo(std::unique_ptr<GXPeriodsController> periods);

    NSInteger timetableNo = 0;
    std::string timetableName;
    NSInteger firstDay = 0;
    NSInteger lastDay = 0;
    NSInteger firstPeriod = 0;
    NSInteger lastPeriod = 0;
    bool useHalfPeriods = false;
    bool daysToNumbers = false;
    bool classHourChanged = false;  ///< once the class-time screen was opened
    bool useSameClasshours = false;
    NSInteger numWeeks = 0;
    bool daysOnLeft = false;
    bool showClasshours = false;
    NSInteger subjectTextSize = 0;
    std::string colorBorder;
    std::string colorTableBack;
    std::string colorDaysBack;
    std::string colorDaysFont;
    std::string colorPeriodsBack;
    std::string colorPeriodsFont;
    float alphaBorder = 0;
    float alphaTableBack = 0;
    float alphaDaysBack = 0;
    float alphaPeriodsBack = 0;
    std::string backgroundImageName;
    NSInteger themeType = 0;  ///< 2 basic, 1 classic; any other value is neither

private:
    std::unique_ptr<GXPeriodsController> periodsInfo_;
};

}  // namespace gexlo
