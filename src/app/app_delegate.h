// Where the platform enters: launch, background and end.
#pragma once

#include <memory>

namespace gexlo {

class GXMainView;
class NSManagedObjectContext;

class GXAppDelegate {
public:
    static GXAppDelegate& delegate();
    GXAppDelegate();
    ~GXAppDelegate();

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

    /// A context of its own, which sees only what was saved and never has changes. It stands
    /// on the one stack that the data manager has opened.
    NSManagedObjectContext* managedObjectContext();
    void saveContext();

    /// Null before the launch.
    GXMainView* mainView() const { return mainView_.get(); }

private:
    std::unique_ptr<NSManagedObjectContext> managedObjectContext_;
    std::unique_ptr<GXMainView> mainView_;
};

}  // namespace gexlo
