// The root screen: picks the timetable to show and loads it.
#pragma once

#include "platform/foundation/types.h"

namespace gexlo {

class GXTimetableData;
class NSManagedObjectContext;

class GXMainView {
public:
    /// Builds the screen and loads the timetable that is to be shown first.
    GXMainView();

    /// Decides which timetable is current: the starting one, or 0 where none was ever made.
    void initAppInformationFromCoreData();
    /// Loads the current timetable, at the start and at each switch. Without it the first of
    /// the list stands in, or a new one, and becomes the fixed starting timetable.
    void setCurrentTimetableFromCoreData();

    /// The page of the grid: 0 the first, 1 the second.
    NSInteger timetablePosition() const { return timetablePosition_; }
    void setTimetablePosition(NSInteger position) { timetablePosition_ = position; }

    /// The data manager's, on which the screen works.
    NSManagedObjectContext* context() const { return context_; }

private:
    GXTimetableData& timetableToLoad();

    NSManagedObjectContext* context_ = nullptr;
    NSInteger timetablePosition_ = 0;
};

}  // namespace gexlo
