// One slot of the grid: empty, or showing the subject that is placed there.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "platform/views/control.h"
#include "platform/views/label.h"
#include "presentation/grid/blocks.h"

namespace gexlo {

class GXDayNPeriodData;
class GXLessonData;

/// The placements of one subject in their order.
struct Placements {
    std::vector<GXDayNPeriodData*> rows;
    std::vector<PlacedSlot> slots;  ///< the same, as merging sees them
};

/// As notifications carry them: every observer reads the same.
using SharedPlacements = std::shared_ptr<const Placements>;

SharedPlacements sortedPlacements(const std::vector<GXDayNPeriodData*>& rows);

/// The grid that a cell belongs to.
class GXCellViewDelegate {
public:
    virtual ~GXCellViewDelegate() = default;
    /// Hides or shows the line before a row, within a block.
    virtual void hideLine_day_period(bool hide, int day, NSInteger row) = 0;
    virtual const PeriodAxis& periodAxis() const = 0;
};

class GXCellView final : public UIView {
public:
    enum class State : std::uint8_t {
        locked = 0,    ///< occupied by another subject during add or edit
        normal = 1,    ///< empty or showing its subject
        selected = 2,  ///< for the subject that is being added or edited
    };

    /// Where the cell stands in the grid, and what it takes from the timetable.
    struct Slot {
        int week = 0;
        int day = 0;  ///< 0 Sunday to 6 Saturday
        NSInteger periodIndex = 0;
        float periodNo = 0;
        int numDays = 6;
        bool daysOnLeft = false;
    };

    GXCellView(CGRect frame, const Slot& slot, GXCellViewDelegate& delegate);
    /// Empties the cell, as a new one, and puts it there: a grid that is filled anew builds only
    /// the cells that it has not.
    void reset(CGRect frame, const Slot& slot);
    const char* className() const override { return "GXCellView"; }

    const Slot& slot() const { return slot_; }
    /// 0 when empty, 1 for a single or a covered slot, n for the head of a block of n.
    int numBlocks() const { return numBlocks_; }
    /// Covered by the block before it.
    bool hiddenCell() const { return hiddenCell_; }
    State state() const { return state_; }
    GXLessonData* lesson() const { return lesson_; }
    GXDayNPeriodData* dayNPeriod() const { return dayNPeriod_; }
    const std::string& room() const { return room_; }

    /// The timetable's setting: 5, 10 or 15; any other counts as 10.
    void setSubjectTextSize(NSInteger setting);
    /// Always at alpha 0.95; the clear colour stays clear.
    void setColor(UIColor color);
    void setFontColor(UIColor color);
    void setRoom(const std::string& room);

    /// Shows the subject if one of its placements stands here, and merges. A covered slot's
    /// placement loses its alarm.
    void setLesson_withClasstimeList(GXLessonData& lesson, const Placements& placements);
    /// Shows what another cell shows, in this cell's own size.
    void copyLooksFrom(const GXCellView& other);

    // MARK: what the notifications of the grid mean for a cell

    /// The first subject posted for a slot keeps it.
    void setLessonsWithData(GXLessonData& lesson, const Placements& placements);
    void beginAddMode();
    void cancelAddMode();
    void finishAddMode(GXLessonData& lesson, const Placements& placements);
    void beginEditMode(const GXLessonData& lesson);
    void cancelEditMode();
    void finishEditMode(GXLessonData& lesson, const Placements& placements);
    void removeLesson(const GXLessonData& lesson);
    void removeAllLessons();
    void openLessonInfo(const GXLessonData& lesson);
    void closeLessonInfo();

private:
    class Button;

    UILabel& addLabel(const char* identifier);
    UIView& addMask(const char* identifier, UIColor color);
    void showMask(UIView& mask, bool shown);
    void buttonEvent(UIControlEvent event);
    void buttonTouchUp();
    bool finishMode(GXLessonData& lesson, const Placements& placements);
    void select();
    void deselect();
    void show(GXLessonData& lesson, const Placements& placements, std::size_t position);
    void paint();
    void clearLooks();
    void setBlocks(int blocks);
    void hideLines(bool hide);
    void setSize(CGSize size);
    void layOutLabels(double roomHeight);
    void layOutLabelsSimply();
    void sizeUpdate();

    Slot slot_{};
    CGSize singleSize_;
    GXCellViewDelegate& delegate_;    // hands on what a cell hears, so it is there when asked
    GXLessonData* lesson_ = nullptr;  // of the store's context, which keeps its objects
    GXDayNPeriodData* dayNPeriod_ = nullptr;  // the same
    int numBlocks_ = 0;
    bool hiddenCell_ = false;
    State state_ = State::normal;
    bool mayBeMasked_ = false;
    std::string room_;

    // From bottom to top.
    UILabel& labelSubject_;
    UILabel& labelRoom_;
    UIView& blackMask_;
    UIView& whiteMask_;
    UIView& shadowMask_;
    UIControl& button_;
};

/// Without those that stand on the slot of a later one: a grid of eight days has two cells for a
/// slot of its Sunday, and what was chosen last counts.
std::vector<const GXCellView*> onePerSlot(std::span<const std::shared_ptr<GXCellView>> cells);

}  // namespace gexlo
