// Rows of a table that is being edited.
#include <gtest/gtest.h>

#include "platform/views/table_view.h"
#include "platform/views/window.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

/// Three rows, of which the second may not go and the third may not move.
class Rows : public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger numberOfRowsInSection(UITableView&, NSInteger) override { return 3; }
    std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath) override {
        return std::make_shared<UITableViewCell>();
    }
    bool canEditRow(UITableView&, NSIndexPath path) override { return path.row != 1; }
    bool canMoveRow(UITableView&, NSIndexPath path) override { return path.row != 2; }
    void moveRow(UITableView&, NSIndexPath from, NSIndexPath to) override {
        told.insert(told.end(), {from.row, to.row});
    }
    void commitDelete(UITableView&, NSIndexPath path) override { told.push_back(-path.row); }
    void didSelectRow(UITableView&, NSIndexPath path) override { told.push_back(path.row); }

    std::vector<NSInteger> told;  ///< rows selected, those to be deleted as negative numbers
};

class TableEditing : public ::testing::Test {
protected:
    TableEditing() {
        window.addSubview(table);
        table->setDataSource(rows);
        table->setDelegate(rows);
        table->reloadData();
    }
    Phone phone;
    UIWindow& window = UIWindow::keyWindow();
    std::shared_ptr<Rows> rows = std::make_shared<Rows>();
    std::shared_ptr<UITableView> table = std::make_shared<UITableView>(CGRect{0, 100, 300, 400});
};

TEST_F(TableEditing, marks_stand_beside_the_content_and_take_its_touches) {
    const auto tap = [&](double x, NSInteger row) {
        const CGPoint point{x, 100 + table->rectForRow({0, row}).center().y};
        window.touchDown(point);
        window.touchUp(point);
    };
    const auto content = [&](NSInteger row) {
        return table->cellForRow({0, row})->contentView().frame();
    };

    tap(10, 2);
    EXPECT_EQ(rows->told, std::vector<NSInteger>{2});
    table->setEditing(true);
    for (const NSInteger row : {0, 1, 2}) {
        EXPECT_EQ(content(row).x > 0, row != 1) << row;
        EXPECT_EQ(content(row).maxX() < 300, row != 2) << row;
        EXPECT_EQ(content(row).x, table->cellForRow({0, row})->deleteMark().width);
    }
    tap(10, 2);
    tap(10, 1);
    tap(150, 2);
    EXPECT_EQ(rows->told, (std::vector<NSInteger>{2, -2, 1, 2}));
    table->setEditing(false);
    EXPECT_EQ(content(0).width, 300);
}

TEST_F(TableEditing, a_row_that_is_held_by_its_mark_goes_where_it_is_let_go) {
    const auto drag = [&](double fromY, double toY) {
        window.touchDown({290, fromY});
        window.touchMoved({200, (fromY + toY) / 2});
        window.touchMoved({200, toY});
    };
    const auto places = [&] {
        std::vector<double> tops;
        for (const NSInteger row : {0, 1, 2})
            tops.push_back(table->cellForRow({0, row})->frame().y);
        return tops;
    };
    const std::vector<double> still{0, 44, 88};

    drag(110, 180);
    EXPECT_EQ(places(), still) << "nothing is edited";
    window.touchCancel();

    table->setEditing(true);
    drag(110, 180);
    EXPECT_EQ(places(), (std::vector<double>{70, 0, 44})) << "the others make room";
    window.touchCancel();
    EXPECT_EQ(places(), still);
    drag(110, 180);
    window.touchUp({200, 180});
    EXPECT_EQ(rows->told, (std::vector<NSInteger>{0, 2}));
    drag(150, -500);
    window.touchUp({200, -500});
    EXPECT_EQ(rows->told, (std::vector<NSInteger>{0, 2, 1, 0})) << "no higher than the first";
    drag(200, 110);
    EXPECT_EQ(places(), still) << "the last one may not move";
    window.touchCancel();

    rows->told.clear();
    const auto first = table->cellForRow({0, 0});
    drag(110, 180);
    window.touchMoved({200, 112});
    window.touchUp({200, 112});
    EXPECT_TRUE(table->dragRow({0, 0}, {0, 0}));
    EXPECT_FALSE(table->dragRow({0, 2}, {0, 2}));
    EXPECT_TRUE(rows->told.empty()) << "back where it was";
    EXPECT_EQ(table->cellForRow({0, 0}), first) << "and nothing is asked for anew";
}

}  // namespace

}  // namespace gexlo::test
