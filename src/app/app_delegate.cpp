#include "app/app_delegate.h"

#include "app/main_view.h"
#include "exchange/exchange_reader.h"
#include "platform/foundation/bundle.h"
#include "platform/foundation/device.h"
#include "platform/foundation/string_format.h"
#include "platform/foundation/user_defaults.h"
#include "platform/services/local_notification.h"
#include "platform/views/alert.h"
#include "platform/views/image_view.h"
#include "platform/views/window.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"
#include "store/user_default_keys.h"

namespace gexlo {

namespace {

/// Built after the store that it reads, and so ended before it.
struct SavedContext {
    NSManagedObjectContext context{GXDataManager::manager().persistentStoreCoordinator()};
};

/// Seconds after which an alarm that rings once is not worth an alert.
constexpr double kLateAfter = 5;
constexpr double kSplashFade = 0.4;

/// Not for translation but for one.
std::string importMessage(ImportStatus status) {
    switch (status) {
        case ImportStatus::tooManyTimetables:
            return NSLocalizedString("TOO_MANY_TIMETABLES_COMMENT");
        case ImportStatus::versionTooHigh:
            return "File version too High. (15)";
        case ImportStatus::cannotOpen:
        case ImportStatus::cannotQuery:
        case ImportStatus::noRow:
            return stringWithFormat("Wrong Data (%d)", static_cast<int>(status));
        case ImportStatus::imported:
            break;
    }
    return "Wrong Data (00)";
}

void fadeOut(UIView& splash) {
    splash.animateWithDuration(
        kSplashFade, [&] { splash.setAlpha(0); }, [&splash] { splash.removeFromSuperview(); });
}

}  // namespace

GXAppDelegate& GXAppDelegate::delegate() {
    return Device::current().singleton<GXAppDelegate>();
}

bool GXAppDelegate::application_didFinishLaunchingWithOptions() {
    const NSDate begin = NSDate::date();
    UIApplication& application = UIApplication::sharedApplication();
    application.registerUserNotificationSettings(kNotificationTypeAlert | kNotificationTypeBadge |
                                                 kNotificationTypeSound);
    GXDataManager& manager = GXDataManager::manager();
    NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();

    // After an upgrade, and before any view exists.
    if (defaults.integerForKey(user_default::kNowUpdated) == 1) {
        manager.resetAllAlarms();
        defaults.setInteger_forKey(0, user_default::kNowUpdated);
        defaults.synchronize();
    }
    NSLog("LAUNCH");
    const std::shared_ptr<UIView> splash = showWindow();

    // A reinstalled application sheds the notifications of an earlier install.
    if (defaults.integerForKey(user_default::kFirstStarting) == 0) {
        defaults.setInteger_forKey(1, user_default::kFirstStarting);
        defaults.synchronize();
        application.cancelAllLocalNotifications();
    }
    NSLog("Loading Time : %f", NSDate::date().timeIntervalSinceDate(begin));
    fadeOut(*splash);
    // Not only a line of the log: the first reader starts the counter.
    NSLog("data update no : %ld", manager.getDataUpdateNo());
    return true;
}

/// The main screen under the splash image, which it gives.
std::shared_ptr<UIView> GXAppDelegate::showWindow() {
    UIWindow& window = UIWindow::keyWindow();
    window.setBackgroundColor(UIColor::blackColor());
    mainView_ = &Device::current().singleton<GXMainView>();
    const GXUIManager& manager = GXUIManager::manager();
    mainView_->view()->setFrame({0, 0, manager.screenWidth(), manager.screenHeight()});
    window.setRootViewController(*mainView_);
    auto splash = std::make_shared<UIImageView>(window.bounds());
    splash->setAccessibilityIdentifier("splash");
    splash->setImage(UIImage::imageNamed(manager.isTallerScreen() ? "Default-568h" : "Default"));
    window.addSubview(splash);
    window.makeKeyAndVisible();
    return splash;
}

void GXAppDelegate::application_didReceiveLocalNotification(const UILocalNotification& note) {
    UIApplication& application = UIApplication::sharedApplication();
    if (application.applicationState() == UIApplicationState::active) {
        const NSDate limit = NSDate::date().dateByAddingTimeInterval(-kLateAfter);
        if (note.fireDate <= limit && note.repeatInterval == 0) return;
        UIAlert alert = UIAlert::notice("", note.alertBody, NSLocalizedString("OK_BUTTON"));
        alert.dismissed = [held = application.becomesAlert(note)](auto&&...) {};
        std::move(alert).show();
        return;
    }
    UILocalNotification again = note;
    application.cancelLocalNotification(note);
    if (note.repeatInterval != 0) application.scheduleLocalNotification(again);
}

bool GXAppDelegate::application_openURL_options(const std::string& url,
                                                const UIApplicationOpenURLOptions& options) {
    return application_openURL_sourceApplication_annotation(url, options.sourceApplication,
                                                            options.annotation);
}

bool GXAppDelegate::application_openURL_sourceApplication_annotation(const std::string& url,
                                                                     const std::string&,
                                                                     const std::string&) {
    constexpr std::string_view separator = "://";
    const std::size_t end = url.find(separator);
    std::string_view second;
    if (end != std::string::npos) {
        second = std::string_view(url).substr(end + separator.size());
        second = second.substr(0, second.find(separator));
    }
    if (url.substr(0, end) == "file") {
        receivedURL_ = url;
        UIAlert alert;
        alert.title = NSLocalizedString("IMPORT_ALERT_ADD_TIMETABLE_TITLE");
        alert.message = NSLocalizedString("IMPORT_ALERT_ADD_TIMETABLE_COMMENT");
        alert.buttons = {{NSLocalizedString("CANCEL_BUTTON"), UIAlert::Button::Style::cancel},
                         {NSLocalizedString("IMPORT_ALERT_ADD_BUTTON")}};
        alert.dismissed = [this](std::size_t button, const auto&) {
            if (button == 1) addTimetable();
        };
        std::move(alert).show();
    } else if (second == "tessaly") {
        GXUIManager::manager().openTessaly();
    }
    return true;
}

bool GXAppDelegate::application_handleOpenURL(const std::string&) {
    NSLog("URL");
    return true;
}

/// Of the file that was offered last, whichever question was answered.
void GXAppDelegate::addTimetable() {
    const auto status =
        static_cast<ImportStatus>(GXUIManager::manager().openTimetableFromDataFile(receivedURL_));
    if (status == ImportStatus::imported) return;
    UIAlert::notice("Failed to Import", importMessage(status), NSLocalizedString("OK_BUTTON"))
        .show();
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
