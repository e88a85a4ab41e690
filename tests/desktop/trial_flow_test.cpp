// A flow as the coming ones will be, in the window under a mouse.
#include "support/trial_flow.h"
#include "desktop/window_fixture.h"
#include "platform/views/window.h"

namespace gexlo::test {

namespace {

class TrialFlowInAWindow : public InAWindow {
protected:
    TrialFlowInAWindow() {
        UIWindow& phoneWindow = UIWindow::keyWindow();
        phoneWindow.setRootViewController(*root);
        root->view()->setFrame(phoneWindow.bounds());
        phoneWindow.makeKeyAndVisible();
        root->presentViewController_animated_completion(navigation, true);
        showActive();
        atRest();
    }
    UIView* named(const char* identifier, UIView& at = UIWindow::keyWindow()) {
        if (at.accessibilityIdentifier() == identifier) return &at;
        for (const auto& view : at.subviews()) {
            if (UIView* found = named(identifier, *view)) return found;
        }
        return nullptr;
    }
    void clickOn(const char* identifier) {
        UIView* view = named(identifier);
        ASSERT_NE(view, nullptr) << identifier;
        click(view->visibleRect().center());
    }
    std::string title() const { return navigation->topViewController()->title(); }

    std::shared_ptr<UIViewController> root = std::make_shared<UIViewController>();
    std::shared_ptr<UINavigationController> navigation = trialFlow();
};

TEST_F(TrialFlowInAWindow, is_played_by_a_mouse_and_keys) {
    drag({100, 500}, {100, 200});
    click({100, 70});
    EXPECT_EQ(title(), "Name");
    QTest::keyClick(&window, Qt::Key_End);
    QTest::keyClick(&window, Qt::Key_X);
    clickOn("timeButton");
    EXPECT_EQ(title(), "Time");
    drag({80, 210}, {80, 140});
    const auto& chosen = static_cast<UILabel&>(*named("chosen"));
    EXPECT_EQ(chosen.text(), "02:00");
    clickOn("back");
    clickOn("right");
    ASSERT_EQ(UIWindow::keyWindow().alerts().size(), 1U);
    QTest::keyClick(&window, Qt::Key_Return);
    atRest();
    EXPECT_EQ(title(), "Names");
    const auto& table =
        static_cast<UIScrollView&>(*navigation->topViewController()->view()->subviews().front());
    EXPECT_EQ(table.contentOffset().y, 300) << "the list is where it was left";
    clickOn("left");
    EXPECT_EQ(root->presentedViewController(), nullptr);
}

}  // namespace

}  // namespace gexlo::test
