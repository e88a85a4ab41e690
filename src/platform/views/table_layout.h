// Where the headers and rows of a table stand, one below the other: arithmetic without views.
#pragma once

#include <compare>
#include <vector>

#include "platform/foundation/types.h"

namespace gexlo {

struct NSIndexPath {
    NSInteger section = 0;
    NSInteger row = 0;
    auto operator<=>(const NSIndexPath&) const = default;
};

/// The header of a section stands in its order as the row before the first.
constexpr NSInteger kHeaderRow = -1;

// Where a row stands after a row has come, gone or moved.
NSIndexPath afterInsertion(NSIndexPath path, NSIndexPath inserted);
NSIndexPath afterRemoval(NSIndexPath path, NSIndexPath removed);
NSIndexPath afterMove(NSIndexPath path, NSIndexPath from, NSIndexPath to);

/// What a section measures; a height below 0 counts as 0.
struct TableSection {
    double headerHeight = 0;
    std::vector<double> rowHeights;
};

/// Where something stands in the height of the content.
struct TableSpan {
    double top = 0;
    double height = 0;
    double bottom() const { return top + height; }
    bool operator==(const TableSpan&) const = default;
};

class TableLayout {
public:
    TableLayout() = default;
    explicit TableLayout(std::vector<TableSection> sections);

    NSInteger sections() const { return static_cast<NSInteger>(sections_.size()); }
    /// 0 for a section that is none.
    NSInteger rows(NSInteger section) const;
    bool hasRow(NSIndexPath path) const;
    double height() const;

    /// Of a row, or with `kHeaderRow` of a header, that is there.
    TableSpan span(NSIndexPath path) const;
    /// The headers and rows that have a part between two heights, from top to bottom.
    std::vector<NSIndexPath> between(double top, double bottom) const;
    /// The row of a section that holds a height, or comes nearest to it; the section has rows.
    NSIndexPath nearestRow(double y, NSInteger section) const;

    // For a place that is there; each costs the rows of the sections it touches.
    void insertRow(NSIndexPath path, double height);
    void removeRow(NSIndexPath path);
    void moveRow(NSIndexPath from, NSIndexPath to);

private:
    struct Section {
        std::vector<double> heights;
        // Of the rows, below the section's top: the header ends at the first, the last row at
        // the last.
        std::vector<double> edges;
        double top = 0;

        double bottom() const { return top + edges.back(); }
        void measure(std::size_t from);
    };

    Section& section(NSInteger index) { return sections_[static_cast<std::size_t>(index)]; }
    const Section& section(NSInteger index) const {
        return sections_[static_cast<std::size_t>(index)];
    }
    void stack(NSInteger from);

    std::vector<Section> sections_;
};

}  // namespace gexlo
