#include "platform/views/table_view.h"

#include <algorithm>
#include <iterator>

#include "platform/views/label.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

constexpr double kHeaderHeight = 30;
/// Of rows out of sight that wait to be filled anew.
constexpr std::size_t kMostReusable = 32;

/// A header that shows only its title.
class TitleHeader final : public UILabel {
public:
    explicit TitleHeader(std::string_view title) {
        setText(title);
        setFont(UIFont::boldSystemFontOfSize(13));
    }
    void setFrame(CGRect frame) override {
        static constexpr double kMargin = 10;
        UILabel::setFrame({frame.x + kMargin, frame.y, frame.width - 2 * kMargin, frame.height});
    }
};

}  // namespace

double UITableViewDelegate::heightForRow(UITableView& table, NSIndexPath) {
    return table.rowHeight();
}

double UITableViewDelegate::heightForHeader(UITableView& table, NSInteger section) {
    return table.titleForHeader(section).empty() ? 0 : kHeaderHeight;
}

/// One that leaves all as it is where there is none.
std::shared_ptr<UITableViewDelegate> UITableView::delegate() const {
    auto delegate = delegate_.lock();
    return delegate ? delegate : std::make_shared<UITableViewDelegate>();
}

std::string UITableView::titleForHeader(NSInteger section) {
    const auto source = source_.lock();
    return source ? source->titleForHeader(*this, section) : "";
}

// MARK: measures

TableLayout UITableView::askedLayout() {
    std::vector<TableSection> sections;
    const auto delegate = this->delegate();
    const auto source = source_.lock();
    const NSInteger count = source ? source->numberOfSections(*this) : 0;
    for (NSInteger section = 0; section < count; ++section) {
        TableSection& added = sections.emplace_back();
        const NSInteger rows = source->numberOfRowsInSection(*this, section);
        added.headerHeight = delegate->heightForHeader(*this, section);
        added.rowHeights.reserve(static_cast<std::size_t>(std::max<NSInteger>(0, rows)));
        for (NSInteger row = 0; row < rows; ++row)
            added.rowHeights.push_back(delegate->heightForRow(*this, {section, row}));
    }
    return TableLayout(std::move(sections));
}

void UITableView::fitContent() {
    setContentSize({frame().width, layout_.height()});
}

void UITableView::setFrame(CGRect frame) {
    UIScrollView::setFrame(frame);
    placeRefreshControl();
    fitContent();
    placeAll();
    showWhatIsInSight();
}

CGRect UITableView::rectOf(const TableLayout& layout, NSIndexPath path) const {
    const TableSpan span = layout.span(path);
    return {0, span.top, frame().width, span.height};
}

CGRect UITableView::rectForRow(NSIndexPath path) const {
    return rectOf(layout_, path);
}

void UITableView::scrollToRow(NSIndexPath path) {
    if (!hasRow(path)) return;
    const TableSpan place = layout_.span(path);
    const double top = contentOffset().y;
    if (place.top < top) setContentOffset({0, place.top});
    if (place.bottom() > top + frame().height)
        setContentOffset({0, place.bottom() - frame().height});
}

// MARK: views of rows and headers

void UITableView::markRow(UITableViewCell& cell, NSIndexPath path) {
    const auto source = editing_ ? source_.lock() : nullptr;
    const bool deletes = source && source->canEditRow(*this, path);
    cell.setMarks(deletes, source && source->canMoveRow(*this, path));
}

void UITableView::markRows() {
    for (const auto& [path, view] : Shown(shown_))
        if (path.row != kHeaderRow) markRow(static_cast<UITableViewCell&>(*view), path);
}

std::shared_ptr<UITableViewCell> UITableView::newCell(NSIndexPath path) {
    const auto source = source_.lock();
    auto cell = source ? source->cellForRow(*this, path) : nullptr;
    if (!cell || !hasRow(path)) return nullptr;
    cell->setSelected(path == selected_);
    cell->setFrame(rectForRow(path));
    markRow(*cell, path);
    return cell;
}

std::shared_ptr<UIView> UITableView::newHeader(NSInteger section) {
    auto header = delegate()->viewForHeader(*this, section);
    if (!header) {
        const std::string title = titleForHeader(section);
        if (title.empty()) return nullptr;
        header = std::make_shared<TitleHeader>(title);
    }
    if (section >= numberOfSections()) return nullptr;
    header->setAccessibilityIdentifier("header_" + std::to_string(section));
    header->setFrame(rectOf(layout_, {section, kHeaderRow}));
    return header;
}

UITableViewCell* UITableView::shownCell(NSIndexPath path) const {
    const auto found = path.row == kHeaderRow ? shown_.end() : shown_.find(path);
    return found == shown_.end() ? nullptr : static_cast<UITableViewCell*>(found->second.get());
}

