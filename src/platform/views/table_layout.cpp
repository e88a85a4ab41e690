#include "platform/views/table_layout.h"

#include <algorithm>
#include <span>
#include <utility>

namespace gexlo {

NSIndexPath afterInsertion(NSIndexPath path, NSIndexPath inserted) {
    if (path.section == inserted.section && path.row >= inserted.row) ++path.row;
    return path;
}

NSIndexPath afterRemoval(NSIndexPath path, NSIndexPath removed) {
    if (path.section == removed.section && path.row > removed.row) --path.row;
    return path;
}

NSIndexPath afterMove(NSIndexPath path, NSIndexPath from, NSIndexPath to) {
    return path == from ? to : afterInsertion(afterRemoval(path, from), to);
}

TableLayout::TableLayout(std::vector<TableSection> sections) {
    sections_.reserve(sections.size());
    for (TableSection& measured : sections) {
        Section& added = sections_.emplace_back();
        added.heights = std::move(measured.rowHeights);
        for (double& height : added.heights)
            height = std::max(0.0, height);
        added.edges = {std::max(0.0, measured.headerHeight)};
        added.measure(0);
    }
    stack(0);
}

/// The edges from that row's top on.
void TableLayout::Section::measure(std::size_t from) {
    edges.resize(heights.size() + 1);
    for (std::size_t row = from; row < heights.size(); ++row)
        edges[row + 1] = edges[row] + heights[row];
}

/// The sections from that one on, below those above.
void TableLayout::stack(NSInteger from) {
    for (NSInteger i = from; i < sections(); ++i)
        section(i).top = i == 0 ? 0 : section(i - 1).bottom();
}

NSInteger TableLayout::rows(NSInteger index) const {
    if (index < 0 || index >= sections()) return 0;
    return static_cast<NSInteger>(section(index).heights.size());
}

bool TableLayout::hasRow(NSIndexPath path) const {
    return path.row >= 0 && path.row < rows(path.section);
}

double TableLayout::height() const {
    return sections_.empty() ? 0 : sections_.back().bottom();
}

TableSpan TableLayout::span(NSIndexPath path) const {
    const Section& within = section(path.section);
    if (path.row == kHeaderRow) return {within.top, within.edges.front()};
    const auto row = static_cast<std::size_t>(path.row);
    return {within.top + within.edges[row], within.heights[row]};
}

std::vector<NSIndexPath> TableLayout::between(double top, double bottom) const {
    std::vector<NSIndexPath> paths;
    const auto isAbove = [&](const Section& section) { return section.bottom() <= top; };
    for (auto at = std::ranges::partition_point(sections_, isAbove);
         at != sections_.end() && at->top < bottom; ++at) {
        const auto bottoms = std::span(at->edges).subspan(1);
        const NSInteger number = at - sections_.begin();
        NSInteger row = std::ranges::upper_bound(bottoms, top - at->top) - bottoms.begin();
        if (row == 0) row = kHeaderRow;
        for (; row < rows(number) && span({number, row}).top < bottom; ++row) {
            const TableSpan place = span({number, row});
            if (place.height > 0 && place.bottom() > top) paths.push_back({number, row});
        }
    }
    return paths;
}

NSIndexPath TableLayout::nearestRow(double y, NSInteger index) const {
    const auto& edges = section(index).edges;
    // The last row holds all that lies below it.
    const auto bottoms = std::span(edges).subspan(1, edges.size() - 2);
    return {index, std::ranges::upper_bound(bottoms, y - section(index).top) - bottoms.begin()};
}

void TableLayout::insertRow(NSIndexPath path, double height) {
    Section& within = section(path.section);
    within.heights.insert(within.heights.begin() + path.row, std::max(0.0, height));
    within.measure(static_cast<std::size_t>(path.row));
    stack(path.section + 1);
}

void TableLayout::removeRow(NSIndexPath path) {
    Section& within = section(path.section);
    within.heights.erase(within.heights.begin() + path.row);
    within.measure(static_cast<std::size_t>(path.row));
    stack(path.section + 1);
}

void TableLayout::moveRow(NSIndexPath from, NSIndexPath to) {
    const double height = section(from.section).heights[static_cast<std::size_t>(from.row)];
    removeRow(from);
    insertRow(to, height);
}

}  // namespace gexlo
