// Tables that change: row by row, and by those whom they are just asking or telling something.
#include <gtest/gtest.h>

#include <functional>

#include "platform/views/label.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

/// A list of numbers, each in a field of its row and as high as the number says. Its hooks are
/// called when it is told of something.
class Numbers : public UITableViewDataSource,
                public UITableViewDelegate,
                public UITextInputDelegate {
public:
    NSInteger numberOfRowsInSection(UITableView&, NSInteger) override { return std::ssize(list); }
    double heightForRow(UITableView&, NSIndexPath path) override {
        ++measured;
        return at(path);
    }
    double heightForHeader(UITableView&, NSInteger) override { return headerHeight; }
    std::shared_ptr<UIView> viewForHeader(UITableView&, NSInteger) override {
        return std::make_shared<UIView>();
    }
    std::shared_ptr<UITableViewCell> cellForRow(UITableView& table, NSIndexPath path) override {
        auto cell = table.dequeueReusableCell("number");
        if (!cell) {
            ++made;
            cell = std::make_shared<UITableViewCell>("number");
            cell->contentView().add<UITextField>(CGRect{0, 0, 100, 40}).setDelegate(self);
        }
        fieldOf(*cell).setText(std::to_string(at(path)));
        return cell;
    }
    bool canEditRow(UITableView&, NSIndexPath) override { return true; }
    bool canMoveRow(UITableView&, NSIndexPath) override { return true; }
    void moveRow(UITableView&, NSIndexPath from, NSIndexPath to) override {
        const int moved = at(from);
        list.erase(list.begin() + from.row);
        list.insert(list.begin() + to.row, moved);
    }
    void commitDelete(UITableView& table, NSIndexPath path) override {
        list.erase(list.begin() + path.row);
        table.deleteRow(path);
    }
    void willDisplayRow(UITableView&, UITableViewCell&, NSIndexPath path) override {
        displayed.push_back(path.row);
        if (willDisplay) std::exchange(willDisplay, nullptr)();
    }
    void didSelectRow(UITableView&, NSIndexPath) override { selected(); }
    void didEndEditing(UITextInput&) override { left(); }

    static UITextInput& fieldOf(UITableViewCell& cell) {
        return static_cast<UITextInput&>(*cell.contentView().subviews()[0]);
    }
    int& at(NSIndexPath path) { return list[static_cast<std::size_t>(path.row)]; }

    std::vector<int> list;
    double headerHeight = 20;
    int measured = 0;
    int made = 0;
    std::vector<NSInteger> displayed;
    std::weak_ptr<Numbers> self;
    std::function<void()> willDisplay;
    std::function<void()> selected = [] {};
    std::function<void()> left = [] {};
};

class TableChanges : public ::testing::Test {
protected:
    TableChanges() {
        window.addSubview(table);
        numbers->self = numbers;
        table->setDataSource(numbers);
        table->setDelegate(numbers);
    }
    void show(std::vector<int> list) {
        numbers->list = std::move(list);
        table->reloadData();
    }
    UITextInput& field(NSInteger row) { return Numbers::fieldOf(*table->cellForRow({0, row})); }
    /// What a person sees of it, from top to bottom, as "number@top"; and that it agrees with
    /// the list, and with where the table says its rows are.
    std::string seen() {
        std::string seen;
        std::vector<std::pair<double, std::string>> rows;
        for (const auto& view : table->subviews()) {
            auto* cell = dynamic_cast<UITableViewCell*>(view.get());
            if (!cell || cell->visibleRect().height <= 0) continue;
            rows.emplace_back(cell->frame().y, Numbers::fieldOf(*cell).text());
        }
        EXPECT_TRUE(std::ranges::is_sorted(rows)) << "they lie in the tree in their order";
        for (const auto& [top, text] : rows)
            seen += text + "@" + std::to_string(static_cast<int>(top)) + " ";
        double top = numbers->headerHeight;
        EXPECT_EQ(table->numberOfRowsInSection(0), std::ssize(numbers->list));
        for (NSInteger row = 0; row < table->numberOfRowsInSection(0); ++row) {
            const CGRect place = table->rectForRow({0, row});
            EXPECT_EQ(place, (CGRect{0, top, 300, 1.0 * numbers->at({0, row})})) << row;
            EXPECT_EQ(field(row).text(), std::to_string(numbers->at({0, row})));
            top = place.maxY();
        }
        EXPECT_EQ(table->contentSize(), (CGSize{300, top}));
        return seen;
    }

