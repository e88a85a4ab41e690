// The arithmetic of a table, against walking through all of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/views/table_layout.h"

namespace gexlo::test {

namespace {

/// The same by adding up from the top each time.
class Walk {
public:
    std::vector<TableSection> sections;

    std::vector<std::pair<NSIndexPath, TableSpan>> all() const {
        std::vector<std::pair<NSIndexPath, TableSpan>> all;
        double y = 0;
        for (NSInteger section = 0; section < std::ssize(sections); ++section) {
            NSInteger row = kHeaderRow;
            const auto add = [&](double height) {
                all.push_back({{section, row++}, {y, std::max(0.0, height)}});
                y = all.back().second.bottom();
            };
            const TableSection& measured = sections[static_cast<std::size_t>(section)];
            add(measured.headerHeight);
            std::ranges::for_each(measured.rowHeights, add);
        }
        return all;
    }
    std::vector<NSIndexPath> between(double top, double bottom) const {
        std::vector<NSIndexPath> paths;
        for (const auto& [path, span] : all()) {
            if (span.height > 0 && span.top < bottom && span.bottom() > top) paths.push_back(path);
        }
        return paths;
    }
    NSIndexPath nearest(double y, NSInteger section) const {
        NSIndexPath nearest{section, 0};
        for (const auto& [path, span] : all()) {
            if (path.section != section || path.row == kHeaderRow) continue;
            nearest = path;
            if (span.bottom() > y) break;
        }
        return nearest;
    }
};

TEST(TableLayout, agrees_with_a_walk_through_all_rows_after_any_change) {
    std::mt19937 random(7);
    const auto upTo = [&](NSInteger most) {
        return std::uniform_int_distribution<NSInteger>(0, most)(random);
    };
    // Quarters of a point, whose sums are exact; some are nothing or less.
    const auto height = [&] {
        return static_cast<double>(upTo(9) == 0 ? -upTo(4) : upTo(300)) / 4;
    };
    for (int table = 0; table < 60; ++table) {
        Walk walk;
        walk.sections.resize(static_cast<std::size_t>(upTo(5)));
        for (TableSection& section : walk.sections) {
            section.headerHeight = upTo(1) ? height() : 0;
            section.rowHeights.resize(static_cast<std::size_t>(upTo(1) * upTo(12)));
            std::ranges::generate(section.rowHeights, height);
        }
        TableLayout layout(walk.sections);
        for (int change = 0; change < 12; ++change) {
            const auto all = walk.all();
            ASSERT_EQ(layout.height(), all.empty() ? 0 : all.back().second.bottom());
            for (const auto& [path, span] : all) {
                ASSERT_EQ(layout.span(path), span) << path.section << "." << path.row;
                ASSERT_EQ(layout.hasRow(path), path.row != kHeaderRow);
            }
            for (int window = 0; window < 10; ++window) {
                const double top = static_cast<double>(upTo(4000) - 400) / 4;
                const double bottom = top + static_cast<double>(upTo(900)) / 4;
                ASSERT_EQ(layout.between(top, bottom), walk.between(top, bottom));
                for (NSInteger i = 0; i < layout.sections(); ++i) {
                    if (layout.rows(i) == 0) continue;
                    ASSERT_EQ(layout.nearestRow(top, i), walk.nearest(top, i));
                }
            }
            if (walk.sections.empty()) break;
            const auto rowsOf = [&](NSInteger section) -> std::vector<double>& {
                return walk.sections[static_cast<std::size_t>(section)].rowHeights;
            };
            const NSInteger last = layout.sections() - 1;
            NSIndexPath from{upTo(last), 0};
            const bool removes = upTo(1) && layout.rows(from.section) > 0;
            double moved = height();
            if (removes) {
                from.row = upTo(layout.rows(from.section) - 1);
                moved = rowsOf(from.section)[static_cast<std::size_t>(from.row)];
                rowsOf(from.section).erase(rowsOf(from.section).begin() + from.row);
            }
            NSIndexPath to{upTo(last), 0};
            const bool inserts = !removes || upTo(1);
            if (inserts) {
                to.row = upTo(std::ssize(rowsOf(to.section)));
                rowsOf(to.section).insert(rowsOf(to.section).begin() + to.row, moved);
            }
            if (removes && inserts) {
                layout.moveRow(from, to);
            } else if (removes) {
                layout.removeRow(from);
            } else {
                layout.insertRow(to, moved);
            }
        }
    }
}

TEST(TableLayout, rows_are_found_again_after_a_change) {
    // Rows as numbers, moved about in lists: each must stand where its place says.
    std::mt19937 random(11);
    const auto below = [&](std::size_t count) {
        return static_cast<NSInteger>(random() % static_cast<unsigned>(count));
    };
    for (int round = 0; round < 500; ++round) {
        std::vector<std::vector<int>> former{{0, 1, 2, 3}, {4, 5, 6}};
        auto lists = former;
        const NSIndexPath from{below(2), below(3)};
        auto& source = lists[static_cast<std::size_t>(from.section)];
        const int moved = source[static_cast<std::size_t>(from.row)];
        source.erase(source.begin() + from.row);
        const NSInteger section = below(2);
        auto& target = lists[static_cast<std::size_t>(section)];
        const NSIndexPath to{section, below(target.size() + 1)};
        target.insert(target.begin() + to.row, moved);
        for (NSInteger i = 0; i < 2; ++i) {
            for (NSInteger row = 0; row < std::ssize(former[static_cast<std::size_t>(i)]); ++row) {
                const NSIndexPath place = afterMove({i, row}, from, to);
                EXPECT_EQ(lists.at(static_cast<std::size_t>(place.section))
                              .at(static_cast<std::size_t>(place.row)),
                          former[static_cast<std::size_t>(i)][static_cast<std::size_t>(row)]);
            }
        }
    }
}

}  // namespace

}  // namespace gexlo::test
