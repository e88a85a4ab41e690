// What a person does with the rows of a table.
#include <algorithm>
#include <cmath>

#include "platform/views/table_view.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// At an edge a dragged row moves the list.
constexpr double kEdge = 20;
constexpr double kEdgeStep = 8;
/// How far a finger goes sideways before it swipes.
constexpr double kSwipeStart = 12;
constexpr double kSwipeDuration = 0.2;
/// How far beyond its first offset a table is pulled to be refreshed; it gives way slowly there.
constexpr double kPull = 60;

}  // namespace

// MARK: selection, deletion, order

bool UITableView::selectRow(NSIndexPath path) {
    if (!canSelectRow(path)) return false;
    const auto delegate = delegate_.lock();
    const auto self = shared_from_this();
    if (selected_) deselectRow(*selected_, false);
    selected_ = path;
    if (auto* cell = shownCell(path)) cell->setSelected(true);
    delegate->didSelectRow(*this, path);
    return true;
}

void UITableView::deselectRow(NSIndexPath path, bool animated) {
    if (selected_ != path) return;
    selected_.reset();
    if (auto* cell = shownCell(path)) {
        animateWithDuration(animated ? kRowDuration : 0, [&] { cell->setSelected(false); });
    }
}

bool UITableView::canTapAccessory(NSIndexPath path) {
    const auto cell = cellForRow(path);
    return cell && !delegate_.expired() && cell->accessoryMark().width > 0 &&
           cell->accessory() == UITableViewCellAccessory::detailButton;
}

bool UITableView::tapAccessory(NSIndexPath path) {
    if (!canTapAccessory(path)) return false;
    const auto self = shared_from_this();
    delegate()->accessoryButtonTapped(*this, path);
    return true;
}

bool UITableView::canDeleteRow(NSIndexPath path) {
    const auto source = source_.lock();
    return source && hasRow(path) && source->canEditRow(*this, path);
}

bool UITableView::requestDelete(NSIndexPath path) {
    if (!canDeleteRow(path)) return false;
    const auto source = source_.lock();
    const auto self = shared_from_this();
    closeSwipe();
    source->commitDelete(*this, path);
    return true;
}

bool UITableView::canDragRow(NSIndexPath from, NSIndexPath to) {
    const auto source = source_.lock();
    return source && editing_ && hasRow(from) && hasRow(to) && source->canMoveRow(*this, from);
}

bool UITableView::dragRow(NSIndexPath from, NSIndexPath to) {
    if (!canDragRow(from, to)) return false;
    const auto source = source_.lock();
    // Back where it was, nothing has moved.
    if (from == to) return true;
    const auto self = shared_from_this();
    const unsigned changes = changes_;
    source->moveRow(*this, from, to);
    if (changes == changes_) rowMoved(from, to);
    return true;
}

// MARK: dragging and pulling

void UITableView::setRefreshControl(std::shared_ptr<UIRefreshControl> control) {
    if (refreshControl_) refreshControl_->removeFromSuperview();
    refreshControl_ = std::move(control);
    if (!refreshControl_) return;
    insertSubview_atIndex(refreshControl_, 0);
    placeRefreshControl();
}

void UITableView::placeRefreshControl() {
    if (!refreshControl_) return;
    refreshControl_->setFrame(
        {0, -UIRefreshControl::kHeight, frame().width, UIRefreshControl::kHeight});
}

CGPoint UITableView::firstOffset() const {
    const bool isRefreshing = refreshControl_ && refreshControl_->isRefreshing();
    return {0, isRefreshing ? -UIRefreshControl::kHeight : 0};
}

void UITableView::willBeginDragging() {
    delegate()->scrollViewWillBeginDragging(*this);
}

void UITableView::didEndDragging() {
    if (refreshControl_ && contentOffset().y <= firstOffset().y - kPull) refresh();
}

bool UITableView::pull() {
    if (!canPull()) return false;
    if (UIWindow* window = this->window()) window->touchCancel();
    setContentOffset({contentOffset().x, firstOffset().y - kPull});
    refresh();
    if (contentOffset().y < firstOffset().y) setContentOffset(firstOffset());
    return true;
}

/// One that is being refreshed already is asked for once more.
void UITableView::refresh() {
    const auto self = shared_from_this();
    const auto control = refreshControl_;
    control->beginRefreshing();
    control->sendActions(UIControlEvent::valueChanged);
}

// MARK: touches

std::optional<NSIndexPath> UITableView::rowAt(CGPoint inWindow) const {
    for (const auto& [path, view] : shown_) {
        if (path.row != kHeaderRow && view->frameInWindow().contains(inWindow)) return path;
    }
    return std::nullopt;
}

bool UITableView::touchesShouldCancelInContentView(const UIView&) const {
    return !lifted_ && !(pressed_ && pressed_->uncovered > 0);
}

