// A scrolling list of rows in sections, asked of a data source as they come into sight.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/views/refresh_control.h"
#include "platform/views/scroll_view.h"
#include "platform/views/table_layout.h"
#include "platform/views/table_view_cell.h"

namespace gexlo {

class UITableView;

/// Whom a table asks for its rows.
class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;
    virtual NSInteger numberOfSections(UITableView&) { return 1; }
    virtual NSInteger numberOfRowsInSection(UITableView&, NSInteger section) = 0;
    virtual std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath) = 0;
    /// "" for a section without a header.
    virtual std::string titleForHeader(UITableView&, NSInteger /*section*/) { return ""; }
    virtual bool canEditRow(UITableView&, NSIndexPath) { return false; }
    virtual bool canMoveRow(UITableView&, NSIndexPath) { return false; }
    /// The person asked to delete the row; it goes only by `deleteRow`.
    virtual void commitDelete(UITableView&, NSIndexPath) {}
    virtual void moveRow(UITableView&, NSIndexPath /*from*/, NSIndexPath /*to*/) {}
};

/// Whom a table asks how its rows look, and tells what a person does with them.
class UITableViewDelegate {
public:
    virtual ~UITableViewDelegate() = default;
    /// Asked once a row at each reload; the table's own height unless it is told otherwise.
    virtual double heightForRow(UITableView&, NSIndexPath);
    /// Unless it is told otherwise, room for a title where there is one.
    virtual double heightForHeader(UITableView&, NSInteger section);
    /// Null for the title on a plain ground.
    virtual std::shared_ptr<UIView> viewForHeader(UITableView&, NSInteger /*section*/) {
        return nullptr;
    }
    /// The row comes into sight.
    virtual void willDisplayRow(UITableView&, UITableViewCell&, NSIndexPath) {}
    virtual void didSelectRow(UITableView&, NSIndexPath) {}
    virtual void accessoryButtonTapped(UITableView&, NSIndexPath) {}
    virtual void scrollViewWillBeginDragging(UITableView&) {}
};

/// Rows and headers are views only while they are in sight; their places are the table's. Source
/// and delegate may change the table whenever they are asked or told something.
class UITableView : public UIScrollView {
public:
    /// Seconds in which rows make room for one that comes, or close up after one that goes.
    static constexpr double kRowDuration = 0.3;

    explicit UITableView(CGRect frame) : UIScrollView(frame) { setAlwaysBounceVertical(true); }

