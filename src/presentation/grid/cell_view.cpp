#include "presentation/grid/cell_view.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "presentation/notifications.h"
#include "presentation/style/color_manager.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr float kSubjectAlpha = 0.95F;
/// Part of its size to which a text shrinks before a word is broken.
constexpr double kSmallestText = 0.7;
constexpr UIColor kRoomBackground = UIColor::colorWithWhite(0, 0.12F);

/// The height and font of the room by the height of a cell with days on top.
struct RoomRow {
    double below;
    double height;
    float font;
};
constexpr RoomRow kRoomRows[] = {{30, 10, 9}, {40, 12, 9}, {70, 16, 10}, {140, 26, 10}};
constexpr RoomRow kTallRoomRow{0, 40, 10};

const RoomRow& roomRow(double height) {
    for (const RoomRow& row : kRoomRows) {
        if (height < row.below) return row;
    }
    return kTallRoomRow;
}

}  // namespace

SharedPlacements sortedPlacements(const std::vector<GXDayNPeriodData*>& rows) {
    // Placements lie far apart in memory. Asked for that much ahead they come while others are
    // read, which takes a tenth (of 4.3 ms) off the filling of the largest grid.
    constexpr std::size_t kAhead = 12;
    std::vector<std::pair<PlacedSlot, GXDayNPeriodData*>> order;
    order.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i + kAhead < rows.size()) {
            __builtin_prefetch(&rows[i + kAhead]->week);
            __builtin_prefetch(&rows[i + kAhead]->room);
        }
        GXDayNPeriodData* row = rows[i];
        order.push_back({{row->week.get(), weekdayOf(row->day.get()), row->period.get(),
                          row->room.isSet() ? &row->room.get() : nullptr},
                         row});
    }
    std::stable_sort(order.begin(), order.end(), [](const auto& left, const auto& right) {
        return comesBefore(left.first, right.first);
    });
    auto placements = std::make_shared<Placements>();
    placements->slots.reserve(rows.size());
    placements->rows.reserve(rows.size());
    for (const auto& [slot, row] : order) {
        placements->slots.push_back(slot);
        placements->rows.push_back(row);
    }
    return placements;
}

/// There are thousands of them, so they speak to their cell without a list of actions.
class GXCellView::Button final : public UIControl {
public:
    using UIControl::UIControl;

protected:
    void sendActions(UIControlEvent event) override {
        static_cast<GXCellView*>(superview())->buttonEvent(event);
    }
};

GXCellView::GXCellView(CGRect frame, const Slot& slot, GXCellViewDelegate& delegate)
    : UIView(frame, 6),
      delegate_(delegate),
      labelSubject_(addLabel("labelSubject")),
      labelRoom_(addLabel("labelRoom")),
      blackMask_(addMask("blackMask", UIColor::darkGrayColor())),
      whiteMask_(addMask("whiteMask", UIColor::colorWithWhite(1, 0.4F))),
      shadowMask_(addMask("shadowMask", UIColor::colorWithWhite(0, 0.5F))),
      button_(add<Button>(bounds())) {
    button_.setAccessibilityIdentifier("button");
    reset(frame, slot);
}

void GXCellView::reset(CGRect frame, const Slot& slot) {
    slot_ = slot;
    singleSize_ = frame.size();
    lesson_ = nullptr;
    dayNPeriod_ = nullptr;
    numBlocks_ = 0;
    hiddenCell_ = false;
    state_ = State::normal;
    setHidden(false);
    setSize(singleSize_);
    setFrame(frame);
    clearLooks();
    setFontColor(UIColor::blackColor());
    labelRoom_.setFont(UIFont::systemFontOfSize(10));
    layOutLabelsSimply();
    for (UIView* mask : {&blackMask_, &whiteMask_, &shadowMask_})
        showMask(*mask, false);
    mayBeMasked_ = false;
}

UILabel& GXCellView::addLabel(const char* identifier) {
    UILabel& label = add<UILabel>();
    label.setAccessibilityIdentifier(identifier);
    label.setTextAlignment(NSTextAlignment::center);
    label.setNumberOfLines(0);
    label.setMinimumScaleFactor(kSmallestText);
    label.setFont(UIFont::systemFontOfSize(10));
    return label;
}

UIView& GXCellView::addMask(const char* identifier, UIColor color) {
    UIView& mask = add<UIView>(bounds());
    mask.setAccessibilityIdentifier(identifier);
    mask.setBackgroundColor(color);
    mask.setHidden(true);
    mask.setUserInteractionEnabled(false);
    return mask;
}

/// A grid has thousands of masks and shows few: while none is shown, none is looked at.
void GXCellView::showMask(UIView& mask, bool shown) {
    if (mayBeMasked_ || shown) mask.setHidden(!shown);
    mayBeMasked_ = mayBeMasked_ || shown;
}

void GXCellView::setSubjectTextSize(NSInteger setting) {
    const float size = setting == 15 ? 14 : setting == 5 ? 10 : 12;
    labelSubject_.setFont(UIFont::systemFontOfSize(size));
}