void UITableView::touchesBegan(CGPoint inWindow) {
    // Beside the button that it has uncovered, a swipe is only taken back.
    if (swiped_) return closeSwipe();
    const auto path = rowAt(inWindow);
    if (!path) return;
    const UITableViewCell& cell = *shownCell(*path);
    const CGPoint origin = cell.frameInWindow().origin();
    if (cell.reorderMark().offsetBy(origin).contains(inWindow)) return lift(*path, inWindow);
    pressed_ = {*path, inWindow};
}

void UITableView::touchesMoved(CGPoint inWindow) {
    if (lifted_) return moveLifted(inWindow);
    if (pressed_) swipe(inWindow);
}

void UITableView::touchesEnded(CGPoint inWindow) {
    if (lifted_) return dropLifted();
    if (!pressed_) return;
    if (pressed_->uncovered > 0) return endSwipe();
    const NSIndexPath path = pressed_->path;
    pressed_.reset();
    if (rowAt(inWindow) == path) tapRow(path, inWindow);
}

void UITableView::touchesCancelled() {
    forgetTouches();
}

void UITableView::forgetTouches() {
    if (pressed_ && pressed_->uncovered > 0) {
        if (auto* cell = shownCell(pressed_->path)) cell->uncoverDelete(0);
    }
    pressed_.reset();
    closeSwipe();
    if (!lifted_) return;
    lifted_.reset();
    stackInOrder();
    placeAll();
    showWhatIsInSight();
}

void UITableView::tapRow(NSIndexPath path, CGPoint inWindow) {
    const UITableViewCell& cell = *shownCell(path);
    const CGPoint origin = cell.frameInWindow().origin();
    const auto isOn = [&](const CGRect& mark) { return mark.offsetBy(origin).contains(inWindow); };
    if (isOn(cell.deleteMark())) {
        requestDelete(path);
    } else if (!isOn(cell.accessoryMark()) || !tapAccessory(path)) {
        selectRow(path);
    }
}

// MARK: a row that is dragged

void UITableView::lift(NSIndexPath path, CGPoint inWindow) {
    UITableViewCell& cell = *shownCell(path);
    lifted_ = {path, path, inWindow.y - cell.frameInWindow().y, cell.frame().y};
    bringSubviewToFront(cell);
}

void UITableView::moveLifted(CGPoint inWindow) {
    const CGRect table = frameInWindow();
    CGPoint offset = contentOffset();
    if (inWindow.y < table.y + kEdge) offset.y = std::max(0.0, offset.y - kEdgeStep);
    if (inWindow.y > table.maxY() - kEdge)
        offset.y = std::min(lastOffset().y, offset.y + kEdgeStep);
    setContentOffset(offset);
    if (!lifted_) return;
    lifted_->y = inWindow.y - table.y + offset.y - lifted_->grip;
    const double middle = lifted_->y + rectForRow(lifted_->path).height / 2;
    lifted_->target = layout_.nearestRow(middle, lifted_->path.section);
    placeAll();
}

void UITableView::dropLifted() {
    const LiftedRow lifted = *lifted_;
    lifted_.reset();
    if (lifted.target != lifted.path && dragRow(lifted.path, lifted.target)) return;
    stackInOrder();
    slide([] {}, {});
}

// MARK: a row that is swiped

void UITableView::swipe(CGPoint inWindow) {
    const CGPoint way{inWindow.x - pressed_->start.x, inWindow.y - pressed_->start.y};
    if (pressed_->uncovered == 0) {
        const bool isSwipe = -way.x >= kSwipeStart && std::abs(way.y) <= -way.x;
        if (editing_ || !isSwipe || !canDeleteRow(pressed_->path)) return;
    }
    auto* cell = pressed_ ? shownCell(pressed_->path) : nullptr;
    if (!cell) return;
    // Never quite shut, as long as the finger is down.
    pressed_->uncovered = std::clamp(-way.x, 1.0, UITableViewCell::kDeleteButtonWidth);
    cell->deleteButton();
    cell->uncoverDelete(pressed_->uncovered);
}

void UITableView::endSwipe() {
    const PressedRow pressed = *pressed_;
    pressed_.reset();
    swiped_ = pressed.path;
    auto* cell = shownCell(pressed.path);
    if (!cell || pressed.uncovered < UITableViewCell::kDeleteButtonWidth / 2) return closeSwipe();
    animateWithDuration(kSwipeDuration,
                        [&] { cell->uncoverDelete(UITableViewCell::kDeleteButtonWidth); });
    cell->deleteButton().addAction(UIControlEvent::touchUpInside, [this] {
        if (swiped_) requestDelete(*swiped_);
    });
}

void UITableView::closeSwipe() {
    if (!swiped_) return;
    auto* cell = shownCell(*swiped_);
    swiped_.reset();
    if (cell) animateWithDuration(kSwipeDuration, [&] { cell->uncoverDelete(0); });
}

}  // namespace gexlo
