// The root screen: the grid with every permanent panel around it.
#pragma once

#include <memory>
#include <optional>

#include "app/class_hour_bubble.h"
#include "app/lesson_editing.h"
#include "platform/views/image_view.h"
#include "platform/views/view_controller.h"
#include "presentation/grid/timetable_pallet.h"
#include "presentation/main_screen.h"
#include "presentation/panels/bottom_menu.h"
#include "presentation/panels/panel_stack.h"
#include "presentation/panels/title_view.h"
#include "presentation/panels/top_menu.h"

namespace gexlo {

class GXTimetableData;
class NSManagedObjectContext;

class GXMainView final : public UIViewController, public MainScreen {
public:
    /// Builds the screen and loads the timetable that is to be shown first.
    GXMainView();
    ~GXMainView() override;

    /// Decides which timetable is current: the starting one, or 0 where none was ever made.
    void initAppInformationFromCoreData();
    /// Loads the current timetable, at the start and at each switch. Without it the first of
    /// the list stands in, or a new one, and becomes the fixed starting timetable.
    void setCurrentTimetableFromCoreData() override;
    /// A colour's name fills the screen with it; the name of an image with nothing so far.
    void setBackgroundImage(const std::string& name);
    void setThemes();

    /// The page of the grid: 0 the first, 1 the second.
    NSInteger timetablePosition() const { return timetablePallet_.timetablePosition(); }
    void setTimetablePosition(NSInteger position) {
        timetablePallet_.setTimetablePosition(position);
    }
    const GXTimetablePallet& timetablePallet() const { return timetablePallet_; }
    LessonEditing& lessonEditing() { return *lessonEditing_; }

    /// Clears the alarms of placements whose period the edited settings no longer show.
    void updateAlarms();

    PanelStack& panels() override { return *panels_; }
    const Flows& flows() const override { return flows_; }
    void lockMenu(bool locked) override;
    void openMoreMenu() override;

    /// The data manager's, on which the screen works.
    NSManagedObjectContext* context() const { return context_; }

private:
    void viewWillAppear(bool animated) override;
    void buildViews();
    UIView& addBar(const char* identifier, CGRect frame, UIColor color);
    GXTimetableData& timetableToLoad();

    NSManagedObjectContext* context_ = nullptr;
    GXTimetablePallet timetablePallet_;
    std::optional<LessonEditing> lessonEditing_;
    std::optional<ClassHourBubble> classHourBubble_;
    std::optional<PanelStack> panels_;
    /// Those of the two above. No other has a panel yet.
    Flows flows_;

    // Subviews of the view.
    UIImageView* backgroundImageView_ = nullptr;
    TopMenu* topMenu_ = nullptr;
    GXTitleView* titleView_ = nullptr;
    GXBottomMenu* bottomMenu_ = nullptr;
    UIView* statusBarBase_ = nullptr;
};

}  // namespace gexlo
