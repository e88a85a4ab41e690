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
    timetableNo = timetable.index.get();
    timetableName = timetable.name.get();
    firstDay = timetable.firstDay.get();
    lastDay = timetable.lastDay.get();
    firstPeriod = timetable.firstPeriod.get();
    lastPeriod = timetable.lastPeriod.get();
    useHalfPeriods = timetable.useHalfPeriods.get();
    daysToNumbers = timetable.daysToNumbers.get();
    classHourChanged = false;
    useSameClasshours = timetable.useSameClasshours.get();
    numWeeks = timetable.numWeeks.get();
    daysOnLeft = timetable.daysOnLeft.get();
    showClasshours = timetable.showClasstimes.get();
    subjectTextSize = timetable.textSize.get();
    colorBorder = timetable.colorBorder.get();
    colorTableBack = timetable.colorTableBack.get();
    colorDaysBack = timetable.colorDaysBack.get();
    colorDaysFont = timetable.colorDaysFont.get();
    colorPeriodsBack = timetable.colorPeriodsBack.get();
    colorPeriodsFont = timetable.colorPeriodsFont.get();
    alphaBorder = timetable.alphaBorder.get();
    alphaTableBack = timetable.alphaTableBack.get();
    alphaDaysBack = timetable.alphaDaysBack.get();
    alphaPeriodsBack = timetable.alphaPeriodsBack.get();
    backgroundImageName = timetable.backgroundImage.get();
    periodsInfo_ = std::make_unique<GXPeriodsController>(timetable);
    themeType = GXThemeManager::manager().themeType();
}

void GXSettingsManager::setPeriodsInfo(std::unique_ptr<GXPeriodsController> periods) {
    periodsInfo_ = std::move(periods);
}

void GXSettingsManager::updatePeriodsInfo() {
    if (!periodsInfo_) return;
    periodsInfo_->setFirstPeriod_lastPeriod_useHalfPeriods(firstPeriod, lastPeriod, useHalfPeriods);
}

}  // namespace gexlo
