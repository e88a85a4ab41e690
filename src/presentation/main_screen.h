// The root screen as the rest of the system sees it.
#pragma once

#include "presentation/flows/flows.h"

namespace gexlo {

class PanelStack;

class MainScreen {
public:
    virtual ~MainScreen() = default;

    /// The panels that lie over the screen.
    virtual PanelStack& panels() = 0;
    virtual const Flows& flows() const = 0;

    /// Locks or frees the bottom menu and the date view.
    virtual void lockMenu(bool locked) = 0;
    /// Loads the current timetable.
    virtual void setCurrentTimetableFromCoreData() = 0;

    virtual void openMoreMenu() = 0;
    /// A list of alarms is not defined: nothing happens.
    void openAlarmListView() {}
};

}  // namespace gexlo
