// The grid of one week: border lines, the strip of periods, and a cell for every slot.
#pragma once

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "presentation/grid/cell_view.h"
#include "presentation/grid/geometry.h"
#include "presentation/grid/periods_view.h"

namespace gexlo {

class GXPeriodsController;

/// Colours and flags that the grid takes from its timetable.
struct GridLooks {
    UIColor border;
    UIColor borderHalf;  ///< of the lines before half periods and breaks
    UIColor background;
    UIColor periodsBackground;
    UIColor periodsFont;
    bool useHalfPeriods = false;
    bool showClasstimes = false;
    bool useSameClasshours = false;
    NSInteger subjectTextSize = 0;
};

/// Hears what is posted about lessons on behalf of its cells: a subject's placements go to the
/// cells that they stand on, everything else to all.
class GXTimetableView final : public UIView, public GXCellViewDelegate {
public:
    explicit GXTimetableView(int weekNo);
    const char* className() const override { return "GXTimetableView"; }

    /// Everything as if built anew, with empty cells.
    void update(const GridGeometry& grid, const GridLooks& looks,
                const GXPeriodsController& periods);
    /// The same for an image of another week's grid, cells included.
    void updateImageModeFromTimetable(const GXTimetableView& other,
                                      const GXPeriodsController& periods);
    void setBorder(const GXPeriodsController& periods);
    void setPeriods(const GXPeriodsController& periods);
    void setLessonCells(const GXPeriodsController& periods);
    void clearLessonCells();
    void setLessonCellsFromCells(std::span<const std::shared_ptr<GXCellView>> cells);

    /// Changes the stored colour alone: what it would repaint bears a tag that no line has.
    void setBorderColor(UIColor color);

    /// By day and within it by period.
    const std::vector<std::shared_ptr<GXCellView>>& classCells() const { return classCells_; }

    void hideLine_day_period(bool hide, int day, NSInteger row) override;
    const PeriodAxis& periodAxis() const override { return axis_; }

private:
    static constexpr NSInteger kDayLineTag = 999;
    static constexpr NSInteger kRepaintedTag = 99;

    void observe();
    void setLine(std::size_t number, CGRect frame, NSInteger tag, UIColor color);
    GXCellView::Slot slotAt(int day, NSInteger period) const;
    GXCellView& setCell(std::size_t number, int index, int day, NSInteger period);
    /// Hands a subject to the cells that its placements stand on.
    void setLessons(GXLessonData& lesson, const Placements& placements);

    int weekNo_;
    GridGeometry grid_;
    GridLooks looks_;
    PeriodAxis axis_;
    std::shared_ptr<UIView> borderView_;
    std::shared_ptr<GXPeriodsView> periodsView_;
    std::shared_ptr<UIView> cellBaseView_;
    std::vector<std::shared_ptr<GXCellView>> classCells_;
    std::vector<std::pair<NSInteger, UIView*>> segments_;  // of the border view, by tag
    std::vector<NotificationToken> tokens_;
};

}  // namespace gexlo
