#include "presentation/grid/days_view.h"

#include "platform/foundation/bundle.h"
#include "platform/foundation/string_format.h"
#include "presentation/grid/axis_strip.h"
#include "store/app_local.h"

namespace gexlo {

namespace {

constexpr const char* kDayKeys[] = {"SUN", "MON", "TUE", "WED", "THU", "FRI", "SAT"};
constexpr NSInteger kNumberAloneFrom = 6;

}  // namespace

std::string dayToString(int day, bool daysToNumbers, NSInteger numDays) {
    if (!daysToNumbers) return NSLocalizedString(kDayKeys[day]);
    const int number = day == 0 ? 7 : day;
    if (numDays >= kNumberAloneFrom) return stringWithFormat("%ld", number);
    return stringWithFormat("%@ %ld", NSLocalizedString("DAY"), number);
}

GXDayCellView::GXDayCellView(CGRect frame, int weekday)
    : UIView(frame),
      weekday_(weekday),
      label_(std::make_shared<UILabel>(bounds())),
      mask_(std::make_shared<UIView>(bounds())) {
    setTag(kTag);
    label_->setAccessibilityIdentifier("label");
    label_->setTextAlignment(NSTextAlignment::center);
    label_->setTextColor(UIColor::colorWithWhite(0.17F));
    label_->setNumberOfLines(3);
    mask_->setAccessibilityIdentifier("mask");
    mask_->setBackgroundColor(UIColor::colorWithWhite(0.1F, 0.3F));
    mask_->setHidden(true);
    addSubview(mask_);
    addSubview(label_);
}

void GXDaysView::update(const GridGeometry& grid, const Looks& looks) {
    removeAllSubviews();
    setFrame(grid.dayStripRect(week_));
    const GXAppLocal& local = GXAppLocal::appLocal();
    for (int k = 0; k < grid.numDays; ++k) {
        const int day = grid.dayAt(k);
        const CGRect frame = grid.dayCellRect(k);
        auto cell = std::make_shared<GXDayCellView>(frame, day);
        cell->setAccessibilityIdentifier(stringWithFormat("day_%d_%d", week_, k));
        cell->setBackgroundColor(looks.background);
        UILabel& label = cell->label();
        label.setText(dayToString(day, looks.daysToNumbers, grid.numDays));
        label.setTextColor(looks.font);
        if (grid.daysOnLeft) {
            label.setFont(local.localBoldFontWithSize(14));
        } else {
            label.setFont(looks.daysToNumbers ? UIFont::boldSystemFontOfSize(14)
                                              : local.localBoldFontWithSize(15));
        }
        // The Korean face sits high in its line.
        if (local.isKorean()) label.setFrame({0, 0, frame.width, frame.height + 2});
        addSubview(std::move(cell));
    }
    const bool horizontal = !grid.daysOnLeft;
    setStrokes(axisStrokes({.horizontal = horizontal,
                            .count = grid.numDays,
                            .cellSize = horizontal ? grid.cellWidth : grid.cellHeight,
                            .depth = horizontal ? grid.topAxisHeight : grid.leftAxisWidth},
                           looks.border));
}

void GXDaysView::markToday(int weekday) {
    for (const auto& view : subviews()) {
        if (view->tag() != GXDayCellView::kTag) continue;
        auto& cell = static_cast<GXDayCellView&>(*view);
        cell.setToday(cell.weekday() == weekday);
    }
}

}  // namespace gexlo
