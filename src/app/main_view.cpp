#include "app/main_view.h"

#include "platform/foundation/user_defaults.h"
#include "presentation/ui_manager.h"
#include "store/app_local.h"
#include "store/data_manager.h"
#include "store/settings_manager.h"
#include "store/user_default_keys.h"
#include "time/periods_controller.h"

namespace gexlo {

GXMainView::GXMainView() : view_(std::make_shared<UIView>()) {
    view_->setAccessibilityIdentifier("mainView");
    view_->setBackgroundColor(UIColor::colorWithWhite(0.8F));
    view_->addSubview(timetablePallet_.view());
    GXUIManager::manager().setMainView(this);
    initAppInformationFromCoreData();
    setCurrentTimetableFromCoreData();
    setTimetablePosition(
        NSUserDefaults::standardUserDefaults().integerForKey(user_default::kLastTimetableIndex));
}

void GXMainView::initAppInformationFromCoreData() {
    GXDataManager& manager = GXDataManager::manager();
    context_ = manager.context();
    GXAppSettingData& setting = manager.appSettingData();
    if (setting.lastTimetableIndex.get() != -1) {
        manager.setCurrentTimetableNo(manager.startingTimetableNo());
        setting.dataVersion = GXDataManager::kDataVersion;
    } else {
        manager.setCurrentTimetableNo(0);
    }
    manager.saveContext();
}

GXTimetableData& GXMainView::timetableToLoad() {
    GXDataManager& manager = GXDataManager::manager();
    if (GXTimetableData* current = manager.currentTimetableData()) return *current;
    const auto list = manager.timetableList();
    GXTimetableData* timetable = nullptr;
    if (!list.empty()) {
        // The current number stays that of the missing timetable until the next start.
        timetable = list.front();
    } else {
        timetable = &manager.addNewTimetable();
        manager.setCurrentTimetableNo(timetable->index.get());
    }
    manager.setStartingTimetable_fixed(timetable->index.get(), true);
    return *timetable;
}

void GXMainView::setCurrentTimetableFromCoreData() {
    GXDataManager& manager = GXDataManager::manager();
    GXTimetableData& timetable = timetableToLoad();
    timetablePallet_.updateFromData();
    // Whatever was imported or copied, the language decides.
    timetable.useAbsenceCounting = GXAppLocal::appLocal().isJapanease();
    manager.saveContext();
}

GXMainView::~GXMainView() {
    GXUIManager::manager().setMainView(nullptr);
}

void GXMainView::updateAlarms() {
    GXDataManager& manager = GXDataManager::manager();
    const GXPeriodsController* periods = GXSettingsManager::manager().periodsInfo();
    const GXTimetableData* timetable = manager.currentTimetableData();
    if (!timetable || !periods) return;
    for (const GXLessonData* lesson : timetable->lessons.allObjects()) {
        for (GXDayNPeriodData* placement : lesson->times.allObjects()) {
            if (periods->indexOfPeriodNo(placement->period.get()) == -1) {
                manager.clearAlarmInClass(*placement);
            }
        }
    }
}

void GXMainView::addPanel(std::shared_ptr<UIView> panel) {
    view_->addSubview(std::move(panel));
}

// The grid stands alone on the screen so far: no menu to lock, no panel to open, no bubble.
void GXMainView::lockMenu(bool) {}
void GXMainView::openAddMode() {}
void GXMainView::openEditMode(GXLessonData&) {}
void GXMainView::showClassHour_periodName(const std::string&, const std::string&) {}
void GXMainView::hideClassHour() {}

}  // namespace gexlo
