#include "app/app_delegate.h"

#include "app/main_view.h"
#include "platform/foundation/device.h"
#include "platform/foundation/user_defaults.h"
#include "store/data_manager.h"
#include "store/user_default_keys.h"

namespace gexlo {

namespace {

/// Built after the store that it reads, and so ended before it.
struct SavedContext {
    NSManagedObjectContext context{GXDataManager::manager().persistentStoreCoordinator()};
};

}  // namespace

GXAppDelegate& GXAppDelegate::delegate() {
    return Device::current().singleton<GXAppDelegate>();
}

bool GXAppDelegate::application_didFinishLaunchingWithOptions() {
    const NSDate begin = NSDate::date();
    GXDataManager& manager = GXDataManager::manager();
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();

    // After an upgrade the alarms are to be rebuilt here, before any view exists.
    if (defaults.integerForKey(user_default::kNowUpdated) == 1) {
        defaults.setInteger_forKey(0, user_default::kNowUpdated);
        defaults.synchronize();
    }
    NSLog("LAUNCH");
    mainView_ = &Device::current().singleton<GXMainView>();

    // At the first start notifications of an earlier install are to be cancelled here.
    if (defaults.integerForKey(user_default::kFirstStarting) == 0) {
        defaults.setInteger_forKey(1, user_default::kFirstStarting);
        defaults.synchronize();
    }
    NSLog("Loading Time : %f", NSDate::date().timeIntervalSinceDate(begin));
    // Not only a line of the log: the first reader starts the counter.
    NSLog("data update no : %ld", manager.getDataUpdateNo());
    return true;
}

void GXAppDelegate::applicationDidEnterBackground() {
    GXDataManager& manager = GXDataManager::manager();
    if (mainView_ && manager.currentTimetableNo() == manager.startingTimetableNo()) {
        NSUserDefaults::standardUserDefaults().setInteger_forKey(mainView_->timetablePosition(),
                                                                 user_default::kLastTimetableIndex);
    }
    saveContext();
}

void GXAppDelegate::applicationWillTerminate() {
    saveContext();
}

NSManagedObjectContext* GXAppDelegate::managedObjectContext() {
    return &Device::current().singleton<SavedContext>().context;
}

const NSManagedObjectModel& GXAppDelegate::managedObjectModel() const {
    return GXDataManager::manager().managedObjectModel();
}

NSPersistentStoreCoordinator& GXAppDelegate::persistentStoreCoordinator() {
    return GXDataManager::manager().persistentStoreCoordinator();
}

NSURL GXAppDelegate::applicationDocumentsDirectory() const {
    return GXDataManager::manager().applicationDocumentsDirectory();
}

NSURL GXAppDelegate::applicationGroupDirectory() const {
    return GXDataManager::manager().applicationGroupDirectory();
}

void GXAppDelegate::migrationAppDataToAppGroup() const {
    GXDataManager::manager().migrationAppDataToAppGroup();
}

void GXAppDelegate::saveContext() {
    saveOrDie(*managedObjectContext());
}

}  // namespace gexlo
