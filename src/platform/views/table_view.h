// A scrolling list of rows in sections, asked of a data source as they come into sight.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/views/label.h"
#include "platform/views/scroll_view.h"

namespace gexlo {

class UITableView;

struct NSIndexPath {
    NSInteger section = 0;
    NSInteger row = 0;
    bool operator==(const NSIndexPath&) const = default;
};

/// One row. Its owner puts views into `contentView`, which is as large as the row, less the
/// marks that editing shows.
class UITableViewCell : public UIView {
public:
    UITableViewCell();
    const char* className() const override { return "UITableViewCell"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }
    UIView& contentView() { return *contentView_; }
    /// Called whenever the content has its size.
    virtual void layoutSubviews() {}

    /// Where a touch deletes the row, and where one drags it, in the row's coordinates; of
    /// size 0 for what it does not offer now.
    CGRect deleteMark() const;
    CGRect reorderMark() const;

private:
    friend class UITableView;
    void setMarks(double deleteWidth, double reorderWidth) {
        change(deleteWidth_, deleteWidth);
        change(reorderWidth_, reorderWidth);
    }

    std::shared_ptr<UIView> contentView_;
    NSIndexPath indexPath_;
    double deleteWidth_ = 0;
    double reorderWidth_ = 0;
};

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

/// Whom a table tells what a person does with its rows.
class UITableViewDelegate {
public:
    virtual ~UITableViewDelegate() = default;
    virtual void didSelectRow(UITableView&, NSIndexPath) {}
};

/// Rows are views only while they are in sight; their places are the table's.
class UITableView : public UIScrollView {
public:
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

    /// Asks for everything anew.
    void reloadData();
    /// The row is gone from the data source already.
    void deleteRow(NSIndexPath path);

    NSInteger numberOfSections() const { return static_cast<NSInteger>(rows_.size()); }
    /// 0 for a section that is none.
    NSInteger numberOfRowsInSection(NSInteger section) const;
    bool hasRow(NSIndexPath path) const;
    std::string titleForHeader(NSInteger section);
    /// In the coordinates of the content.
    CGRect rectForRow(NSIndexPath path) const;
    void scrollToRow(NSIndexPath path);
    /// The row's view, made for the purpose where it is out of sight; null for a row that is
    /// none.
    std::shared_ptr<UITableViewCell> cellForRow(NSIndexPath path);

    // MARK: what a person does; each says whether the row can be so treated, and nothing happens
    // to one that cannot

    bool canSelectRow(NSIndexPath path) const { return hasRow(path) && !delegate_.expired(); }
    bool canDeleteRow(NSIndexPath path);
    bool canDragRow(NSIndexPath from, NSIndexPath to);
    bool selectRow(NSIndexPath path);
    /// A swipe, or the mark that editing shows.
    bool requestDelete(NSIndexPath path);
    /// A drag while editing; one that ends where it began moves nothing.
    bool dragRow(NSIndexPath from, NSIndexPath to);

    void touchesBegan(CGPoint inWindow) override;
    void touchesMoved(CGPoint inWindow) override;
    void touchesEnded(CGPoint inWindow) override;
    void touchesCancelled() override;
    /// A row that is held by its mark follows the finger, and the table stays.
    bool touchesShouldCancelInContentView(const UIView&) const override { return !lifted_; }

protected:
    void didScroll() override { layoutRows(); }

private:
    static constexpr double kHeaderHeight = 30;

    double headerHeight(NSInteger section) const;
    double sectionTop(NSInteger section) const;
    void makeHeaders();
    std::vector<NSIndexPath> pathsInSight() const;
    NSIndexPath nearestRow(double y, NSInteger section) const;
    void placeRows();
    void layoutRows();
    void layoutCell(UITableViewCell& cell);

    std::weak_ptr<UITableViewDataSource> source_;
    std::weak_ptr<UITableViewDelegate> delegate_;
    double rowHeight_ = 44;
    bool editing_ = false;
    std::vector<NSInteger> rows_;       // by section
    std::vector<std::string> headers_;  // by section
    std::vector<std::shared_ptr<UITableViewCell>> inSight_;

    /// A row that is being dragged.
    struct LiftedRow {
        NSIndexPath path;
        NSIndexPath target;  // where it would land now
        double grip;         // of the finger, below its top
        double y;            // of its top, in the content
    };
    std::optional<LiftedRow> lifted_;
};

}  // namespace gexlo