    Phone phone;
    UIWindow& window = UIWindow::keyWindow();
    std::shared_ptr<Numbers> numbers = std::make_shared<Numbers>();
    std::shared_ptr<UITableView> table = std::make_shared<UITableView>(CGRect{0, 100, 300, 200});
};

TEST_F(TableChanges, ten_thousand_rows_are_measured_once_and_made_as_they_come_into_sight) {
    std::vector<int> many(10'000);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = 40 + static_cast<int>(i % 3) * 10;
    show(many);
    EXPECT_EQ(numbers->measured, 10'000);
    std::size_t most = 0;
    for (double y = 0; y < table->contentSize().height; y += 2'345) {
        table->dragTo({0, y});
        most = std::max(most, table->subviews().size());
    }
    table->scrollToRow({0, 9'999});
    EXPECT_LE(most, 7U) << "six rows, or a header";
    EXPECT_LE(numbers->made, 12) << "and those out of sight are filled anew";
    EXPECT_EQ(numbers->displayed.back(), 9'999);

    table->setContentOffset_animated({0, 5'000}, true);
    for (const auto& row : table->subviews())
        EXPECT_EQ(row->frameAt(NSDate::date()), row->frame()) << "none flies to its place";
    table->scrollToRow({0, 9'999});
    const double offset = table->contentOffset().y;
    EXPECT_EQ(offset, table->contentSize().height - 200);
    table->reloadData();
    EXPECT_EQ(table->contentOffset().y, offset);
    numbers->list.resize(100);
    table->reloadData();
    EXPECT_EQ(table->contentOffset().y, 20 + 33 * 150 + 40 - 200) << "where it still can be";

    table->setFrame({0, 100, 280, 300});
    EXPECT_EQ(table->contentOffset().y, 20 + 33 * 150 + 40 - 300);
    EXPECT_EQ(table->subviews().size(), 6U) << "a higher table shows more rows";
    EXPECT_EQ(table->cellForRow({0, 99})->contentView().frame().width, 280);
}

TEST_F(TableChanges, a_header_stands_in_sight_above_its_rows) {
    show({150, 150});
    const auto header = table->headerForSection(0);
    EXPECT_EQ(table->subviews().front(), header);
    EXPECT_EQ(header->accessibilityIdentifier(), "header_0");
    EXPECT_EQ(header->frame(), (CGRect{0, 0, 300, 20}));
    table->dragTo({0, 100});
    EXPECT_EQ(header->superview(), nullptr);
    numbers->headerHeight = 0;
    table->reloadData();
    EXPECT_EQ(table->headerForSection(0), nullptr);
    EXPECT_EQ(seen(), "150@0 150@150 ");
}

TEST_F(TableChanges, a_row_comes_and_goes_while_the_others_slide) {
    show({60, 70, 80});
    bool came = false;
    numbers->list.insert(numbers->list.begin() + 1, 30);
    const int measured = numbers->measured;
    const auto last = table->cellForRow({0, 2});
    table->insertRow({0, 1}, [&] { came = true; });
    EXPECT_EQ(numbers->measured, measured + 1);
    EXPECT_EQ(seen(), "60@20 30@80 70@110 80@180 ");
    EXPECT_EQ(last->frame().y, 180) << "the same view as before";
    EXPECT_EQ(last->frameAt(NSDate::date()).y, 150) << "which has yet to slide there";
    EXPECT_EQ(table->cellForRow({0, 1})->alphaAt(NSDate::date()), 0);
    phone.advance(0.29);
    EXPECT_FALSE(came);
    phone.advance(0.02);
    EXPECT_TRUE(came);

    window.setFirstResponder(&field(0));
    const auto first = table->cellForRow({0, 0});
    EXPECT_FALSE(table->requestDelete({0, 4}));
    EXPECT_TRUE(table->requestDelete({0, 0}));
    EXPECT_EQ(seen(), "30@20 70@50 80@120 ");
    EXPECT_EQ(window.firstResponder(), nullptr) << "what goes is out of reach";
    EXPECT_EQ(first->alpha(), 0);
    EXPECT_EQ(first->alphaAt(NSDate::date()), 1) << "it fades";
    phone.advance(0.3);
    EXPECT_EQ(first->superview(), nullptr);

    show({100, 100, 100});
    table->setContentOffset({0, 120});
    EXPECT_TRUE(table->requestDelete({0, 2}));
    EXPECT_EQ(seen(), "100@20 100@120 ") << "as far down as it now goes";
    EXPECT_EQ(table->contentOffset().y, 20);
    numbers->list = {50, 50, 50};
    table->deleteRow({0, 0});
    EXPECT_EQ(seen(), "50@20 50@70 50@120 ") << "a list that has changed otherwise is asked anew";
    table->insertRow({0, 9});
    EXPECT_EQ(seen(), "50@20 50@70 50@120 ");
}

TEST_F(TableChanges, a_row_that_is_dragged_keeps_its_view_and_its_height) {
    show({40, 50, 60});
    EXPECT_FALSE(table->dragRow({0, 0}, {0, 1})) << "not while it is not edited";
    table->setEditing(true);
    const auto first = table->cellForRow({0, 0});
    window.touchDown({290, 130});
    window.touchMoved({200, 270});
    EXPECT_EQ(first->frame().y, 160) << "under the finger";
    EXPECT_EQ(table->cellForRow({0, 1})->frame().y, 20);
    window.touchUp({200, 270});
    EXPECT_EQ(seen(), "50@20 60@70 40@130 ");
    EXPECT_EQ(table->cellForRow({0, 2}), first);
    EXPECT_TRUE(table->dragRow({0, 2}, {0, 0}));
    EXPECT_EQ(seen(), "40@20 50@60 60@110 ");
}

TEST_F(TableChanges, a_reload_within_a_reload_leaves_one_table) {
    show({40, 50, 60});
    const auto reload = [&] { table->reloadData(); };
    window.setFirstResponder(&field(1));
    numbers->left = reload;
    table->reloadData();
    EXPECT_EQ(table->numberOfSections(), 1);
    EXPECT_EQ(seen(), "40@20 50@60 60@110 ");
    EXPECT_EQ(table->subviews().size(), 4U);

    numbers->willDisplay = [&] {
        numbers->list = {70};
        table->reloadData();
    };
    table->reloadData();
    EXPECT_EQ(seen(), "70@20 ");
    EXPECT_EQ(table->subviews().size(), 2U);
}

TEST_F(TableChanges, an_owner_may_change_the_table_from_anything_that_it_is_told) {
    const auto tap = [&](double y) {
        window.touchDown({150, y});
        window.touchUp({150, y});
    };
    show({40, 50, 60});
    numbers->selected = [&] {
        numbers->list.erase(numbers->list.begin());
        table->deleteRow({0, 0});
        table->reloadData();
    };
    tap(130);
    EXPECT_EQ(seen(), "50@20 60@70 ");
    // A field that is left as its row goes deletes another row.
    window.setFirstResponder(&field(0));
    numbers->left = [&] {
        numbers->list = {80};
        table->deleteRow({0, 0});
    };
    numbers->list = {60};
    table->deleteRow({0, 0});
    EXPECT_EQ(seen(), "80@20 ");
    phone.advance(1);
    EXPECT_EQ(table->subviews().size(), 2U);
    numbers->left = [] {};
    numbers->selected = [&] {
        table->removeFromSuperview();
        table.reset();
    };
    tap(130);
    EXPECT_EQ(table, nullptr);
}

TEST_F(TableChanges, a_field_keeps_the_focus_though_its_row_is_out_of_sight) {
    show(std::vector<int>(50, 50));
    UITextInput& focused = field(0);
    window.setFirstResponder(&focused);
    table->dragTo({0, 2'000});
    EXPECT_EQ(window.firstResponder(), &focused);
    focused.setText("typed");
    table->dragTo({0, 0});
    EXPECT_EQ(&field(0), &focused);
    table->dragTo({0, 2'000});
    window.setFirstResponder(nullptr);
    table->dragTo({0, 1'000});
    EXPECT_LE(table->subviews().size(), 5U);
}

TEST_F(TableChanges, a_selected_row_shows_it_until_it_is_deselected) {
    show({40, 50});
    const auto cell = table->cellForRow({0, 1});
    cell->setSelectedBackgroundColor(UIColor::blackColor());
    EXPECT_TRUE(table->selectRow({0, 1}));
    EXPECT_EQ(cell->backgroundColor(), UIColor::blackColor());
    EXPECT_TRUE(table->selectRow({0, 0}));
    EXPECT_FALSE(cell->isSelected()) << "one at a time";
    EXPECT_TRUE(table->selectRow({0, 1}));
    table->deselectRow({0, 0}, true);
    EXPECT_TRUE(cell->isSelected()) << "another was meant";
    table->deselectRow({0, 1}, true);
    EXPECT_EQ(cell->backgroundColor(), UIColor());
}

TEST_F(TableChanges, a_pull_refreshes_a_table_that_rests_below_the_sign_meanwhile) {
    show(std::vector<int>(20, 50));
    EXPECT_FALSE(table->pull()) << "there is nothing to refresh";
    const auto control = std::make_shared<UIRefreshControl>();
    int refreshed = 0;
    control->addAction(UIControlEvent::valueChanged, [&] { ++refreshed; });
    table->setRefreshControl(control);
    const auto pullTo = [&](double y) {
        table->setContentOffset({0, y});
        table->didEndDragging();
        table->dragTo({0, y});
        return table->contentOffset().y;
    };
    EXPECT_EQ(pullTo(-59), 0);
    EXPECT_EQ(refreshed, 0) << "not far enough";
    EXPECT_EQ(pullTo(-60), -60);
    EXPECT_TRUE(control->isRefreshing());
    EXPECT_EQ(control->visibleRect().height, 60);
    EXPECT_EQ(pullTo(-60), -60);
    EXPECT_EQ(refreshed, 1) << "this is no pull";
    EXPECT_TRUE(table->pull());
    EXPECT_EQ(refreshed, 2) << "once more, for who cannot wait";
    EXPECT_EQ(table->contentOffset().y, -60);
    table->reloadData();
    EXPECT_EQ(table->contentOffset().y, -60);
    EXPECT_EQ(control->superview(), table.get());
    control->endRefreshing();
    EXPECT_EQ(table->contentOffset().y, 0);
    table->dragTo({0, 90});
    control->beginRefreshing();
    control->endRefreshing();
    EXPECT_EQ(table->contentOffset().y, 90) << "one that is elsewhere stays";
    EXPECT_EQ(refreshed, 2);
}

TEST_F(TableChanges, a_swipe_uncovers_what_deletes_the_row) {
    show({50, 60, 70});
    const auto swipe = [&](double y, double dx, double dy = 0) {
        window.touchDown({200, y});
        window.touchMoved({200 + dx / 2, y + dy / 2});
        window.touchMoved({200 + dx, y + dy});
        window.touchUp({200 + dx, y + dy});
    };
    const auto tap = [&](double x, double y) {
        window.touchDown({x, y});
        window.touchUp({x, y});
    };
    const auto content = [&](NSInteger row) {
        return table->cellForRow({0, row})->contentView().frame().x;
    };
    int selected = 0;
    numbers->selected = [&] { ++selected; };

    swipe(190, -30);
    EXPECT_EQ(content(1), 0) << "not far enough";
    swipe(190, -60, 90);
    swipe(190, 80);
    EXPECT_EQ(content(1), 0) << "nor the right way";
    EXPECT_EQ(std::exchange(selected, 0), 1) << "which is a tap";
    swipe(190, -150);
    EXPECT_EQ(content(1), -UITableViewCell::kDeleteButtonWidth);
    tap(200, 250);
    EXPECT_EQ(content(1), 0) << "beside the button it is taken back";
    EXPECT_EQ(selected, 0);
    swipe(190, -0.6 * UITableViewCell::kDeleteButtonWidth);
    EXPECT_EQ(content(1), -UITableViewCell::kDeleteButtonWidth) << "more than half is enough";
    tap(290, 190);
    EXPECT_EQ(seen(), "50@20 70@70 ");
    tap(200, 200);
    EXPECT_EQ(selected, 1);
    table->setEditing(true);
    swipe(200, -150);
    EXPECT_EQ(content(1), table->cellForRow({0, 1})->deleteMark().width) << "not with the marks";
    table->setEditing(false);
    show(std::vector<int>(20, 50));
    swipe(190, -150);
    table->dragTo({0, 500});
    for (const NSInteger row : {10, 11, 12, 13})
        EXPECT_EQ(content(row), 0) << "another row in the same view";
}

}  // namespace

}  // namespace gexlo::test
