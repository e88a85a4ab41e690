// Screens: presented and dismissed, pushed and popped, and what they are told of it.
#include <gtest/gtest.h>

#include "platform/views/alert.h"
#include "platform/views/navigation_controller.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

/// Writes down what it is told, as "A+" about to appear, "A!" appeared, "A-" and "A." gone.
class Screen final : public UIViewController {
public:
    Screen(std::string name, std::string& told) : told_(told), name_(std::move(name)) {
        setTitle(name_);
    }
    void viewDidLoad() override {
        view()->setAccessibilityIdentifier(name_);
        tell("=");
    }
    void viewWillAppear(bool) override { tell("+"); }
    void viewDidAppear(bool) override { tell("!"); }
    void viewWillDisappear(bool) override { tell("-"); }
    void viewDidDisappear(bool) override { tell("."); }

private:
    void tell(const char* what) { told_ += (told_.empty() ? "" : " ") + name_ + what; }
    std::string& told_;
    std::string name_;
};

class ViewControllers : public ::testing::Test {
protected:
    ViewControllers() {
        window.setRootViewController(*root);
        root->view()->setFrame(window.bounds());
        window.makeKeyAndVisible();
        takeTold();
    }
    std::shared_ptr<Screen> screen(const std::string& name) {
        return std::make_shared<Screen>(name, told);
    }
    std::string takeTold() { return std::exchange(told, ""); }
    std::string takeTold(double seconds) {
        phone.advance(seconds);
        return takeTold();
    }
    UIViewController::Completion tells(const char* what) {
        return [this, what] { told += std::string(" ") + what; };
    }
    bool isInTree(UIViewController& controller) { return controller.view()->window() == &window; }

    Phone phone;
    std::string told;
    UIWindow& window = UIWindow::keyWindow();
    std::shared_ptr<Screen> root = screen("R");
};

TEST_F(ViewControllers, one_that_is_presented_lies_over_all_and_goes_with_its_holder) {
    const auto top = screen("T");
    window.setFirstResponder(&root->view()->add<UITextField>(CGRect{0, 100, 90, 40}));
    root->presentViewController_animated_completion(top, true, tells("done"));
    EXPECT_EQ(window.firstResponder(), nullptr) << "nobody writes to what is covered";
    EXPECT_EQ(takeTold(), "T= R- T+");
    EXPECT_EQ(top->view()->frame(), window.bounds()) << "the end of an animation holds at once";
    EXPECT_EQ(window.hitTest({5, 5}), top->view().get());
    EXPECT_EQ(takeTold(0.39), "");
    EXPECT_EQ(takeTold(0.02), "T! R. done");
    EXPECT_TRUE(root->view()->isHidden());

    root->presentViewController_animated_completion(screen("X"), true, tells("done"));
    EXPECT_EQ(takeTold(1), "") << "who presents already presents no other";

    top->dismissViewControllerAnimated_completion(true, tells("gone"));
    EXPECT_EQ(takeTold(), "T- R+");
    EXPECT_EQ(window.hitTest({5, 5}), root->view().get());
    EXPECT_EQ(takeTold(0.41), "T. R! gone");
    EXPECT_FALSE(isInTree(*top));
    EXPECT_EQ(top.use_count(), 1);
    top->dismissViewControllerAnimated_completion(true, tells("gone"));
    EXPECT_EQ(takeTold(1), "");
}

TEST_F(ViewControllers, dismissing_takes_all_that_lies_above_and_shows_only_the_topmost_go) {
    const auto first = screen("A");
    const auto second = screen("B");
    root->presentViewController_animated_completion(first, false, tells("a"));
    EXPECT_EQ(takeTold(), "A= R- A+ A! R. a");
    first->presentViewController_animated_completion(second, false);
    takeTold();
    root->dismissViewControllerAnimated_completion(true);
    EXPECT_FALSE(isInTree(*first));
    EXPECT_EQ(takeTold(1), "B- R+ B. R!");
    EXPECT_FALSE(isInTree(*second));
    EXPECT_EQ(first->presentedViewController(), nullptr);
    EXPECT_EQ(second->presentingViewController(), nullptr);
}

TEST_F(ViewControllers, one_that_turns_back_half_way_stays) {
    const auto top = screen("T");
    root->presentViewController_animated_completion(top, true);
    phone.advance(0.3);
    top->dismissViewControllerAnimated_completion(true);
    phone.advance(0.3);
    takeTold();
    root->presentViewController_animated_completion(top, true);
    EXPECT_EQ(takeTold(1), "R- T+ T! R.") << "neither the first coming nor the going ends again";
    EXPECT_TRUE(isInTree(*top));
}

