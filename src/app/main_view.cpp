#include "app/main_view.h"

#include "platform/foundation/user_defaults.h"
#include "store/app_local.h"
#include "store/data_manager.h"
#include "store/user_default_keys.h"

namespace gexlo {

GXMainView::GXMainView() {
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
    // Whatever was imported or copied, the language decides.
    timetable.useAbsenceCounting = GXAppLocal::appLocal().isJapanease();
    manager.saveContext();
}

}  // namespace gexlo
