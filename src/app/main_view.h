// The root screen: picks the timetable to show and loads it.
#pragma once

#include <memory>

#include "platform/foundation/types.h"
#include "presentation/grid/timetable_pallet.h"
#include "presentation/main_screen.h"

namespace gexlo {

class GXTimetableData;
class NSManagedObjectContext;

class GXMainView final : public MainScreen {
public:
    /// Builds the screen and loads the timetable that is to be shown first.
    GXMainView();
    ~GXMainView() override;

    const std::shared_ptr<UIView>& view() const { return view_; }

    /// Decides which timetable is current: the starting one, or 0 where none was ever made.
    void initAppInformationFromCoreData();
    /// Loads the current timetable, at the start and at each switch. Without it the first of
    /// the list stands in, or a new one, and becomes the fixed starting timetable.
    void setCurrentTimetableFromCoreData();

    /// The page of the grid: 0 the first, 1 the second.
    NSInteger timetablePosition() const { return timetablePallet_.timetablePosition(); }
    void setTimetablePosition(NSInteger position) {
        timetablePallet_.setTimetablePosition(position);
    }
    const GXTimetablePallet& timetablePallet() const { return timetablePallet_; }

    /// Clears the alarms of placements whose period the edited settings no longer show.
    void updateAlarms();

    void addPanel(std::shared_ptr<UIView> panel) override;
    void lockMenu(bool locked) override;
    void openAddMode() override;
    void openEditMode(GXLessonData& lesson) override;
    void showClassHour_periodName(const std::string& classHour,
                                  const std::string& periodName) override;
    void hideClassHour() override;

    /// The data manager's, on which the screen works.
    NSManagedObjectContext* context() const { return context_; }

private:
    GXTimetableData& timetableToLoad();

    NSManagedObjectContext* context_ = nullptr;
    std::shared_ptr<UIView> view_;
    GXTimetablePallet timetablePallet_;
};

}  // namespace gexlo