std::shared_ptr<UITableViewCell> UITableView::cellForRow(NSIndexPath path) {
    if (!hasRow(path)) return nullptr;
    const auto found = shown_.find(path);
    if (found == shown_.end()) return newCell(path);
    return std::static_pointer_cast<UITableViewCell>(found->second);
}

std::shared_ptr<UIView> UITableView::headerForSection(NSInteger section) {
    const NSIndexPath path{section, kHeaderRow};
    if (section < 0 || section >= numberOfSections() || layout_.span(path).height == 0)
        return nullptr;
    const auto found = shown_.find(path);
    return found == shown_.end() ? newHeader(section) : found->second;
}

std::shared_ptr<UITableViewCell> UITableView::dequeueReusableCell(std::string_view identifier) {
    const auto found = std::ranges::find(reusable_, identifier, &UITableViewCell::reuseIdentifier);
    if (found == reusable_.end()) return nullptr;
    auto cell = std::move(*found);
    reusable_.erase(found);
    return cell;
}

// MARK: what is in sight

std::vector<NSIndexPath> UITableView::pathsInSight() const {
    const double top = contentOffset().y;
    std::vector<NSIndexPath> paths = layout_.between(top, top + frame().height);
    // One that is held stays, however far the list has moved.
    if (lifted_ && !std::ranges::binary_search(paths, lifted_->path))
        paths.insert(std::ranges::upper_bound(paths, lifted_->path), lifted_->path);
    return paths;
}

/// What stays in sight keeps its view, and so a field in it its focus; one that has the focus
/// keeps it out of sight too.
void UITableView::showWhatIsInSight() {
    const auto self = weak_from_this().lock();
    const unsigned passes = ++passes_;
    const std::vector<NSIndexPath> wanted = pathsInSight();
    const UIView* focus = window() ? window()->firstResponder() : nullptr;
    std::vector<std::shared_ptr<UIView>> leaving;
    std::erase_if(shown_, [&](const auto& entry) {
        const auto& [path, view] = entry;
        if (std::ranges::binary_search(wanted, path)) return false;
        if (focus && focus->isDescendantOf(*view)) return false;
        leaving.push_back(view);
        return true;
    });
    if (swiped_ && !shown_.contains(*swiped_)) swiped_.reset();
    for (const auto& view : leaving)
        letGo(*view);
    for (const NSIndexPath path : wanted) {
        if (passes != passes_) return;
        if (!shown_.contains(path)) bring(path);
    }
}

/// Null where there is nothing to show, or where the table was changed meanwhile.
std::shared_ptr<UIView> UITableView::bring(NSIndexPath path) {
    const unsigned passes = passes_;
    const bool isHeader = path.row == kHeaderRow;
    std::shared_ptr<UITableViewCell> cell;
    std::shared_ptr<UIView> view;
    // In its place from the start, even where the scroll that brings it is seen to take time.
    animateWithDuration(0, [&] {
        if (!isHeader) cell = newCell(path);
        view = isHeader ? newHeader(path.section) : cell;
    });
    if (!view || passes != passes_) return nullptr;
    insertSubview_atIndex(view, indexFor(path));
    shown_.emplace(path, view);
    if (cell) delegate()->willDisplayRow(*this, *cell, path);
    return passes == passes_ ? view : nullptr;
}

void UITableView::letGo(UIView& view) {
    const auto held = view.shared_from_this();
    view.removeFromSuperview();
    const auto cell = std::dynamic_pointer_cast<UITableViewCell>(held);
    if (!cell || cell->reuseIdentifier().empty() || reusable_.size() >= kMostReusable) return;
    cell->uncoverDelete(0);
    cell->setSelected(false);
    reusable_.push_back(cell);
}

/// Rows lie in the tree in their order, whichever came first, and below all else in the table.
std::size_t UITableView::indexFor(NSIndexPath path) const {
    const auto indexOf = [&](const std::shared_ptr<UIView>& view) {
        return static_cast<std::size_t>(std::ranges::find(subviews(), view) - subviews().begin());
    };
    const auto next = shown_.upper_bound(path);
    if (next != shown_.end()) return indexOf(next->second);
    return shown_.empty() ? 0 : indexOf(shown_.rbegin()->second) + 1;
}

void UITableView::stackInOrder() {
    for (const auto& [path, view] : shown_)
        bringSubviewToFront(*view);
}

/// The others make room where a row that is held would land.
void UITableView::placeAll() {
    const unsigned passes = passes_;
    TableLayout dragged;
    if (lifted_) {
        dragged = layout_;
        dragged.moveRow(lifted_->path, lifted_->target);
    }
    for (const auto& [path, view] : Shown(shown_)) {
        if (passes != passes_) return;
        CGRect place = lifted_ ? rectOf(dragged, afterMove(path, lifted_->path, lifted_->target))
                               : rectForRow(path);
        if (lifted_ && path == lifted_->path) place.y = lifted_->y;
        view->setFrame(place);
    }
}

