// Every rectangle of the grid, as arithmetic on integers: points, divisions truncate.
#pragma once

#include "platform/views/geometry.h"
#include "platform/foundation/types.h"

namespace gexlo {

/// What the layout of a timetable depends on.
struct GridSettings {
    NSInteger firstDay = 1;  ///< 0 or 7 Sunday to 6 Saturday
    NSInteger lastDay = 5;
    NSInteger numPeriods = 0;  ///< rows of the period list, half periods and breaks counted
    NSInteger numWeeks = 1;
    bool daysOnLeft = false;
    bool useHalfPeriods = false;
    float screenWidth = 0;
    float contentFullHeight = 0;
};

/// A range may wrap over the end of the week. At least 1, at most 8: a range from 0 to 7 shows
/// Sunday twice.
int numDays(NSInteger firstDay, NSInteger lastDay);

/// The sizes that follow from the settings, and the rectangles that follow from these. With
/// days on top days are columns and periods rows, with days on the left the other way round.
struct GridGeometry {
    int firstDay = 1;
    int numDays = 5;
    int numPeriods = 0;
    int numWeeks = 2;
    bool daysOnLeft = false;
    float screenWidth = 0;
    float contentFullHeight = 0;

    int cellWidth = 56;
    int cellHeight = 32;
    int tableWidth = 310;
    int tableHeight = 350;
    int topAxisHeight = 30;
    int leftAxisWidth = 35;

    int dayIndex(int day) const;  ///< place of a weekday in the grid
    int dayAt(int index) const { return (firstDay + index) % 7; }
    /// Both weeks of a short week with days on the left lie on one page.
    bool weeksShareAPage() const { return daysOnLeft && numDays < 4; }
    int fullHeight() const { return static_cast<int>(contentFullHeight); }
    /// Height of a page of the main scroll view, before the margin that it is drawn with.
    double pageHeight() const { return static_cast<double>(contentFullHeight) + 5; }

    // Of a week's grid, in its own coordinates:
    CGRect cellBaseRect() const;
    CGRect cellRect(int index, int period) const;  ///< in those of the cell base
    CGRect borderRect() const;
    CGRect dayLineRect(int number) const;                    ///< number from 1
    CGRect periodSegmentRect(int number, int period) const;  ///< both from 1
    CGRect periodStripRect() const;
    CGRect periodCellRect(int period) const;  ///< in those of the strip

    // Of the day strips and corners, in those of the main scroll view:
    CGRect gridRect(int week) const;  ///< in those of the sub scroll view
    CGRect dayStripRect(int week) const;
    CGRect dayCellRect(int index) const;  ///< in those of the strip
    CGRect cornerRect() const;            ///< of the box, or the button of week 0
    CGRect secondCornerRect() const;      ///< of the button of week 1

    CGRect mainScrollRect() const;
    CGSize mainContentSize() const;
    CGRect subScrollRect() const;
    CGSize subContentSize() const;
};

GridGeometry gridGeometry(const GridSettings& settings);

/// Fixed sizes for the grid as an image, whatever the screen.
GridGeometry imageGeometry(const GridGeometry& onScreen);

}  // namespace gexlo
