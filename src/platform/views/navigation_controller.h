// A stack of screens under one bar, of which the top one shows.
#pragma once

#include <span>
#include <vector>

#include "platform/views/navigation_bar.h"
#include "platform/views/view_controller.h"

namespace gexlo {

class UINavigationController : public UIViewController {
public:
    /// Seconds that a screen takes to slide in from the right, and out again.
    static constexpr double kPushDuration = 0.35;

    explicit UINavigationController(std::shared_ptr<UIViewController> root);
    ~UINavigationController() override;

    std::span<const std::shared_ptr<UIViewController>> viewControllers() const { return stack_; }
    UIViewController* topViewController() const { return stack_.back().get(); }

    /// Does nothing for a screen that is in a stack already.
    void pushViewController_animated(std::shared_ptr<UIViewController> controller, bool animated,
                                     Completion completion = {});
    /// The screen that went; null, and nothing completes, where only one is left.
    std::shared_ptr<UIViewController> popViewControllerAnimated(bool animated,
                                                                Completion completion = {});
    /// Takes away all above that screen of the stack.
    void popToViewController_animated(UIViewController& controller, bool animated,
                                      Completion completion = {});
    void popToRootViewControllerAnimated(bool animated, Completion completion = {});

    UINavigationBar& navigationBar();
    bool isNavigationBarHidden() const { return isBarHidden_; }
    void setNavigationBarHidden(bool hidden);

protected:
    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    UIViewController* shownChild() const override { return topViewController(); }

private:
    friend class UIViewController;

    /// Where the top screen comes from.
    enum class Side { right, left };
    CGRect contentFrame() const;
    void showTop(const std::shared_ptr<UIViewController>& former, Side side, bool animated,
                 Completion completion);
    void updateBar();

    std::vector<std::shared_ptr<UIViewController>> stack_;
    UINavigationBar* bar_ = nullptr;  // a subview of the view, once that is there
    bool isBarHidden_ = false;
};

}  // namespace gexlo