    const char* className() const override { return "UITableView"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    void setDataSource(std::weak_ptr<UITableViewDataSource> source) { source_ = std::move(source); }
    void setDelegate(std::weak_ptr<UITableViewDelegate> delegate) {
        delegate_ = std::move(delegate);
    }
    double rowHeight() const { return rowHeight_; }
    void setRowHeight(double height) { rowHeight_ = height; }
    bool isEditing() const { return editing_; }
    void setEditing(bool editing);
    void setFrame(CGRect frame) override;

    // MARK: changes

    /// Asks for everything anew; stays where it is scrolled to.
    void reloadData();
    /// The row is in the data source already. `completion` runs when it has come.
    void insertRow(NSIndexPath path, std::function<void()> completion = {});
    /// The row is gone from the data source already.
    void deleteRow(NSIndexPath path);
    /// A row's view that is no longer in sight, to be filled anew; null when there is none.
    std::shared_ptr<UITableViewCell> dequeueReusableCell(std::string_view identifier);

    // MARK: rows

    NSInteger numberOfSections() const { return layout_.sections(); }
    /// 0 for a section that is none.
    NSInteger numberOfRowsInSection(NSInteger section) const { return layout_.rows(section); }
    bool hasRow(NSIndexPath path) const { return layout_.hasRow(path); }
    /// In the coordinates of the content.
    CGRect rectForRow(NSIndexPath path) const;
    void scrollToRow(NSIndexPath path);
    /// The row's view, made for the purpose where it is out of sight; null for a row that is
    /// none.
    std::shared_ptr<UITableViewCell> cellForRow(NSIndexPath path);
    /// The header's view in the same way; null for a section without one.
    std::shared_ptr<UIView> headerForSection(NSInteger section);
    std::string titleForHeader(NSInteger section);
    void deselectRow(NSIndexPath path, bool animated);

    // MARK: what a person does; each says whether the row can be so treated, and nothing happens
    // to one that cannot

    bool canSelectRow(NSIndexPath path) const { return hasRow(path) && !delegate_.expired(); }
    bool canTapAccessory(NSIndexPath path);
    bool canDeleteRow(NSIndexPath path);
    bool canDragRow(NSIndexPath from, NSIndexPath to);
    bool selectRow(NSIndexPath path);
    bool tapAccessory(NSIndexPath path);
    /// A swipe, or the mark that editing shows.
    bool requestDelete(NSIndexPath path);
    /// A drag while editing; one that ends where it began moves nothing.
    bool dragRow(NSIndexPath from, NSIndexPath to);
    bool canPull() const { return refreshControl_ && isScrollEnabled(); }
    /// Down beyond the first row, to refresh the table.
    bool pull();

    /// What a pull refreshes; stands above the first row.
    void setRefreshControl(std::shared_ptr<UIRefreshControl> control);
    CGPoint firstOffset() const override;

    void touchesBegan(CGPoint inWindow) override;
    void touchesMoved(CGPoint inWindow) override;
    void touchesEnded(CGPoint inWindow) override;
    void touchesCancelled() override;
    /// A row that is held by its mark or swiped follows the finger, and the table stays.
    bool touchesShouldCancelInContentView(const UIView&) const override;
    void willBeginDragging() override;
    void didEndDragging() override;

protected:
    void didScroll() override { showWhatIsInSight(); }

private:
    using Shown = std::map<NSIndexPath, std::shared_ptr<UIView>>;

    std::shared_ptr<UITableViewDelegate> delegate() const;
    TableLayout askedLayout();
    void fitContent();
    bool agreesWithSource(NSInteger section, NSInteger rows);

    std::shared_ptr<UITableViewCell> newCell(NSIndexPath path);
    std::shared_ptr<UIView> newHeader(NSInteger section);
    void markRow(UITableViewCell& cell, NSIndexPath path);
    void markRows();
    CGRect rectOf(const TableLayout& layout, NSIndexPath path) const;

    std::vector<NSIndexPath> pathsInSight() const;
    void showWhatIsInSight();
    std::shared_ptr<UIView> bring(NSIndexPath path);
    void letGo(UIView& view);
    std::size_t indexFor(NSIndexPath path) const;
    void placeAll();
    void stackInOrder();
    UITableViewCell* shownCell(NSIndexPath path) const;

    void renumber(const std::function<NSIndexPath(NSIndexPath)>& place);
    void bringMissing(const std::function<void(NSIndexPath, UIView&)>& start);
    void slide(const std::function<void()>& changes, std::function<void()> completion);
    void rowMoved(NSIndexPath from, NSIndexPath to);

    void placeRefreshControl();
    void refresh();

    std::optional<NSIndexPath> rowAt(CGPoint inWindow) const;
    void lift(NSIndexPath path, CGPoint inWindow);
    void moveLifted(CGPoint inWindow);
    void dropLifted();
    void swipe(CGPoint inWindow);
    void endSwipe();
    void closeSwipe();
    void tapRow(NSIndexPath path, CGPoint inWindow);
    void forgetTouches();

    std::weak_ptr<UITableViewDataSource> source_;
    std::weak_ptr<UITableViewDelegate> delegate_;
    std::shared_ptr<UIRefreshControl> refreshControl_;
    double rowHeight_ = 44;
    bool editing_ = false;
    TableLayout layout_;
    Shown shown_;  // cells, and headers under `kHeaderRow`
    std::vector<std::shared_ptr<UITableViewCell>> reusable_;
    std::optional<NSIndexPath> selected_;
    // Whoever calls out sees by these whether those that it called have laid out or changed the
    // table, and leaves it as they did.
    unsigned passes_ = 0;
    unsigned changes_ = 0;

    /// A row that is being dragged by its mark.
    struct LiftedRow {
        NSIndexPath path;
        NSIndexPath target;  // where it would land now
        double grip;         // of the finger, below its top
        double y;            // of its top, in the content
    };
    std::optional<LiftedRow> lifted_;

    /// A row that a finger is on otherwise.
    struct PressedRow {
        NSIndexPath path;
        CGPoint start;  // in the window
        double uncovered = 0;
    };
    std::optional<PressedRow> pressed_;
    std::optional<NSIndexPath> swiped_;  // whose delete button stays uncovered
};

}  // namespace gexlo
