// The grid area: reads the current timetable, fills both weeks, and moves between them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "presentation/grid/days_view.h"
#include "presentation/grid/geometry.h"
#include "presentation/grid/pd_scroll_view.h"
#include "presentation/grid/timetable_view.h"

namespace gexlo {

class GXTimetableData;
class UIButton;

/// Adding and editing need nothing of it: each cell toggles itself.
class GXTimetablePallet {
public:
    GXTimetablePallet();
    GXTimetablePallet(const GXTimetablePallet&) = delete;
    GXTimetablePallet& operator=(const GXTimetablePallet&) = delete;

    const std::shared_ptr<UIView>& view() const { return view_; }
    /// Of the timetable as it was last read.
    const std::string& name() const { return name_; }
    const std::string& backgroundImageName() const { return backgroundImageName_; }
    const GridGeometry& geometry() const { return grid_; }
    const GXTimetableView& timetable1() const { return *timetable1_; }
    const GXTimetableView& timetable2() const { return *timetable2_; }

    /// Reads the current timetable anew. Does nothing without one.
    void updateFromData();

    /// The page: 0 the first, 1 the second week.
    int timetablePosition() const;
    /// Scrolls, animated, to the first page or with any other number to the second; of a
    /// timetable of one week, to the first. Does nothing where both weeks lie on one page.
    void setTimetablePosition(NSInteger position);

    // MARK: panels at the foot

    void bottomViewOpened();
    void bottomViewClosed();
    void classInfoViewOpened(const NSNotification& notification);
    /// Nothing calls it: the panel's closing reaches `bottomViewClosed` directly.
    void classInfoViewClosed(const NSNotification& notification);

    void setDayToday();

private:
    struct Looks {
        GridLooks grid;
        GXDaysView::Looks days;
    };

    void buildViews();
    void observe();
    void readTimetable(const GXTimetableData& timetable);
    Looks looksOf(const GXTimetableData& timetable) const;
    void setTimetableParameters(const GXTimetableData& timetable);
    void setDayCells();
    void setCorners();
    void setScrollViews();
    void setLessons(const GXTimetableData& timetable);
    void indexButtonDidPush(NSInteger tag);
    void setMainContentHeight(double height);
    void setSubContentHeight(double height);
    bool hasTwoWeeks() const { return grid_.numWeeks == 2; }

    std::string name_;
    std::string backgroundImageName_;
    GridGeometry grid_;
    Looks looks_;

    std::shared_ptr<UIView> view_;
    std::shared_ptr<PDScrollView> mainScrollView_;
    std::shared_ptr<PDScrollView> subScrollView_;
    std::shared_ptr<UIView> blinkIndex_;  // the corner of a timetable of one week
    std::shared_ptr<UIButton> btnIndexA_;
    std::shared_ptr<UIButton> btnIndexB_;
    std::shared_ptr<GXDaysView> daysView1_;
    std::shared_ptr<GXDaysView> daysView2_;
    std::shared_ptr<GXTimetableView> timetable1_;
    std::shared_ptr<GXTimetableView> timetable2_;
    std::vector<NotificationToken> tokens_;
};

}  // namespace gexlo