void GXCellView::setColor(UIColor color) {
    const bool isClear = color == UIColor::clearColor();
    setBackgroundColor(isClear ? color : color.colorWithAlphaComponent(kSubjectAlpha));
}

void GXCellView::setFontColor(UIColor color) {
    labelSubject_.setTextColor(color);
    labelRoom_.setTextColor(color);
}

void GXCellView::setRoom(const std::string& room) {
    room_ = room;
    labelRoom_.setText(room);
    labelRoom_.setBackgroundColor(room.empty() ? UIColor::clearColor() : kRoomBackground);
}

// MARK: sizes

void GXCellView::setSize(CGSize size) {
    if (size == frame().size()) return;
    setFrame({frame().x, frame().y, size.width, size.height});
    for (UIView* over : {&blackMask_, &whiteMask_, &shadowMask_, static_cast<UIView*>(&button_)})
        over->setFrame(bounds());
}

void GXCellView::layOutLabels(double roomHeight) {
    const CGSize size = frame().size();
    labelSubject_.setFrame({0, 0, size.width, size.height - roomHeight});
    labelRoom_.setFrame({0, size.height - roomHeight, size.width, roomHeight});
}

void GXCellView::layOutLabelsSimply() {
    layOutLabels(frame().height < 60 ? 13 : 24);
}

void GXCellView::sizeUpdate() {
    const double height = frame().height;
    if (room().empty()) {
        labelSubject_.setFrame(bounds());
        labelRoom_.setFrame({});
        labelRoom_.setFont(UIFont::systemFontOfSize(10));
    } else if (slot_.daysOnLeft) {
        layOutLabels(height < 50 ? 15 : 30 - 2 * slot_.numDays);
    } else {
        const RoomRow& row = roomRow(height);
        layOutLabels(row.height);
        labelRoom_.setFont(UIFont::systemFontOfSize(row.font));
    }
}

void GXCellView::setBlocks(int blocks) {
    numBlocks_ = blocks;
    CGSize size = singleSize_;
    double& along = slot_.daysOnLeft ? size.width : size.height;
    along = (along + 1) * blocks - 1;
    setSize(size);
    sizeUpdate();
    hideLines(true);
}

void GXCellView::hideLines(bool hide) {
    if (numBlocks_ < 2) return;
    for (int k = 1; k < numBlocks_; ++k)
        delegate_.hideLine_day_period(hide, slot_.day, slot_.periodIndex + k);
}

// MARK: showing a subject

void GXCellView::setLesson_withClasstimeList(GXLessonData& lesson, const Placements& placements) {
    const auto position = placementOn(placements.slots, slot_.week, slot_.day, slot_.periodNo);
    if (position) show(lesson, placements, *position);
}

void GXCellView::show(GXLessonData& lesson, const Placements& placements, std::size_t position) {
    lesson_ = &lesson;
    dayNPeriod_ = placements.rows[position];
    state_ = State::normal;
    const Block block =
        blockAt(placements.slots, position, slot_.periodIndex, delegate_.periodAxis());
    hiddenCell_ = block.covered;
    setHidden(block.covered);
    if (block.covered) {
        setRoom(dayNPeriod_->room.get());
        numBlocks_ = 1;
        // A covered placement never keeps an alarm.
        if (dayNPeriod_->alarmValue.get() != 0) {
            GXDataManager::manager().clearAlarmInClass(*dayNPeriod_);
        }
        return;
    }
    paint();
    setBlocks(block.count);
}

void GXCellView::paint() {
    const GXColorManager& colors = GXColorManager::colorManager();
    setColor(colors.colorWithName(lesson_->color.get()));
    labelSubject_.setText(lesson_->name.get());
    setFontColor(colors.fontColorWithName(lesson_->fontColor.get()));
    setRoom(dayNPeriod_->room.get());
}

void GXCellView::clearLooks() {
    setColor(UIColor::clearColor());
    labelSubject_.setText("");
    setRoom("");
}

void GXCellView::copyLooksFrom(const GXCellView& other) {
    lesson_ = other.lesson_;
    dayNPeriod_ = other.dayNPeriod_;
    paint();
    setBlocks(other.numBlocks_);
}

void GXCellView::setLessonsWithData(GXLessonData& lesson, const Placements& placements) {
    if (!lesson_) setLesson_withClasstimeList(lesson, placements);
}

// MARK: add and edit

void GXCellView::beginAddMode() {
    if (lesson_) showMask(blackMask_, true);
    state_ = lesson_ ? State::locked : State::normal;
    showMask(whiteMask_, false);
}

void GXCellView::cancelAddMode() {
    if (state_ == State::locked) showMask(blackMask_, false);
    if (state_ == State::selected) {
        setColor(UIColor::clearColor());
        setRoom("");
    }
    state_ = State::normal;
}

