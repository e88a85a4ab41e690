#include "presentation/settings_manager.h"

#include "platform/foundation/device.h"
#include "presentation/style/theme_manager.h"
#include "store/entities.h"
#include "time/periods_controller.h"

namespace gexlo {

GXSettingsManager& GXSettingsManager::manager() {
    return Device::current().singleton<GXSettingsManager>();
}

GXSettingsManager::GXSettingsManager() = default;
GXSettingsManager::~GXSettingsManager() = default;

void GXSettingsManager::setData(const GXTimetableData& timetable) {
    timetableNo_ = timetable.index.get();
    timetableName_ = timetable.name.get();
    firstDay_ = timetable.firstDay.get();
    lastDay_ = timetable.lastDay.get();
    firstPeriod_ = timetable.firstPeriod.get();
    lastPeriod_ = timetable.lastPeriod.get();
    useHalfPeriods_ = timetable.useHalfPeriods.get();
    daysToNumbers_ = timetable.daysToNumbers.get();
    classHourChanged_ = false;
    useSameClasshours_ = timetable.useSameClasshours.get();
    numWeeks_ = timetable.numWeeks.get();
    daysOnLeft_ = timetable.daysOnLeft.get();
    showClasshours_ = timetable.showClasstimes.get();
    subjectTextSize_ = timetable.textSize.get();
    colorBorder_ = timetable.colorBorder.get();
    colorTableBack_ = timetable.colorTableBack.get();
    colorDaysBack_ = timetable.colorDaysBack.get();
    colorDaysFont_ = timetable.colorDaysFont.get();
    colorPeriodsBack_ = timetable.colorPeriodsBack.get();
    colorPeriodsFont_ = timetable.colorPeriodsFont.get();
    alphaBorder_ = timetable.alphaBorder.get();
    alphaTableBack_ = timetable.alphaTableBack.get();
    alphaDaysBack_ = timetable.alphaDaysBack.get();
    alphaPeriodsBack_ = timetable.alphaPeriodsBack.get();
    backgroundImageName_ = timetable.backgroundImage.get();
    periodsInfo_ = std::make_unique<GXPeriodsController>(timetable);
    themeType_ = GXThemeManager::manager().themeType();
}

void GXSettingsManager::setPeriodsInfo(std::unique_ptr<GXPeriodsController> periods) {
    periodsInfo_ = std::move(periods);
}

void GXSettingsManager::updatePeriodsInfo() {
    if (!periodsInfo_) return;
    periodsInfo_->setFirstPeriod_lastPeriod_useHalfPeriods(firstPeriod_, lastPeriod_,
                                                           useHalfPeriods_);
}

}  // namespace gexlo
