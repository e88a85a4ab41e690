#include "platform/views/view_controller.h"

#include <utility>

#include "platform/views/navigation_controller.h"
#include "platform/views/window.h"

namespace gexlo {

UIViewController::~UIViewController() {
    if (presented_) presented_->presenting_ = nullptr;
}

const std::shared_ptr<UIView>& UIViewController::view() {
    if (!view_) {
        loadView();
        viewDidLoad();
    }
    return view_;
}

void UIViewController::setViewFrame(CGRect frame) {
    if (view()->frame() == frame) return;
    view_->setFrame(frame);
    viewDidLayoutSubviews();
}

// MARK: coming and going

UIViewController::Transition UIViewController::beginAppearance(bool comes, bool animated) {
    isInSight_ = comes;
    isInTransition_ = true;
    const Transition transition{shared_from_this(), ++transitions_};
    if (comes) {
        viewWillAppear(animated);
    } else {
        viewWillDisappear(animated);
    }
    if (UIViewController* child = shownChild()) child->beginAppearance(comes, animated);
    return transition;
}

bool UIViewController::endAppearance(const Transition& transition, bool animated) {
    UIViewController& controller = *transition.controller;
    if (controller.transitions_ != transition.number) return false;
    if (!std::exchange(controller.isInTransition_, false)) return false;
    if (controller.isInSight_) {
        controller.viewDidAppear(animated);
    } else {
        controller.viewDidDisappear(animated);
    }
    if (UIViewController* child = controller.shownChild()) {
        endAppearance({child->shared_from_this(), child->transitions_}, animated);
    }
    return true;
}

void UIViewController::animate(UIView& view, bool animated, double duration,
                               const std::function<void()>& changes, Completion completion) {
    if (animated) return view.animateWithDuration(duration, changes, std::move(completion));
    changes();
    completion();
}

// MARK: presentation

UIViewController& UIViewController::presenter() {
    return navigation_ ? static_cast<UIViewController&>(*navigation_) : *this;
}

const UIViewController& UIViewController::presenter() const {
    return const_cast<UIViewController*>(this)->presenter();
}

void UIViewController::presentViewController_animated_completion(
    std::shared_ptr<UIViewController> controller, bool animated, Completion completion) {
    UIViewController& presenter = this->presenter();
    if (&presenter != this) {
        presenter.presentViewController_animated_completion(std::move(controller), animated,
                                                            std::move(completion));
        return;
    }
    UIWindow* window = isInSight_ ? view()->window() : nullptr;
    if (!window || presented_ || controller->presenting_ || controller->navigation_) return;
    presented_ = controller;
    controller->presenting_ = this;
    window->setFirstResponder(nullptr);
    const CGRect place = window->bounds();
    controller->setViewFrame(place);
    const Transition going = beginAppearance(false, animated);
    const Transition coming = controller->beginAppearance(true, animated);
    controller->view()->setHidden(false);
    controller->view()->setFrame(place.offsetBy({0, place.height}));
    window->addSubview(controller->view());
    animate(
        *controller->view(), animated, kPresentationDuration,
        [&] { controller->view()->setFrame(place); },
        [going, coming, animated, completion = std::move(completion)] {
            endAppearance(coming, animated);
            // What is covered is neither painted nor found.
            if (endAppearance(going, animated)) going.controller->view()->setHidden(true);
            if (completion) completion();
        });
}

void UIViewController::dismissViewControllerAnimated_completion(bool animated,
                                                                Completion completion) {
    UIViewController& presenter = this->presenter();
    UIViewController* base = presenter.presented_ ? &presenter : presenter.presenting_;
    if (base) base->dismissPresented(animated, std::move(completion));
}

void UIViewController::dismissPresented(bool animated, Completion completion) {
    // Only the topmost is seen to go.
    std::shared_ptr<UIViewController> topmost = std::move(presented_);
    topmost->presenting_ = nullptr;
    while (topmost->presented_) {
        topmost->view()->removeFromSuperview();
        topmost = std::move(topmost->presented_);
        topmost->presenting_ = nullptr;
    }
    const std::shared_ptr<UIView> view = topmost->view();
    if (UIWindow* window = view->window()) window->viewWillLeave(*view);
    const Transition going = topmost->beginAppearance(false, animated);
    const Transition coming = beginAppearance(true, animated);
    this->view()->setHidden(false);
    animate(
        *view, animated, kPresentationDuration,
        [&] {
            view->setFrame(view->frame().offsetBy({0, view->frame().height}));
        },
        [going, coming, animated, completion = std::move(completion)] {
            // It may have been presented again meanwhile.
            if (endAppearance(going, animated)) going.controller->view()->removeFromSuperview();
            endAppearance(coming, animated);
            if (completion) completion();
        });
}

// MARK: the bar

void UIViewController::barChanged() {
    if (navigation_) navigation_->updateBar();
}

void UIViewController::setTitle(std::string title) {
    title_ = std::move(title);
    barChanged();
}

void UIViewController::setLeftBarButtonItem(std::optional<UIBarButtonItem> item) {
    left_ = std::move(item);
    barChanged();
}

void UIViewController::setRightBarButtonItem(std::optional<UIBarButtonItem> item) {
    right_ = std::move(item);
    barChanged();
}

}  // namespace gexlo