// MARK: changes

void UITableView::setEditing(bool editing) {
    forgetTouches();
    editing_ = editing;
    markRows();
}

void UITableView::reloadData() {
    const auto self = weak_from_this().lock();
    layout_ = askedLayout();
    ++passes_;
    ++changes_;
    lifted_.reset();
    pressed_.reset();
    swiped_.reset();
    selected_.reset();
    // Nothing is the table's any more when those that leave are told so.
    for (const auto& [path, view] : std::exchange(shown_, {}))
        letGo(*view);
    fitContent();
    showWhatIsInSight();
}

bool UITableView::agreesWithSource(NSInteger section, NSInteger rows) {
    const auto source = source_.lock();
    return source && source->numberOfSections(*this) == numberOfSections() &&
           source->numberOfRowsInSection(*this, section) == rows;
}

void UITableView::insertRow(NSIndexPath path, std::function<void()> completion) {
    const auto self = weak_from_this().lock();
    const NSInteger rows = numberOfRowsInSection(path.section);
    const bool hasPlace =
        path.section >= 0 && path.section < numberOfSections() && path.row >= 0 && path.row <= rows;
    if (!hasPlace || !agreesWithSource(path.section, rows + 1)) {
        reloadData();
        return slide([] {}, std::move(completion));
    }
    forgetTouches();
    layout_.insertRow(path, delegate()->heightForRow(*this, path));
    renumber([&](NSIndexPath former) { return afterInsertion(former, path); });
    std::shared_ptr<UIView> arriving;
    bringMissing([&](NSIndexPath brought, UIView& view) {
        if (brought != path) return;
        view.setAlpha(0);
        arriving = view.shared_from_this();
    });
    slide(
        [&] {
            if (arriving) arriving->setAlpha(1);
        },
        std::move(completion));
}

void UITableView::deleteRow(NSIndexPath path) {
    const auto self = weak_from_this().lock();
    if (!hasRow(path)) return;
    if (!agreesWithSource(path.section, numberOfRowsInSection(path.section) - 1))
        return reloadData();
    forgetTouches();
    const double height = layout_.span(path).height;
    layout_.removeRow(path);
    const auto found = shown_.extract(path);
    const std::shared_ptr<UIView> leaving = found ? found.mapped() : nullptr;
    if (selected_ == path) selected_.reset();
    renumber([&](NSIndexPath former) { return afterRemoval(former, path); });
    // Below the others and out of reach; a field in it loses the focus.
    if (leaving) {
        leaving->setUserInteractionEnabled(false);
        insertSubview_atIndex(leaving, 0);
    }
    bringMissing([&](NSIndexPath brought, UIView& view) {
        if (brought >= path) view.setFrame(view.frame().offsetBy({0, height}));
    });
    slide(
        [&] {
            if (leaving) leaving->setAlpha(0);
        },
        [weak = std::weak_ptr(leaving)] {
            if (const auto gone = weak.lock()) gone->removeFromSuperview();
        });
}

void UITableView::rowMoved(NSIndexPath from, NSIndexPath to) {
    layout_.moveRow(from, to);
    renumber([&](NSIndexPath former) { return afterMove(former, from, to); });
    bringMissing([](NSIndexPath, UIView&) {});
    stackInOrder();
    // What a row offers may hang on where it stands.
    markRows();
    slide([] {}, {});
}

void UITableView::renumber(const std::function<NSIndexPath(NSIndexPath)>& place) {
    ++passes_;
    ++changes_;
    for (auto& [path, view] : std::exchange(shown_, {}))
        shown_.emplace(place(path), view);
    if (selected_) selected_ = place(*selected_);
}

/// What a change brings into sight, each where `start` puts it before it slides to its place.
void UITableView::bringMissing(const std::function<void(NSIndexPath, UIView&)>& start) {
    const unsigned passes = passes_;
    for (const NSIndexPath path : pathsInSight()) {
        if (passes != passes_) return;
        if (shown_.contains(path)) continue;
        if (const auto view = bring(path)) start(path, *view);
    }
}

/// To where the layout says; what goes out of sight on the way leaves at the end.
void UITableView::slide(const std::function<void()>& changes, std::function<void()> completion) {
    const auto all = [&] {
        changes();
        placeAll();
        fitContent();
    };
    animateWithDuration(kRowDuration, all,
                        [weak = weak_from_this(), completion = std::move(completion)] {
                            const auto held = std::static_pointer_cast<UITableView>(weak.lock());
                            if (held) held->showWhatIsInSight();
                            if (completion) completion();
                        });
}

}  // namespace gexlo
