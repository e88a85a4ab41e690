// Where the platform enters: launch, background and end.
#pragma once

#include "platform/foundation/file_manager.h"

namespace gexlo {

class GXMainView;
class NSManagedObjectContext;
class NSManagedObjectModel;
class NSPersistentStoreCoordinator;

class GXAppDelegate {
public:
    static GXAppDelegate& delegate();

    /// The launch, up to the first timetable on screen.
    bool application_didFinishLaunchingWithOptions();
    /// Keeps the page of the grid if the starting timetable is on screen.
    void applicationDidEnterBackground();
    void applicationWillTerminate();
    // Nothing happens at these.
    void applicationWillResignActive() {}
    void applicationWillEnterForeground() {}
    void applicationDidBecomeActive() {}
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
    GXMainView* mainView_ = nullptr;  // ends before the store that it was built on
};

}  // namespace gexlo