/// What both modes end with; false for a cell that was neither locked nor selected.
bool GXCellView::finishMode(GXLessonData& lesson, const Placements& placements) {
    if (state_ == State::selected) {
        setLesson_withClasstimeList(lesson, placements);
        return true;
    }
    if (state_ != State::locked) return false;
    showMask(blackMask_, false);
    state_ = State::normal;
    return true;
}

void GXCellView::finishAddMode(GXLessonData& lesson, const Placements& placements) {
    if (finishMode(lesson, placements)) return;
    lesson_ = nullptr;
    dayNPeriod_ = nullptr;
}

void GXCellView::beginEditMode(const GXLessonData& lesson) {
    showMask(whiteMask_, false);
    if (!lesson_) {
        state_ = State::normal;
    } else if (lesson_ != &lesson) {
        showMask(blackMask_, true);
        state_ = State::locked;
    } else {
        // Each placement of a block can be toggled alone.
        setSize(singleSize_);
        paint();
        labelSubject_.setText("");
        layOutLabelsSimply();
        showMask(blackMask_, false);
        state_ = State::selected;
        setHidden(false);
        hideLines(false);
        GXUIManager::manager().addSelectedCell(
            std::static_pointer_cast<GXCellView>(shared_from_this()));
    }
}

void GXCellView::cancelEditMode() {
    if (state_ == State::locked) {
        showMask(blackMask_, false);
    } else if (!lesson_) {
        clearLooks();
    } else if (hiddenCell_) {
        setHidden(true);
    } else {
        paint();
        setBlocks(numBlocks_);
    }
    state_ = State::normal;
}

void GXCellView::finishEditMode(GXLessonData& lesson, const Placements& placements) {
    if (finishMode(lesson, placements)) return;
    lesson_ = nullptr;
    dayNPeriod_ = nullptr;
    numBlocks_ = 0;
}

// MARK: removal

void GXCellView::removeLesson(const GXLessonData& lesson) {
    if (lesson_ == &lesson) removeAllLessons();
}

void GXCellView::removeAllLessons() {
    if (!lesson_) return;
    lesson_ = nullptr;
    dayNPeriod_ = nullptr;
    setSize(singleSize_);
    clearLooks();
    layOutLabelsSimply();
    hideLines(false);
    showMask(blackMask_, false);
    state_ = State::normal;
    setHidden(false);
    numBlocks_ = 0;
}

// MARK: the panel of a subject

void GXCellView::openLessonInfo(const GXLessonData& lesson) {
    showMask(whiteMask_, lesson_ == &lesson);
}

void GXCellView::closeLessonInfo() {
    showMask(whiteMask_, false);
}

// MARK: touches

void GXCellView::buttonEvent(UIControlEvent event) {
    const bool isNormal = GXUIManager::manager().appState() == AppState::normal;
    switch (event) {
        case UIControlEvent::touchDown:
            if (isNormal && lesson_) showMask(shadowMask_, true);
            break;
        case UIControlEvent::touchUpInside:
            showMask(shadowMask_, false);
            buttonTouchUp();
            break;
        default:
            showMask(shadowMask_, false);
    }
}

void GXCellView::buttonTouchUp() {
    if (GXUIManager::manager().appState() != AppState::normal) {
        if (state_ == State::selected) return deselect();
        if (state_ == State::normal) return select();
        return;
    }
    if (!lesson_) return;
    const CGPoint center = frame().center();
    NSNotificationCenter::defaultCenter().postNotificationName(
        GX_NOTI_LESSON_INFO_OPEN,
        {user_info::kLessonData(lesson_), user_info::kClasstime(dayNPeriod_),
         user_info::kPositionX(static_cast<int>(center.x)),
         user_info::kPositionY(static_cast<int>(center.y)), user_info::kWeekNo(slot_.week),
         user_info::kLessonCell(std::static_pointer_cast<GXCellView>(shared_from_this()))});
}

void GXCellView::select() {
    GXUIManager& manager = GXUIManager::manager();
    setColor(manager.selectedColor());
    setFontColor(manager.selectedFontColor());
    setRoom(manager.selectedRoom());
    state_ = State::selected;
    manager.addSelectedCell(std::static_pointer_cast<GXCellView>(shared_from_this()));
}

void GXCellView::deselect() {
    setColor(UIColor::clearColor());
    setRoom("");
    state_ = State::normal;
    GXUIManager::manager().removeSelectedCell(*this);
}

std::vector<const GXCellView*> onePerSlot(std::span<const std::shared_ptr<GXCellView>> cells) {
    const auto place = [](const GXCellView& cell) {
        const GXCellView::Slot& slot = cell.slot();
        return std::tuple(slot.week, slot.day, slot.periodIndex);
    };
    std::vector<const GXCellView*> kept;
    for (const auto& cell : cells) {
        std::erase_if(kept, [&](const auto* other) { return place(*other) == place(*cell); });
        kept.push_back(cell.get());
    }
    return kept;
}

}  // namespace gexlo