TEST_F(ViewControllers, a_navigation_keeps_only_its_top_screen_in_the_tree) {
    const auto first = screen("A");
    const auto navigation = std::make_shared<UINavigationController>(first);
    root->presentViewController_animated_completion(navigation, true);
    EXPECT_EQ(takeTold(1), "A= R- A+ A! R.");
    UIButton& back = navigation->navigationBar().backButton();
    EXPECT_TRUE(back.isHidden());

    auto second = screen("B");
    navigation->pushViewController_animated(second, true, tells("pushed"));
    EXPECT_EQ(takeTold(), "B= A- B+");
    EXPECT_FALSE(isInTree(*first));
    EXPECT_EQ(second->view()->frame().y, 64);
    EXPECT_EQ(second->view()->frameAt(NSDate::date()).x, 375) << "in from the right";
    EXPECT_EQ(takeTold(0.36), "A. B! pushed");
    const auto third = screen("C");
    navigation->pushViewController_animated(third, false);
    EXPECT_EQ(takeTold(), "C= B- C+ B. C!");
    EXPECT_EQ(back.title(), "B");

    // The bar's button is touched, as a person would.
    window.press(back);
    EXPECT_LT(second->view()->frameAt(NSDate::date()).x, 0) << "and back from the left";
    EXPECT_EQ(takeTold(1), "C- B+ C. B!");
    EXPECT_EQ(navigation->topViewController(), second.get());
    EXPECT_EQ(third.use_count(), 1) << "what was popped is its caller's";
    navigation->pushViewController_animated(third, false);
    takeTold();
    navigation->popToRootViewControllerAnimated(false, tells("root"));
    EXPECT_EQ(takeTold(), "C- A+ C. A! root");
    EXPECT_EQ(second->navigationController(), nullptr);
    EXPECT_EQ(navigation->popViewControllerAnimated(true, tells("none")), nullptr);
    EXPECT_EQ(takeTold(1), "");

    // A screen of the stack presents for the whole, and goes with it.
    const auto modal = screen("M");
    first->presentViewController_animated_completion(modal, false);
    EXPECT_EQ(modal->presentingViewController(), navigation.get());
    EXPECT_EQ(first->presentedViewController(), modal.get());
    modal->dismissViewControllerAnimated_completion(false);
    first->dismissViewControllerAnimated_completion(false);
    EXPECT_FALSE(isInTree(*first));
    EXPECT_EQ(takeTold(), "M= A- M+ M! A. M- A+ M. A! A- R+ A. R!");
}

TEST_F(ViewControllers, the_bar_shows_the_items_of_its_top_screen) {
    const auto first = screen("A");
    const auto navigation = std::make_shared<UINavigationController>(first);
    root->presentViewController_animated_completion(navigation, false);
    const auto second = screen("B");
    navigation->pushViewController_animated(second, false);
    UINavigationBar& bar = navigation->navigationBar();
    const auto button = [&](const char* identifier) -> UIButton& {
        for (const auto& view : bar.subviews()) {
            if (view->accessibilityIdentifier() == identifier) return static_cast<UIButton&>(*view);
        }
        throw std::out_of_range(identifier);
    };
    takeTold();
    second->setRightBarButtonItem(UIBarButtonItem{"Save", tells("saved")});
    window.press(button("right"));
    EXPECT_EQ(takeTold(), " saved");
    EXPECT_EQ(button("right").title(), "Save");
    EXPECT_FALSE(bar.backButton().isHidden());
    // An item on the left stands in for the way back; the action takes the screen away with it.
    second->setLeftBarButtonItem(
        UIBarButtonItem{"Cancel", [&] { navigation->popViewControllerAnimated(false); }});
    EXPECT_TRUE(bar.backButton().isHidden());
    window.press(button("left"));
    EXPECT_EQ(navigation->topViewController(), first.get());
    EXPECT_TRUE(button("left").isHidden());
    EXPECT_TRUE(button("right").isHidden());
    // What a screen below changes shows when it is back.
    first->setRightBarButtonItem(
        UIBarButtonItem{.title = "Add", .action = tells("added"), .isEnabled = false});
    takeTold();
    window.press(button("right"));
    EXPECT_EQ(takeTold(), "");
}

TEST_F(ViewControllers, alerts_stay_above_and_go_with_their_screen) {
    const auto top = screen("T");
    UIAlert::notice("of the root", "", "OK").showFor(*root->view());
    root->presentViewController_animated_completion(top, true);
    UIAlert::notice("of the top", "", "OK").showFor(*top->view());
    EXPECT_EQ(window.touchDown({5, 5}), nullptr);
    top->dismissViewControllerAnimated_completion(true);
    ASSERT_EQ(window.alerts().size(), 1U);
    EXPECT_EQ(window.alerts().front().title, "of the root");
}

}  // namespace

}  // namespace gexlo::test
