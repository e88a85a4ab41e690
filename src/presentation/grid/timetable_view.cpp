#include "presentation/grid/timetable_view.h"

#include <algorithm>

#include "presentation/notifications.h"
#include "time/periods_controller.h"

namespace gexlo {

namespace {

/// The day stands in the hundreds and the period before it, so that with more than a hundred
/// rows two lines share a tag and hide together.
NSInteger segmentTag(int day, NSInteger period) {
    return period + 100 * NSInteger{day};
}

/// Null where the notification carries none.
GXLessonData* lessonOf(const NSNotification& notification) {
    return notification.value(user_info::kLessonData).value_or(nullptr);
}

SharedPlacements classtimesOf(const NSNotification& notification) {
    return notification.value(user_info::kClasstimes).value_or(nullptr);
}

std::shared_ptr<UIView> layer(const char* identifier) {
    auto view = std::make_shared<UIView>();
    view->setAccessibilityIdentifier(identifier);
    return view;
}

}  // namespace

GXTimetableView::GXTimetableView(int weekNo)
    : weekNo_(weekNo),
      borderView_(layer("borderView")),
      periodsView_(std::make_shared<GXPeriodsView>(weekNo)),
      cellBaseView_(layer("cellBaseView")) {
    periodsView_->setAccessibilityIdentifier("periodsView");
    addSubview(borderView_);
    addSubview(periodsView_);
    addSubview(cellBaseView_);
    observe();
}

void GXTimetableView::observe() {
    using Handler = std::function<void(const NSNotification&)>;
    const auto everyCell = [this](auto handle) -> Handler {
        return [this, handle](const NSNotification& notification) {
            // What a cell does may fill the grid anew.
            const auto cells = classCells_;
            for (const auto& cell : cells)
                handle(*cell, notification);
        };
    };
    const auto forEveryCell = [&](void (GXCellView::*handler)()) {
        return everyCell([handler](GXCellView& cell, const auto&) { (cell.*handler)(); });
    };
    const auto withLesson = [&](void (GXCellView::*handler)(const GXLessonData&)) {
        return everyCell([handler](GXCellView& cell, const NSNotification& notification) {
            if (const auto* lesson = lessonOf(notification)) (cell.*handler)(*lesson);
        });
    };
    const auto withPlacements = [&](void (GXCellView::*handler)(GXLessonData&, const Placements&)) {
        return everyCell([handler](GXCellView& cell, const NSNotification& notification) {
            auto* lesson = lessonOf(notification);
            const auto classtimes = classtimesOf(notification);
            if (lesson && classtimes) (cell.*handler)(*lesson, *classtimes);
        });
    };
    const std::pair<const char*, Handler> handlers[] = {
        {GX_NOTI_SET_LESSONS,
         [this](const NSNotification& notification) {
             auto* lesson = lessonOf(notification);
             const auto classtimes = classtimesOf(notification);
             if (lesson && classtimes) setLessons(*lesson, *classtimes);
         }},
        {GX_NOTI_BEGIN_ADD_LESSON, forEveryCell(&GXCellView::beginAddMode)},
        {GX_NOTI_CANCEL_ADD_LESSON, forEveryCell(&GXCellView::cancelAddMode)},
        {GX_NOTI_FINISH_ADD_NEW_LESSON, withPlacements(&GXCellView::finishAddMode)},
        {GX_NOTI_BEGIN_EDIT_LESSON, withLesson(&GXCellView::beginEditMode)},
        {GX_NOTI_CANCEL_EDIT_LESSON, forEveryCell(&GXCellView::cancelEditMode)},
        {GX_NOTI_FINISH_EDIT_LESSON, withPlacements(&GXCellView::finishEditMode)},
        {GX_NOTI_REMOVE_LESSON, withLesson(&GXCellView::removeLesson)},
        {GX_NOTI_REMOVE_ALL_LESSONS, forEveryCell(&GXCellView::removeAllLessons)},
        {GX_NOTI_LESSON_INFO_OPEN, withLesson(&GXCellView::openLessonInfo)},
        {GX_NOTI_LESSON_INFO_CLOSE, forEveryCell(&GXCellView::closeLessonInfo)},
    };
    for (const auto& [name, handler] : handlers) {
        tokens_.push_back(NSNotificationCenter::defaultCenter().addObserver(name, handler));
    }
}

void GXTimetableView::update(const GridGeometry& grid, const GridLooks& looks,
                             const GXPeriodsController& periods) {
    grid_ = grid;
    looks_ = looks;
    std::vector<float> numbers;
    for (const GXPeriod* period : periods.periodList(0))
        numbers.push_back(period->periodNo);
    axis_ = PeriodAxis(std::move(numbers), periods.realLastPeriod());
    setFrame(grid.gridRect(weekNo_));
    setBorder(periods);
    setPeriods(periods);
    setLessonCells(periods);
    borderView_->setBackgroundColor(looks.background);
}

void GXTimetableView::setLine(std::size_t number, CGRect frame, NSInteger tag, UIColor color) {
    if (number == borderView_->subviews().size()) {
        borderView_->add<UIView>().setUserInteractionEnabled(false);
    }
    UIView& line = *borderView_->subviews()[number];
    line.setFrame(frame);
    line.setTag(tag);
    line.setBackgroundColor(color);
    line.setHidden(false);
    if (tag != kDayLineTag) segments_.emplace_back(tag, &line);
}

void GXTimetableView::setBorder(const GXPeriodsController& periods) {
    borderView_->setFrame(grid_.borderRect());
    const auto lines = static_cast<std::size_t>(grid_.numDays * (grid_.numPeriods + 1));
    if (borderView_->subviews().size() > lines) borderView_->removeAllSubviews();
    borderView_->reserveSubviews(lines);
    segments_.clear();
    segments_.reserve(lines);
    const auto segmentColor = [&](int period) {
        if (!looks_.useHalfPeriods || period == grid_.numPeriods) return looks_.border;
        const GXPeriod& behind = *periods.period_week(period, 0);
        return behind.isHalf || behind.isBreak ? looks_.borderHalf : looks_.border;
    };
    std::size_t line = 0;
    for (int number = 1; number <= grid_.numDays; ++number) {
        setLine(line++, grid_.dayLineRect(number), kDayLineTag, looks_.border);
        const int day = grid_.dayAt(number - 1);
        for (int period = 1; period <= grid_.numPeriods; ++period) {
            setLine(line++, grid_.periodSegmentRect(number, period), segmentTag(day, period),
                    segmentColor(period));
        }
    }
    std::stable_sort(segments_.begin(), segments_.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
}

void GXTimetableView::hideLine_day_period(bool hide, int day, NSInteger row) {
    const NSInteger tag = segmentTag(day, row);
    const auto first = std::lower_bound(
        segments_.begin(), segments_.end(), tag,
        [](const auto& segment, NSInteger wanted) { return segment.first < wanted; });
    for (auto segment = first; segment != segments_.end() && segment->first == tag; ++segment)
        segment->second->setHidden(hide);
}

void GXTimetableView::setPeriods(const GXPeriodsController& periods) {
    periodsView_->update(grid_, periods,
                         {.background = looks_.periodsBackground,
                          .font = looks_.periodsFont,
                          .border = looks_.border,
                          .showClasshours = looks_.showClasstimes,
                          .useSameClasshours = looks_.useSameClasshours});
}

GXCellView::Slot GXTimetableView::slotAt(int day, NSInteger period) const {
    return {.week = weekNo_,
            .day = day,
            .periodIndex = period,
            .periodNo = axis_.number(period),
            .numDays = grid_.numDays,
            .daysOnLeft = grid_.daysOnLeft};
}

/// Puts a cell at its slot, one that is there or, for a number one beyond them, a new one.
GXCellView& GXTimetableView::setCell(std::size_t number, int index, int day, NSInteger period) {
    const CGRect frame = grid_.cellRect(index, static_cast<int>(period));
    const GXCellView::Slot slot = slotAt(day, period);
    if (number < classCells_.size()) {
        classCells_[number]->reset(frame, slot);
    } else {
        classCells_.push_back(std::make_shared<GXCellView>(frame, slot, *this));
        cellBaseView_->addSubview(classCells_.back());
    }
    GXCellView& cell = *classCells_[number];
    cell.setAccessibilityIdentifier("cell_" + std::to_string(weekNo_) + "_" + std::to_string(day) +
                                    "_" + std::to_string(period));
    cell.setSubjectTextSize(looks_.subjectTextSize);
    return cell;
}

void GXTimetableView::setLessonCells(const GXPeriodsController& periods) {
    const NSInteger rows = periods.numPeriods();
    const auto cells = static_cast<std::size_t>(grid_.numDays * rows);
    // Cells serve again unless somebody besides the grid holds one, as a finger on it does.
    const bool areFree = std::all_of(classCells_.begin(), classCells_.end(),
                                     [](const auto& cell) { return cell.use_count() == 2; });
    if (classCells_.size() > cells || !areFree) clearLessonCells();
    cellBaseView_->setFrame(grid_.cellBaseRect());
    classCells_.reserve(cells);
    cellBaseView_->reserveSubviews(cells);
    std::size_t number = 0;
    for (int index = 0; index < grid_.numDays; ++index) {
        for (NSInteger period = 0; period < rows; ++period)
            setCell(number++, index, grid_.dayAt(index), period);
    }
}

void GXTimetableView::clearLessonCells() {
    classCells_.clear();
    cellBaseView_->removeAllSubviews();
}

void GXTimetableView::setLessons(GXLessonData& lesson, const Placements& placements) {
    const NSInteger rows = axis_.count();
    // A grid that is cleared, or an image, has not a cell for every slot, and takes in nothing.
    if (classCells_.size() != static_cast<std::size_t>(grid_.numDays * rows)) return;
    for (const PlacedSlot& slot : placements.slots) {
        if (slot.week != weekNo_ || slot.day < 0 || slot.day > 6) continue;
        const NSInteger row = axis_.indexOf(slot.period);
        if (row < 0) continue;
        // A grid of eight days shows its first one twice.
        for (int index = grid_.dayIndex(static_cast<int>(slot.day)); index < grid_.numDays;
             index += 7) {
            classCells_[static_cast<std::size_t>(index * rows + row)]->setLessonsWithData(
                lesson, placements);
        }
    }
}

void GXTimetableView::updateImageModeFromTimetable(const GXTimetableView& other,
                                                   const GXPeriodsController& periods) {
    grid_ = imageGeometry(other.grid_);
    looks_ = other.looks_;
    axis_ = other.axis_;
    setFrame({0, 0, static_cast<double>(grid_.tableWidth), static_cast<double>(grid_.tableHeight)});
    setBorder(periods);
    setPeriods(periods);
    borderView_->setBackgroundColor(looks_.background);
    setLessonCellsFromCells(other.classCells_);
}

void GXTimetableView::setLessonCellsFromCells(std::span<const std::shared_ptr<GXCellView>> cells) {
    clearLessonCells();
    cellBaseView_->setFrame(grid_.cellBaseRect());
    const NSInteger rows = axis_.count();
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const GXCellView& shown = *cells[i];
        if (!shown.lesson() || shown.numBlocks() < 1 || shown.isHidden()) continue;
        const auto index = static_cast<int>(static_cast<NSInteger>(i) / rows);
        setCell(classCells_.size(), index, shown.slot().day, shown.slot().periodIndex)
            .copyLooksFrom(shown);
    }
}

void GXTimetableView::setBorderColor(UIColor color) {
    looks_.border = color;
    for (const UIView* strip : {static_cast<UIView*>(periodsView_.get()), borderView_.get()}) {
        for (const auto& line : strip->subviews()) {
            if (line->tag() == kRepaintedTag) line->setBackgroundColor(color);
        }
    }
}

}  // namespace gexlo
