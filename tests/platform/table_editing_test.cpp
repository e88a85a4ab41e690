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
    void commitDelete(UITableView&, NSIndexPath path) override { told.push_back(-path.row); }
    void didSelectRow(UITableView&, NSIndexPath path) override { told.push_back(path.row); }

    std::vector<NSInteger> told;  ///< rows selected, those to be deleted as negative numbers
};

TEST(TableEditing, marks_stand_beside_the_content_and_take_its_touches) {
    Phone phone;
    const auto rows = std::make_shared<Rows>();
    const auto table = std::make_shared<UITableView>(CGRect{0, 100, 300, 400});
    UIWindow& window = UIWindow::keyWindow();
    window.addSubview(table);
    table->setDataSource(rows);
    table->setDelegate(rows);
    table->reloadData();
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

}  // namespace

}  // namespace gexlo::test
