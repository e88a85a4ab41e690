// Tables in the window, under a mouse that does what a finger would.
#include "desktop/window_fixture.h"
#include "platform/views/label.h"
#include "platform/views/table_view.h"
#include "platform/views/window.h"

namespace gexlo::test {
namespace {

class Names final : public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger numberOfRowsInSection(UITableView&, NSInteger) override { return std::ssize(names); }
    std::shared_ptr<UITableViewCell> cellForRow(UITableView&, NSIndexPath path) override {
        auto cell = std::make_shared<UITableViewCell>();
        cell->setAccessory(accessory);
        cell->setBackgroundColor(UIColor::whiteColor());
        cell->contentView().add<UILabel>(CGRect{9, 0, 90, 44}).setText(at(path.row));
        return cell;
    }
    bool canEditRow(UITableView&, NSIndexPath) override { return true; }
    bool canMoveRow(UITableView&, NSIndexPath) override { return true; }
    void commitDelete(UITableView& table, NSIndexPath path) override {
        names.erase(names.begin() + path.row);
        table.deleteRow(path);
    }
    void moveRow(UITableView&, NSIndexPath from, NSIndexPath to) override {
        std::swap(at(from.row), at(to.row));
    }
    void didSelectRow(UITableView&, NSIndexPath path) override { told += at(path.row); }
    void accessoryButtonTapped(UITableView&, NSIndexPath path) override {
        told += "(" + at(path.row) + ")";
    }
    void scrollViewWillBeginDragging(UITableView&) override { told += "~"; }
    std::string& at(NSInteger row) { return names[static_cast<std::size_t>(row)]; }

    std::vector<std::string> names{"a", "b", "c"};
    UITableViewCellAccessory accessory = UITableViewCellAccessory::none;
    std::string told;
};

class TableInAWindow : public InAWindow {
protected:
    TableInAWindow() {
        UIWindow::keyWindow().setBackgroundColor(UIColor::whiteColor());
        table.setDataSource(names);
        table.setDelegate(names);
        table.reloadData();
        showActive();
        atRest();
    }
    static int redPixels(const QImage& picture) {
        int count = 0;
        for (int at = 0; at < picture.width() * picture.height(); ++at) {
            const QColor color = picture.pixelColor(at % picture.width(), at / picture.width());
            count += color.red() > 200 && color.green() < 120 && color.blue() < 120;
        }
        return count;
    }
    std::string listed() const {
        std::string all;
        for (const std::string& name : names->names)
            all += name;
        return all;
    }

    std::shared_ptr<Names> names = std::make_shared<Names>();
    UITableView& table = UIWindow::keyWindow().add<UITableView>(CGRect{0, 100, 375, 400});
};

TEST_F(TableInAWindow, a_drag_beyond_the_top_refreshes_it) {
    const auto control = std::make_shared<UIRefreshControl>();
    int refreshed = 0;
    control->addAction(UIControlEvent::valueChanged, [&] { ++refreshed; });
    control->setTintColor({1, 0, 0, 1});
    table.setRefreshControl(control);
    drag({100, 150}, {100, 290});
    EXPECT_EQ(refreshed, 0) << "not far enough";
    EXPECT_EQ(table.contentOffset().y, 0);
    drag({100, 150}, {100, 310});
    EXPECT_EQ(refreshed, 1);
    EXPECT_EQ(table.contentOffset().y, -60) << "it rests below the sign";
    EXPECT_EQ(names->told, "~~") << "and no row is selected";
    EXPECT_GT(redPixels(window.grabWindow()), 20);
    control->endRefreshing();
    atRest();
    EXPECT_EQ(table.contentOffset().y, 0);
    EXPECT_EQ(redPixels(window.grabWindow()), 0);
}

TEST_F(TableInAWindow, rows_are_swiped_moved_and_tapped) {
    drag({200, 122}, {80, 122});
    click({350, 122});
    EXPECT_EQ(listed(), "bc");
    EXPECT_EQ(names->told, "");
    names->accessory = UITableViewCellAccessory::detailButton;
    table.reloadData();
    click({200, 166});
    click({350, 166});
    EXPECT_EQ(names->told, "c(c)");
    table.setEditing(true);
    atRest();
    drag({350, 166}, {200, 110});
    EXPECT_EQ(listed(), "cb");
    EXPECT_EQ(table.cellForRow({0, 0})->frame().y, 0);
    click({20, 122});
    EXPECT_EQ(listed(), "b");
}

}  // namespace
}  // namespace gexlo::test
