// The working copy of the timetable whose settings are being edited.
#pragma once

#include <memory>
#include <string>
#include <utility>

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

    NSInteger timetableNo() const { return timetableNo_; }
    void setTimetableNo(NSInteger value) { timetableNo_ = value; }
    const std::string& timetableName() const { return timetableName_; }
    void setTimetableName(std::string value) { timetableName_ = std::move(value); }
    NSInteger firstDay() const { return firstDay_; }
    void setFirstDay(NSInteger value) { firstDay_ = value; }
    NSInteger lastDay() const { return lastDay_; }
    void setLastDay(NSInteger value) { lastDay_ = value; }
    NSInteger firstPeriod() const { return firstPeriod_; }
    void setFirstPeriod(NSInteger value) { firstPeriod_ = value; }
    NSInteger lastPeriod() const { return lastPeriod_; }
    void setLastPeriod(NSInteger value) { lastPeriod_ = value; }
    bool useHalfPeriods() const { return useHalfPeriods_; }
    void setUseHalfPeriods(bool value) { useHalfPeriods_ = value; }
    bool daysToNumbers() const { return daysToNumbers_; }
    void setDaysToNumbers(bool value) { daysToNumbers_ = value; }
    /// True once the class-time screen was opened.
    bool classHourChanged() const { return classHourChanged_; }
    void setClassHourChanged(bool value) { classHourChanged_ = value; }
    bool useSameClasshours() const { return useSameClasshours_; }
    void setUseSameClasshours(bool value) { useSameClasshours_ = value; }
    NSInteger numWeeks() const { return numWeeks_; }
    void setNumWeeks(NSInteger value) { numWeeks_ = value; }
    bool daysOnLeft() const { return daysOnLeft_; }
    void setDaysOnLeft(bool value) { daysOnLeft_ = value; }
    bool showClasshours() const { return showClasshours_; }
    void setShowClasshours(bool value) { showClasshours_ = value; }
    NSInteger subjectTextSize() const { return subjectTextSize_; }
    void setSubjectTextSize(NSInteger value) { subjectTextSize_ = value; }
    const std::string& colorBorder() const { return colorBorder_; }
    void setColorBorder(std::string value) { colorBorder_ = std::move(value); }
    const std::string& colorTableBack() const { return colorTableBack_; }
    void setColorTableBack(std::string value) { colorTableBack_ = std::move(value); }
    const std::string& colorDaysBack() const { return colorDaysBack_; }
    void setColorDaysBack(std::string value) { colorDaysBack_ = std::move(value); }
    const std::string& colorDaysFont() const { return colorDaysFont_; }
    void setColorDaysFont(std::string value) { colorDaysFont_ = std::move(value); }
    const std::string& colorPeriodsBack() const { return colorPeriodsBack_; }
    void setColorPeriodsBack(std::string value) { colorPeriodsBack_ = std::move(value); }
    const std::string& colorPeriodsFont() const { return colorPeriodsFont_; }
    void setColorPeriodsFont(std::string value) { colorPeriodsFont_ = std::move(value); }
    float alphaBorder() const { return alphaBorder_; }
    void setAlphaBorder(float value) { alphaBorder_ = value; }
    float alphaTableBack() const { return alphaTableBack_; }
    void setAlphaTableBack(float value) { alphaTableBack_ = value; }
    float alphaDaysBack() const { return alphaDaysBack_; }
    void setAlphaDaysBack(float value) { alphaDaysBack_ = value; }
    float alphaPeriodsBack() const { return alphaPeriodsBack_; }
    void setAlphaPeriodsBack(float value) { alphaPeriodsBack_ = value; }
    const std::string& backgroundImageName() const { return backgroundImageName_; }
    void setBackgroundImageName(std::string value) { backgroundImageName_ = std::move(value); }
    /// 2 basic, 1 classic; any other value is neither.
    NSInteger themeType() const { return themeType_; }
    void setThemeType(NSInteger value) { themeType_ = value; }

private:
    std::unique_ptr<GXPeriodsController> periodsInfo_;
    NSInteger timetableNo_ = 0;
    std::string timetableName_;
    NSInteger firstDay_ = 0;
    NSInteger lastDay_ = 0;
    NSInteger firstPeriod_ = 0;
    NSInteger lastPeriod_ = 0;
    bool useHalfPeriods_ = false;
    bool daysToNumbers_ = false;
    bool classHourChanged_ = false;
    bool useSameClasshours_ = false;
    NSInteger numWeeks_ = 0;
    bool daysOnLeft_ = false;
    bool showClasshours_ = false;
    NSInteger subjectTextSize_ = 0;
    std::string colorBorder_;
    std::string colorTableBack_;
    std::string colorDaysBack_;
    std::string colorDaysFont_;
    std::string colorPeriodsBack_;
    std::string colorPeriodsFont_;
    float alphaBorder_ = 0;
    float alphaTableBack_ = 0;
    float alphaDaysBack_ = 0;
    float alphaPeriodsBack_ = 0;
    std::string backgroundImageName_;
    NSInteger themeType_ = 0;
};

}  // namespace gexlo
