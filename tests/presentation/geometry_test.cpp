// Every size of the grid: screens, days, periods, both orientations, and the image.
#include "presentation/grid/geometry.h"

#include <gtest/gtest.h>

#include <array>

#include "presentation/screen_facts.h"

namespace gexlo::test {

namespace {

/// Cell width and height, top axis, left axis, table width and height.
using Sizes = std::array<int, 6>;

Sizes sizesOf(const GridGeometry& grid) {
    return {grid.cellWidth,     grid.cellHeight, grid.topAxisHeight,
            grid.leftAxisWidth, grid.tableWidth, grid.tableHeight};
}

TEST(Geometry, a_week_of_nine_periods_fits_every_screen) {
    const struct {
        float width, height, bar;
        Sizes onTop, onLeft;
        std::array<float, 4> facts;  // height over a panel, schedule left, top and width
    } screens[] = {
        {320, 480, 20, {57, 36, 37, 36, 322, 325}, {44, 64, 40, 40, 397, 361}, {241, 20, 5, 280}},
        {320, 568, 20, {57, 46, 35, 36, 322, 415}, {44, 81, 43, 40, 397, 449}, {329, 20, 20, 280}},
        {375, 667, 20, {68, 57, 35, 36, 377, 514}, {52, 101, 42, 39, 469, 548}, {428, 20, 20, 335}},
        {414,
         736,
         20,
         {76, 65, 32, 35, 416, 586},
         {58, 115, 41, 36, 523, 617},
         {497, 37, 59.2F, 340}},
        {375, 812, 44, {68, 68, 33, 36, 377, 613}, {52, 120, 44, 39, 469, 645}, {525, 20, 20, 335}},
    };
    for (const auto& at : screens) {
        const ScreenFacts facts = screenFacts(at.width, at.height - at.bar, at.bar);
        EXPECT_EQ((std::array{facts.contentSmallHeight, facts.scheduleBaseViewLeftMargin,
                              facts.scheduleBaseViewTopMargin, facts.scheduleBaseViewWidth}),
                  at.facts);
        EXPECT_EQ(facts.scheduleBaseViewHeight, at.facts[0] - 2 * at.facts[2]);
        GridSettings settings{.numPeriods = 9,
                              .screenWidth = facts.screenWidth,
                              .contentFullHeight = facts.contentFullHeight};
        EXPECT_EQ(sizesOf(gridGeometry(settings)), at.onTop) << at.height;
        settings.daysOnLeft = true;
        EXPECT_EQ(sizesOf(gridGeometry(settings)), at.onLeft) << at.height;
    }
    EXPECT_FALSE(screenFacts(320, 480, 20).isTallerScreen) << "500 points in all";
    EXPECT_TRUE(screenFacts(320, 481, 20).isTallerScreen);
    EXPECT_EQ(screenFacts(380, 791, 20).scheduleBaseViewTopMargin, 20) << "not wide yet";
    EXPECT_EQ(screenFacts(380, 791, 20).bottomViewHeight, 55) << "811 points in all";
}

TEST(Geometry, sizes_change_at_the_borders_of_days_and_periods) {
    const struct {
        int days, periods, weeks;
        bool onLeft, halves;
        Sizes sizes;
        std::array<int, 4> image;  // cell and table
    } cases[] = {
        {5, 0, 1, false, false, {57, 65, 36, 36, 322, 1}, {58, 80, 329, 1}},
        {4, 4, 1, false, false, {71, 65, 36, 37, 322, 261}, {80, 80, 359, 321}},
        {5, 5, 1, false, false, {57, 65, 36, 36, 322, 326}, {58, 60, 329, 301}},
        {5, 6, 1, false, false, {57, 55, 31, 36, 322, 331}, {58, 60, 329, 361}},
        {6, 7, 1, false, false, {47, 47, 32, 39, 322, 330}, {50, 44, 339, 309}},
        {5, 10, 1, false, false, {57, 35, 31, 36, 322, 351}, {58, 44, 329, 441}},
        {5, 11, 1, false, true, {57, 30, 31, 36, 322, 331}, {58, 35, 329, 386}},
        {5, 12, 1, false, true, {57, 29, 37, 36, 322, 349}, {58, 35, 329, 421}},
        {8, 5, 1, false, false, {35, 65, 36, 41, 322, 326}, {50, 60, 439, 301}},
        {7, 5, 2, true, false, {57, 45, 45, 35, 286, 361}, {65, 40, 326, 317}},
        {5, 4, 1, true, false, {71, 64, 40, 36, 285, 361}, {65, 50, 261, 287}},
        {6, 6, 1, true, false, {47, 53, 42, 38, 283, 361}, {50, 40, 301, 277}},
        {5, 7, 1, true, true, {40, 64, 40, 40, 281, 361}, {50, 50, 351, 287}},
        {5, 8, 1, true, true, {39, 64, 40, 40, 313, 361}, {50, 50, 401, 287}},
        {4, 11, 2, true, false, {44, 80, 40, 40, 485, 361}, {40, 60, 441, 277}},
        {3, 10, 1, true, false, {44, 80, 40, 40, 441, 281}, {50, 60, 501, 217}},
        {3, 5, 2, true, false, {57, 46, 42, 35, 286, 181}, {65, 60, 326, 217}},
        {1, 5, 2, true, false, {57, 138, 40, 35, 286, 179}, {65, 60, 326, 97}},
    };
    for (const auto& at : cases) {
        SCOPED_TRACE(testing::Message() << at.days << " days, " << at.periods << " periods");
        // Of eight days, Sunday is the first and the last.
        const GridGeometry grid =
            gridGeometry({at.days == 8 ? 0 : 1, at.days == 8 ? 7 : at.days, at.periods, at.weeks,
                          at.onLeft, at.halves, /*screenWidth=*/320, /*contentFullHeight=*/361});
        EXPECT_EQ(sizesOf(grid), at.sizes);
        const auto [cellWidth, cellHeight, width, height] = at.image;
        EXPECT_EQ(sizesOf(imageGeometry(grid)),
                  (Sizes{cellWidth, cellHeight, 36, 38, width, height}));
    }
}

TEST(Geometry, a_range_of_days_wraps_over_the_weekend) {
    const struct {
        NSInteger first, last;
        std::string days;
    } ranges[] = {{6, 1, "601"}, {1, 0, "1234560"}, {1, 7, "1234560"},
                  {7, 2, "012"}, {7, 7, "0"},       {0, 7, "01234560"}};
    for (const auto& range : ranges) {
        const GridGeometry grid = gridGeometry({.firstDay = range.first, .lastDay = range.last});
        std::string days;
        for (int i = 0; i < grid.numDays; ++i) {
            days += std::to_string(grid.dayAt(i));
            EXPECT_EQ(grid.dayIndex(grid.dayAt(i)), i % 7) << range.days;
        }
        EXPECT_EQ(days, range.days);
    }
}

}  // namespace

}  // namespace gexlo::test
