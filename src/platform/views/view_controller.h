// One screen: a view, when it is made, and when it comes and goes.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/views/image.h"
#include "platform/views/view.h"

namespace gexlo {

class UINavigationController;
class UIWindow;

/// A button in the bar of a navigation: a text, or an image with a spoken label.
struct UIBarButtonItem {
    std::string title;
    std::function<void()> action;
    UIImage image = {};
    std::string accessibilityLabel = {};
    bool isEnabled = true;
};

/// Shared: whoever presents it or has it in its stack holds it, and so does a transition that it
/// takes part in.
class UIViewController : public std::enable_shared_from_this<UIViewController> {
public:
    using Completion = std::function<void()>;

    /// Seconds that a screen takes to come up from below and to go back there.
    static constexpr double kPresentationDuration = 0.4;

    UIViewController() = default;
    virtual ~UIViewController();
    UIViewController(const UIViewController&) = delete;
    UIViewController& operator=(const UIViewController&) = delete;

    /// Made at first call.
    const std::shared_ptr<UIView>& view();
    bool isViewLoaded() const { return view_ != nullptr; }
    /// Whether its view is on the screen, or on its way there.
    bool isInSight() const { return isInSight_; }

    // MARK: presentation

    /// Puts that screen over all; the one that stands in a navigation has the whole navigation
    /// do so. Nothing happens, and nothing completes, where this one is not in sight or presents
    /// already, or where that one is presented already.
    void presentViewController_animated_completion(std::shared_ptr<UIViewController> controller,
                                                   bool animated, Completion completion = {});
    /// Takes away what this one presents and all above it; where it presents nothing, takes it
    /// away itself. Nothing happens where there is nothing to take away.
    void dismissViewControllerAnimated_completion(bool animated, Completion completion = {});
    UIViewController* presentedViewController() const { return presenter().presented_.get(); }
    UIViewController* presentingViewController() const { return presenter().presenting_; }

    // MARK: what the bar of its navigation shows of it

    UINavigationController* navigationController() const { return navigation_; }
    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    const std::optional<UIBarButtonItem>& leftBarButtonItem() const { return left_; }
    void setLeftBarButtonItem(std::optional<UIBarButtonItem> item);
    const std::optional<UIBarButtonItem>& rightBarButtonItem() const { return right_; }
    void setRightBarButtonItem(std::optional<UIBarButtonItem> item);

protected:
    /// Sets the view; without a choice of its own an empty one.
    virtual void loadView() { setView(std::make_shared<UIView>()); }
    void setView(std::shared_ptr<UIView> view) { view_ = std::move(view); }
    /// Once, when the view is there.
    virtual void viewDidLoad() {}
    /// The view has got another size.
    virtual void viewDidLayoutSubviews() {}
    virtual void viewWillAppear(bool /*animated*/) {}
    virtual void viewDidAppear(bool /*animated*/) {}
    virtual void viewWillDisappear(bool /*animated*/) {}
    virtual void viewDidDisappear(bool /*animated*/) {}

    /// What a container shows comes and goes with it.
    virtual UIViewController* shownChild() const { return nullptr; }

private:
    friend class UINavigationController;
    friend class UIWindow;

    /// One that comes or goes, to be told when it is there.
    struct Transition {
        std::shared_ptr<UIViewController> controller;
        unsigned number;
    };
    Transition beginAppearance(bool comes, bool animated);
    /// Does nothing, and says so, where another has begun since.
    static bool endAppearance(const Transition& transition, bool animated);
    static void animate(UIView& view, bool animated, double duration,
                        const std::function<void()>& changes, Completion completion);

    /// Who presents for it: its navigation, or itself.
    UIViewController& presenter();
    const UIViewController& presenter() const;
    void dismissPresented(bool animated, Completion completion);
    void setViewFrame(CGRect frame);
    void barChanged();

    std::shared_ptr<UIView> view_;
    std::shared_ptr<UIViewController> presented_;
    UIViewController* presenting_ = nullptr;        // holds this one
    UINavigationController* navigation_ = nullptr;  // holds this one
    std::string title_;
    std::optional<UIBarButtonItem> left_;
    std::optional<UIBarButtonItem> right_;
    unsigned transitions_ = 0;
    bool isInTransition_ = false;
    bool isInSight_ = false;
};

}  // namespace gexlo
