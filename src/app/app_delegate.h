// Where the platform enters: launch, background and end.
#pragma once

#include <memory>
#include <string>

#include "platform/foundation/file_manager.h"
#include "platform/services/application.h"

namespace gexlo {

class GXMainView;
class NSManagedObjectContext;
class NSManagedObjectModel;
class NSPersistentStoreCoordinator;
class UIView;

class GXAppDelegate final : public UIApplicationDelegate {
public:
    static GXAppDelegate& delegate();

    /// The launch, up to the first timetable on screen.
    bool application_didFinishLaunchingWithOptions() override;
    /// Keeps the page of the grid if the starting timetable is on screen.
    void applicationDidEnterBackground() override;
    void applicationWillTerminate() override;
    /// While the application is in use: an alert, unless one that rings once is late. Else it
    /// was tapped: one that repeats is scheduled anew, one that does not is done.
    void application_didReceiveLocalNotification(const UILocalNotification& note) override;
    // Each takes a URL, and always.
    bool application_openURL_options(const std::string& url,
                                     const UIApplicationOpenURLOptions& options) override;
    /// A file asks whether to add its timetable, another address may open the community.
    bool application_openURL_sourceApplication_annotation(const std::string& url,
                                                          const std::string& sourceApplication,
                                                          const std::string& annotation);
    /// Only logs; for a platform that knows no other.
    bool application_handleOpenURL(const std::string& url);
    // Nothing happens at these.
    void applicationWillResignActive() override {}
    void applicationWillEnterForeground() override {}
    void applicationDidBecomeActive() override {}
    void applicationDidReceiveMemoryWarning() {}

    /// A context of its own, which sees only what was saved and never has changes. The stack
    /// under it is the one that the data manager has opened; the operations that the two have
    /// alike lead there.
    NSManagedObjectContext* managedObjectContext();
    const NSManagedObjectModel& managedObjectModel() const;
    NSPersistentStoreCoordinator& persistentStoreCoordinator();
    NSURL applicationDocumentsDirectory() const;
    NSURL applicationGroupDirectory() const;
    void saveContext();
    /// Nothing calls it.
    void migrationAppDataToAppGroup() const;

    /// Null before the launch.
    GXMainView* mainView() const { return mainView_; }

private:
    std::shared_ptr<UIView> showWindow();
    void addTimetable();

    std::string receivedURL_;         // of the file that was offered last
    GXMainView* mainView_ = nullptr;  // ends before the store that it was built on
};

}  // namespace gexlo
