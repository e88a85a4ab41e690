#include "presentation/grid/periods_view.h"

#include "platform/foundation/device.h"
#include "platform/foundation/string_format.h"
#include "presentation/grid/axis_strip.h"
#include "presentation/ui_manager.h"
#include "time/periods_controller.h"

namespace gexlo {

namespace {

/// Part of its size to which the name of a break shrinks.
constexpr double kSmallestName = 0.7;
/// Touches longer than this hide the bubble at once, shorter ones after a while.
constexpr double kLongTouch = 1.0;
/// From the release; more than the bubble stands at least.
constexpr double kBubbleDelay = 1.5;

}  // namespace

GXPeriodCellView::GXPeriodCellView(CGRect frame, const GXPeriod& period, bool daysOnLeft)
    : UIView(frame),
      periodUnit_(periodTenth(period.periodNo)),
      daysOnLeft_(daysOnLeft),
      name_(period.fullName.empty() ? period.shortName : period.fullName),
      labelName_(std::make_shared<UILabel>(bounds())) {
    setBackgroundColor(UIColor::colorWithWhite(1, 0.5F));
    labelName_->setAccessibilityIdentifier("labelName");
    labelName_->setText(period.shortName);
    labelName_->setNumberOfLines(0);
    labelName_->setMinimumScaleFactor(kSmallestName);
    labelName_->setTextAlignment(NSTextAlignment::center);
    labelName_->setFont(UIFont::boldSystemFontOfSize(isMinor() ? 12 : 15));
    labelName_->setTextColor(UIColor::colorWithWhite(0, isMinor() ? 0.6F : 1));
    addSubview(labelName_);
    labelTime_ = newTimeLabel("labelTime", UIColor::blackColor());
    setAccessibilityLabel(name_);
}

std::shared_ptr<UILabel> GXPeriodCellView::newTimeLabel(const char* identifier, UIColor color) {
    auto label = std::make_shared<UILabel>();
    label->setAccessibilityIdentifier(identifier);
    label->setFont(UIFont::systemFontOfSize(10));
    label->setTextColor(color);
    addSubview(label);
    return label;
}

void GXPeriodCellView::setTextColor(UIColor color) {
    const float alpha = periodUnit_ == 5 ? 0.7F : isMinor() ? 0.6F : color.alpha;
    labelName_->setTextColor(color.colorWithAlphaComponent(alpha));
    labelTime_->setTextColor(color);
}

void GXPeriodCellView::setBeginningTime_endTime(const std::string& begin, const std::string& end) {
    const double w = frame().width;
    const double h = frame().height;
    const auto nameFont = [&](float size, float minorSize) {
        labelName_->setFont(UIFont::boldSystemFontOfSize(isMinor() ? minorSize : size));
    };
    labelTime_->setText(begin);
    labelTime_->setTextAlignment(daysOnLeft_ ? NSTextAlignment::left : NSTextAlignment::center);
    labelName_->setTextAlignment(NSTextAlignment::right);
    if (daysOnLeft_) {
        labelTime_->setFrame({3, 2, w - 3, 12});
        labelName_->setFrame({0, h - 21, w - 6, 21});
        nameFont(16, 12);
    } else if (h > 50) {
        labelTime_->setFrame({1, 2, w, 12});
        labelName_->setFrame({0, 15, w, h - 30});
        labelName_->setTextAlignment(NSTextAlignment::center);
        nameFont(17, 12);
        labelEndTime_ = newTimeLabel("labelEndTime", labelTime_->textColor());
        labelEndTime_->setFrame({1, h - 14, w, 12});
        labelEndTime_->setTextAlignment(NSTextAlignment::center);
        labelEndTime_->setText(end);
    } else if (h > 35) {
        labelTime_->setFrame({1, 2, w, 12});
        labelName_->setFrame({4, h - 18, w - 7, 15});
        nameFont(15, 12);
    } else if (h > 29) {
        labelTime_->setFrame({1, 2, w, 11});
        labelName_->setFrame({4, h - 16, w - 7, 16});
        nameFont(12, 10);
    } else {
        labelTime_->setFrame({1, 1, w, 11});
        labelName_->setFrame({4, 14, w - 7, h - 14});
        nameFont(10, 10);
    }
    if (!isMinor()) return;
    for (const auto& label : {labelName_, labelTime_})
        label->setTextColor(label->textColor().colorWithAlphaComponent(0.5F));
}

void GXPeriodCellView::touchesBegan(CGPoint) {
    touchBegan_ = NSDate::date();
    GXUIManager::manager().showClassHour_periodName(classhour_, name_);
}

void GXPeriodCellView::touchesEnded(CGPoint) {
    const auto hide = [] { GXUIManager::manager().hideClassHour(); };
    const NSTimeInterval held = NSDate::date().timeIntervalSinceDate(touchBegan_);
    if (held > kLongTouch) hide();
    // A bubble that has not stood long enough stays when it is asked, and nobody else would ask
    // again: that of a touch between these two lengths goes with the delay too, like a short one's.
    if (held < kBubbleDelay) Device::current().mainQueue().after(kBubbleDelay, hide);
}

void GXPeriodCellView::touchesCancelled() {
    touchesEnded({});
}

void GXPeriodsView::update(const GridGeometry& grid, const GXPeriodsController& periods,
                           const Looks& looks) {
    removeAllSubviews();
    setFrame(grid.periodStripRect());
    const int hoursWeek = looks.useSameClasshours ? 0 : week_;
    for (int k = 0; k < grid.numPeriods; ++k) {
        auto cell = std::make_shared<GXPeriodCellView>(grid.periodCellRect(k),
                                                       *periods.period_week(k, 0), grid.daysOnLeft);
        cell->setAccessibilityIdentifier(stringWithFormat("period_%d_%d", week_, k));
        cell->setCellColor(looks.background);
        cell->setTextColor(looks.font);
        cell->setClasshour(periods.period_week(k, hoursWeek)->classhour);
        if (looks.showClasshours) {
            cell->setBeginningTime_endTime(*periods.beginTime_week(k, hoursWeek),
                                           *periods.endTime_week(k, hoursWeek));
        }
        addSubview(std::move(cell));
    }
    const bool horizontal = grid.daysOnLeft;
    setStrokes(axisStrokes({.horizontal = horizontal,
                            .count = grid.numPeriods,
                            .cellSize = horizontal ? grid.cellWidth : grid.cellHeight,
                            .depth = horizontal ? grid.topAxisHeight : grid.leftAxisWidth},
                           looks.border));
}

}  // namespace gexlo
