#include "platform/views/table_view.h"

#include <algorithm>
#include <cmath>

#include "platform/views/window.h"

namespace gexlo {

namespace {

constexpr double kDeleteWidth = 40;
constexpr double kReorderWidth = 42;
/// At an edge a dragged row moves the list.
constexpr double kEdge = 20;
constexpr double kEdgeStep = 8;

}  // namespace

UITableViewCell::UITableViewCell() : contentView_(std::make_shared<UIView>()) {
    addSubview(contentView_);
}

CGRect UITableViewCell::deleteMark() const {
    return {0, 0, deleteWidth_, frame().height};
}

CGRect UITableViewCell::reorderMark() const {
    return {frame().width - reorderWidth_, 0, reorderWidth_, frame().height};
}

void UITableView::setEditing(bool editing) {
    editing_ = editing;
    for (const auto& cell : inSight_)
        layoutCell(*cell);
    markChanged();
}

void UITableView::layoutCell(UITableViewCell& cell) {
    const NSIndexPath path = cell.indexPath_;
    const auto source = editing_ ? source_.lock() : nullptr;
    cell.setMarks(source && source->canEditRow(*this, path) ? kDeleteWidth : 0,
                  source && source->canMoveRow(*this, path) ? kReorderWidth : 0);
    cell.setFrame(rectForRow(path));
    const CGSize size = cell.frame().size();
    cell.contentView().setFrame(
        {cell.deleteWidth_, 0, size.width - cell.deleteWidth_ - cell.reorderWidth_, size.height});
    cell.layoutSubviews();
}

NSInteger UITableView::numberOfRowsInSection(NSInteger section) const {
    return section < 0 || section >= numberOfSections() ? 0
                                                        : rows_[static_cast<std::size_t>(section)];
}

bool UITableView::hasRow(NSIndexPath path) const {
    return path.row >= 0 && path.row < numberOfRowsInSection(path.section);
}

std::string UITableView::titleForHeader(NSInteger section) {
    return section < 0 || section >= numberOfSections()
               ? ""
               : headers_[static_cast<std::size_t>(section)];
}

double UITableView::headerHeight(NSInteger section) const {
    return headers_[static_cast<std::size_t>(section)].empty() ? 0 : kHeaderHeight;
}

double UITableView::sectionTop(NSInteger section) const {
    double top = 0;
    for (NSInteger i = 0; i < section; ++i) {
        top += headerHeight(i) + static_cast<double>(numberOfRowsInSection(i)) * rowHeight_;
    }
    return top;
}

CGRect UITableView::rectForRow(NSIndexPath path) const {
    const double top = sectionTop(path.section) + headerHeight(path.section);
    return {0, top + static_cast<double>(path.row) * rowHeight_, frame().width, rowHeight_};
}

void UITableView::reloadData() {
    lifted_.reset();
    rows_.clear();
    headers_.clear();
    inSight_.clear();
    removeAllSubviews();
    if (const auto source = source_.lock()) {
        for (NSInteger i = 0; i < source->numberOfSections(*this); ++i) {
            rows_.push_back(source->numberOfRowsInSection(*this, i));
            headers_.push_back(source->titleForHeader(*this, i));
        }
    }
    makeHeaders();
    setContentSize({frame().width, sectionTop(numberOfSections())});
    layoutRows();
}

void UITableView::deleteRow(NSIndexPath path) {
    if (hasRow(path)) reloadData();
}

void UITableView::makeHeaders() {
    for (NSInteger section = 0; section < numberOfSections(); ++section) {
        if (headerHeight(section) == 0) continue;
        const auto header = std::make_shared<UILabel>(
            CGRect{10, sectionTop(section), frame().width - 20, kHeaderHeight});
        header->setAccessibilityIdentifier("header_" + std::to_string(section));
        header->setText(titleForHeader(section));
        header->setFont(UIFont::boldSystemFontOfSize(13));
        addSubview(header);
    }
}

std::vector<NSIndexPath> UITableView::pathsInSight() const {
    std::vector<NSIndexPath> paths;
    const double top = contentOffset().y;
    const double bottom = top + frame().height;
    for (NSInteger section = 0; section < numberOfSections(); ++section) {
        const double rowsY = sectionTop(section) + headerHeight(section);
        const auto rows = static_cast<double>(numberOfRowsInSection(section));
        const auto first =
            static_cast<NSInteger>(std::clamp((top - rowsY) / rowHeight_, 0.0, rows));
        const auto last =
            static_cast<NSInteger>(std::clamp(std::ceil((bottom - rowsY) / rowHeight_), 0.0, rows));
        for (NSInteger row = first; row < last; ++row)
            paths.push_back({section, row});
    }
    // One that is held stays, however far the list has moved.
    if (lifted_ && std::find(paths.begin(), paths.end(), lifted_->path) == paths.end()) {
        paths.push_back(lifted_->path);
    }
    return paths;
}

/// Rows that stay in sight keep their views, and so a field in them its focus.
void UITableView::layoutRows() {
    std::vector<std::shared_ptr<UITableViewCell>> inSight;
    for (const NSIndexPath path : pathsInSight()) {
        if (auto cell = cellForRow(path)) inSight.push_back(std::move(cell));
    }
    inSight_.swap(inSight);
    for (const auto& former : inSight) {
        if (std::find(inSight_.begin(), inSight_.end(), former) == inSight_.end())
            former->removeFromSuperview();
    }
    for (const auto& cell : inSight_) {
        if (cell->superview() != this) addSubview(cell);
    }
}

void UITableView::scrollToRow(NSIndexPath path) {
    if (!hasRow(path)) return;
    const CGRect place = rectForRow(path);
    const double top = contentOffset().y;
    if (place.y < top) setContentOffset({0, place.y});
    if (place.maxY() > top + frame().height) setContentOffset({0, place.maxY() - frame().height});
}

std::shared_ptr<UITableViewCell> UITableView::cellForRow(NSIndexPath path) {
    if (!hasRow(path)) return nullptr;
    for (const auto& cell : inSight_) {
        if (cell->indexPath_ == path) return cell;
    }
    const auto source = source_.lock();
    if (!source) return nullptr;
    auto cell = source->cellForRow(*this, path);
    cell->indexPath_ = path;
    layoutCell(*cell);
    return cell;
}

bool UITableView::selectRow(NSIndexPath path) {
    if (!canSelectRow(path)) return false;
    const auto delegate = delegate_.lock();
    const auto self = shared_from_this();
    delegate->didSelectRow(*this, path);
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
    source->moveRow(*this, from, to);
    reloadData();
    return true;
}

// MARK: touches

void UITableView::touchesBegan(CGPoint inWindow) {
    for (const auto& cell : inSight_) {
        const CGRect row = cell->frameInWindow();
        if (!cell->reorderMark().offsetBy(row.origin()).contains(inWindow)) continue;
        const NSIndexPath path = cell->indexPath_;
        lifted_ = {path, path, inWindow.y - row.y, cell->frame().y};
        bringSubviewToFront(*cell);
        return;
    }
}

void UITableView::touchesMoved(CGPoint inWindow) {
    if (!lifted_) return;
    const CGRect table = frameInWindow();
    const double last = std::max(0.0, contentSize().height - table.height);
    CGPoint offset = contentOffset();
    if (inWindow.y < table.y + kEdge) offset.y = std::max(0.0, offset.y - kEdgeStep);
    if (inWindow.y > table.maxY() - kEdge) offset.y = std::min(last, offset.y + kEdgeStep);
    setContentOffset(offset);
    lifted_->y = inWindow.y - table.y + offset.y - lifted_->grip;
    lifted_->target = nearestRow(lifted_->y + rowHeight_ / 2, lifted_->path.section);
    placeRows();
}

/// The row of a section that is at a height of the content, or comes nearest to it.
NSIndexPath UITableView::nearestRow(double y, NSInteger section) const {
    const double rows = (y - rectForRow({section, 0}).y) / rowHeight_;
    const auto last = static_cast<double>(numberOfRowsInSection(section) - 1);
    return {section, static_cast<NSInteger>(std::clamp(std::floor(rows), 0.0, last))};
}

/// The others make room where the row that is held would land.
void UITableView::placeRows() {
    for (const auto& cell : inSight_) {
        const NSIndexPath path = cell->indexPath_;
        CGRect place = rectForRow(path);
        if (lifted_ && path.section == lifted_->path.section) {
            const NSInteger from = lifted_->path.row;
            const NSInteger to = lifted_->target.row;
            if (path.row > from && path.row <= to) place.y -= rowHeight_;
            if (path.row < from && path.row >= to) place.y += rowHeight_;
            if (path.row == from) place.y = lifted_->y;
        }
        cell->setFrame(place);
    }
}

void UITableView::touchesCancelled() {
    lifted_.reset();
    layoutRows();
    placeRows();
}

void UITableView::touchesEnded(CGPoint inWindow) {
    if (lifted_) {
        const LiftedRow lifted = *lifted_;
        touchesCancelled();
        dragRow(lifted.path, lifted.target);
        return;
    }
    for (const auto& cell : inSight_) {
        const CGRect row = cell->frameInWindow();
        if (!row.contains(inWindow)) continue;
        if (cell->deleteMark().offsetBy(row.origin()).contains(inWindow)) {
            requestDelete(cell->indexPath_);
        } else {
            selectRow(cell->indexPath_);
        }
        return;
    }
}

}  // namespace gexlo
