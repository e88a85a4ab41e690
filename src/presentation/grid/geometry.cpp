#include "presentation/grid/geometry.h"

#include <algorithm>

namespace gexlo {

namespace {

/// A stored day, with 7 for Sunday kept; what is no day is read as one.
int sane(NSInteger day) {
    return static_cast<int>(day >= 0 && day <= 7 ? day : ((day % 7) + 7) % 7);
}

void layOutDaysOnTop(GridGeometry& grid, bool halves) {
    const int days = grid.numDays;
    const int periods = grid.numPeriods;
    const int height = grid.fullHeight();
    const int width = static_cast<int>(grid.screenWidth);

    // What the division leaves widens the axis, never a cell.
    grid.cellWidth = (width - 33) / days;
    grid.leftAxisWidth = (width - 33) - grid.cellWidth * days + 34;
    grid.tableWidth = width + 2;

    const int limit = halves ? 12 : 10;
    if (periods <= 5) {
        grid.cellHeight = (height - 35) / 5;
        grid.topAxisHeight = (height - 35) - grid.cellHeight * 5 + 35;
    } else if (periods < limit) {
        grid.cellHeight = (height - 29) / periods;
        grid.topAxisHeight = (height - 29) - grid.cellHeight * periods + 29;
    } else {
        grid.cellHeight = (height - 29) / limit + 2;
        grid.topAxisHeight = (height - 29) - ((height - 29) / limit) * limit + 29;
    }
    // Without the top axis, while the width is with the left one: the day strip lies outside
    // the grid view and the period strip inside it.
    grid.tableHeight = grid.cellHeight * periods + 1;
}

void layOutDaysOnLeft(GridGeometry& grid, bool halves) {
    const int days = grid.numDays;
    const int periods = grid.numPeriods;
    const int height = grid.fullHeight();

    int remainder = 0;
    if (days >= 5) {
        grid.cellHeight = (height - 41) / days;
        remainder = (height - 41) - grid.cellHeight * days;
    } else if (days == 4 || grid.numWeeks != 2) {
        grid.cellHeight = (height - 41) / 4;
        remainder = (height - 41) % 4;
    } else {
        // The remainder is taken from two points more than are divided, so that the two
        // weeks of a short week stack on one page.
        const int half = height / 2;
        grid.cellHeight = (half - 42) / days;
        remainder = (half - 40) - ((half - 40) / days) * days;
    }
    grid.topAxisHeight = remainder + 40;
    grid.tableHeight = grid.cellHeight * days + grid.topAxisHeight + 1;

    const int width = static_cast<int>(grid.screenWidth - 35);
    const int limit = halves ? 8 : 7;
    if (periods <= 4) {
        grid.cellWidth = width / 4;
        grid.leftAxisWidth = width % 4 + 35;
    } else if (periods < limit) {
        grid.cellWidth = width / periods;
        grid.leftAxisWidth = width - grid.cellWidth * periods + 35;
    } else {
        grid.cellWidth = width / limit + 4;
        grid.leftAxisWidth = width - (width / limit) * limit + 35;
    }
    grid.tableWidth = grid.cellWidth * periods + 1;
}

/// The first size whose count is reached, counts descending.
struct SizeFrom {
    int count;
    int size;
};
template <std::size_t N>
int sizeFor(const SizeFrom (&sizes)[N], int count) {
    for (const SizeFrom& entry : sizes) {
        if (count >= entry.count) return entry.size;
    }
    return sizes[N - 1].size;
}

}  // namespace

int numDays(NSInteger firstDay, NSInteger lastDay) {
    const int difference = sane(lastDay) - sane(firstDay);
    return difference >= 0 ? difference + 1 : difference + 8;
}

GridGeometry gridGeometry(const GridSettings& settings) {
    GridGeometry grid;
    grid.firstDay = sane(settings.firstDay);
    grid.numDays = numDays(settings.firstDay, settings.lastDay);
    grid.numPeriods = static_cast<int>(settings.numPeriods);
    grid.numWeeks = static_cast<int>(std::clamp<NSInteger>(settings.numWeeks, 0, 99));
    grid.daysOnLeft = settings.daysOnLeft;
    grid.screenWidth = settings.screenWidth;
    grid.contentFullHeight = settings.contentFullHeight;
    if (settings.daysOnLeft) {
        layOutDaysOnLeft(grid, settings.useHalfPeriods);
    } else {
        layOutDaysOnTop(grid, settings.useHalfPeriods);
    }
    return grid;
}

GridGeometry imageGeometry(const GridGeometry& onScreen) {
    static constexpr SizeFrom kRowHeights[] = {{6, 40}, {5, 50}, {0, 60}};     // by days
    static constexpr SizeFrom kColumnWidths[] = {{11, 40}, {6, 50}, {0, 65}};  // by periods
    static constexpr SizeFrom kDayWidths[] = {{6, 50}, {5, 58}, {0, 80}};      // by days
    static constexpr SizeFrom kPeriodHeights[] = {{11, 35}, {7, 44}, {5, 60}, {0, 80}};

    GridGeometry grid = onScreen;
    grid.topAxisHeight = 36;
    grid.leftAxisWidth = 38;
    if (grid.daysOnLeft) {
        grid.cellHeight = sizeFor(kRowHeights, grid.numDays);
        grid.cellWidth = sizeFor(kColumnWidths, grid.numPeriods);
        grid.tableWidth = 1 + grid.cellWidth * grid.numPeriods;
        grid.tableHeight = grid.cellHeight * grid.numDays + 37;
    } else {
        grid.cellWidth = sizeFor(kDayWidths, grid.numDays);
        grid.cellHeight = sizeFor(kPeriodHeights, grid.numPeriods);
        grid.tableWidth = grid.cellWidth * grid.numDays + 39;
        grid.tableHeight = 1 + grid.cellHeight * grid.numPeriods;
    }
    return grid;
}

int GridGeometry::dayIndex(int day) const {
    const int distance = day - firstDay;
    return distance < 0 ? distance + 7 : distance;
}

namespace {

/// From integers, as all of these are.
CGRect rect(int x, int y, int width, int height) {
    return {static_cast<double>(x), static_cast<double>(y), static_cast<double>(width),
            static_cast<double>(height)};
}

}  // namespace

CGRect GridGeometry::cellBaseRect() const {
    return daysOnLeft ? rect(0, topAxisHeight, tableWidth, tableHeight - topAxisHeight)
                      : rect(leftAxisWidth, 0, tableWidth - leftAxisWidth, tableHeight);
}

CGRect GridGeometry::cellRect(int index, int period) const {
    const int column = daysOnLeft ? period : index;
    const int row = daysOnLeft ? index : period;
    return rect(cellWidth * column, cellHeight * row, cellWidth - 1, cellHeight - 1);
}

CGRect GridGeometry::borderRect() const {
    return daysOnLeft ? rect(0, topAxisHeight, tableWidth - 2, tableHeight - 2 - topAxisHeight)
                      : rect(leftAxisWidth, 0, tableWidth - 2 - leftAxisWidth, tableHeight - 2);
}

CGRect GridGeometry::dayLineRect(int number) const {
    const int thickness = number == numDays ? 2 : 1;
    return daysOnLeft ? rect(0, cellHeight * number - 1, tableWidth, thickness)
                      : rect(cellWidth * number - 1, 0, thickness, tableHeight);
}

CGRect GridGeometry::periodSegmentRect(int number, int period) const {
    const int thickness = period == numPeriods ? 2 : 1;
    return daysOnLeft
               ? rect(cellWidth * period - 1, cellHeight * (number - 1), thickness, cellHeight - 1)
               : rect(cellWidth * (number - 1), cellHeight * period - 1, cellWidth - 1, thickness);
}

CGRect GridGeometry::periodStripRect() const {
    return daysOnLeft ? rect(0, 0, tableWidth, topAxisHeight)
                      : rect(0, 0, leftAxisWidth, tableHeight);
}

CGRect GridGeometry::periodCellRect(int period) const {
    return daysOnLeft ? rect(cellWidth * period, 2, cellWidth - 1, topAxisHeight - 4)
                      : rect(2, cellHeight * period, leftAxisWidth - 4, cellHeight - 1);
}

CGRect GridGeometry::dayCellRect(int index) const {
    return daysOnLeft ? rect(2, cellHeight * index, leftAxisWidth - 4, cellHeight - 1)
                      : rect(cellWidth * index, 2, cellWidth - 1, topAxisHeight - 4);
}

CGRect GridGeometry::gridRect(int week) const {
    int x = daysOnLeft ? 0 : 4;
    int y = daysOnLeft ? 5 : 0;
    if (week == 1) {
        if (!daysOnLeft) {
            x = static_cast<int>(screenWidth) + 9;
        } else {
            y = weeksShareAPage() ? fullHeight() - tableHeight + 5 : fullHeight() + 10;
        }
    }
    return rect(x, y, tableWidth, tableHeight);
}

CGRect GridGeometry::dayStripRect(int week) const {
    const double full = contentFullHeight;
    const double width = screenWidth;
    if (!daysOnLeft) {
        CGRect strip = rect(leftAxisWidth + 4, 5, tableWidth - leftAxisWidth, topAxisHeight);
        if (week == 1) strip.x = width + leftAxisWidth + 9;
        return strip;
    }
    CGRect strip = rect(5, topAxisHeight + 5, leftAxisWidth, tableHeight - topAxisHeight);
    if (week == 1) {
        strip.y = full + topAxisHeight + (weeksShareAPage() ? 5 - tableHeight : 10);
    }
    return strip;
}

CGRect GridGeometry::cornerRect() const {
    return rect(daysOnLeft ? 5 : 4, 5, leftAxisWidth, topAxisHeight);
}

CGRect GridGeometry::secondCornerRect() const {
    CGRect corner = rect(5, 5, leftAxisWidth, topAxisHeight);
    if (!daysOnLeft) {
        corner.x = static_cast<double>(screenWidth) + 9;
    } else {
        corner.y =
            static_cast<double>(contentFullHeight) + (weeksShareAPage() ? 5 - tableHeight : 10);
    }
    return corner;
}

CGRect GridGeometry::mainScrollRect() const {
    return {-5, -5, static_cast<double>(screenWidth) + 7,
            static_cast<double>(contentFullHeight) + 6};
}

CGSize GridGeometry::mainContentSize() const {
    // Does not follow the screen, and need not: nothing scrolls sideways there.
    constexpr double fixedWidth = 325;
    if (!daysOnLeft) return {(static_cast<double>(screenWidth) + 6) * numWeeks, pageHeight()};
    return {fixedWidth, weeksShareAPage() ? pageHeight() : pageHeight() * numWeeks};
}

CGRect GridGeometry::subScrollRect() const {
    const double width = screenWidth;
    if (!daysOnLeft) {
        return {0, static_cast<double>(topAxisHeight) + 5, (width + 6) * numWeeks,
                static_cast<double>(contentFullHeight) - topAxisHeight};
    }
    return {static_cast<double>(leftAxisWidth) + 5, 0, width - leftAxisWidth,
            mainContentSize().height};
}

CGSize GridGeometry::subContentSize() const {
    if (!daysOnLeft) {
        return {(static_cast<double>(screenWidth) + 6) * numWeeks,
                static_cast<double>(tableHeight - 1)};
    }
    return {static_cast<double>(tableWidth), mainContentSize().height};
}

}  // namespace gexlo
