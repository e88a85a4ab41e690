#include "platform/views/navigation_controller.h"

#include <algorithm>
#include <utility>

#include "platform/views/image_view.h"
#include "platform/views/screen.h"

namespace gexlo {

namespace {

/// How far to the left the screen lies that comes back, as a part of the width.
constexpr double kBehind = 0.3;

/// What is seen to leave, while the screen itself is out of the tree already. Null where the host
/// paints none.
std::shared_ptr<UIView> pictureOf(UIViewController& screen, CGRect place) {
    UIImage image = UIImage::imageOfView_size_scale(*screen.view(), place.size(),
                                                    UIScreen::mainScreen().scale());
    if (image.isNone()) return nullptr;
    auto picture = std::make_shared<UIImageView>(place);
    picture->setUserInteractionEnabled(false);
    picture->setImage(std::move(image));
    return picture;
}

double statusBarHeight() {
    return UIScreen::mainScreen().applicationFrame().y;
}

}  // namespace

UINavigationController::UINavigationController(std::shared_ptr<UIViewController> root)
    : stack_{std::move(root)} {
    stack_.front()->navigation_ = this;
}

UINavigationController::~UINavigationController() {
    for (const auto& controller : stack_)
        controller->navigation_ = nullptr;
}

UINavigationBar& UINavigationController::navigationBar() {
    view();
    return *bar_;
}

void UINavigationController::setNavigationBarHidden(bool hidden) {
    isBarHidden_ = hidden;
    if (isViewLoaded()) viewDidLayoutSubviews();
}

void UINavigationController::viewDidLoad() {
    const std::shared_ptr<UIView>& view = this->view();
    view->setFrame(UIScreen::mainScreen().bounds());
    view->setBackgroundColor(UIColor::whiteColor());
    view->setClipsToBounds(true);
    bar_ = &view->add<UINavigationBar>(
        CGRect{0, 0, view->frame().width, statusBarHeight() + UINavigationBar::kHeight},
        statusBarHeight());
    bar_->backButton().addAction(UIControlEvent::touchUpInside,
                                 [this] { popViewControllerAnimated(true); });
    view->insertSubview_atIndex(topViewController()->view(), 0);
    viewDidLayoutSubviews();
}

void UINavigationController::viewDidLayoutSubviews() {
    bar_->setHidden(isBarHidden_);
    topViewController()->setViewFrame(contentFrame());
    updateBar();
}

CGRect UINavigationController::contentFrame() const {
    const CGSize size = bar_->superview()->frame().size();
    const double top = isBarHidden_ ? 0 : bar_->frame().height;
    return {0, top, size.width, size.height - top};
}

// MARK: the stack

void UINavigationController::pushViewController_animated(
    std::shared_ptr<UIViewController> controller, bool animated, Completion completion) {
    if (controller->navigation_) return;
    const std::shared_ptr<UIViewController> former = stack_.back();
    controller->navigation_ = this;
    stack_.push_back(std::move(controller));
    showTop(former, Side::right, animated, std::move(completion));
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(
    bool animated, Completion completion) {
    if (stack_.size() < 2) return nullptr;
    std::shared_ptr<UIViewController> former = stack_.back();
    popToViewController_animated(*stack_[stack_.size() - 2], animated, std::move(completion));
    return former;
}

void UINavigationController::popToRootViewControllerAnimated(bool animated, Completion completion) {
    popToViewController_animated(*stack_.front(), animated, std::move(completion));
}

void UINavigationController::popToViewController_animated(UIViewController& controller,
                                                          bool animated, Completion completion) {
    const auto kept = std::find_if(stack_.begin(), stack_.end(),
                                   [&](const auto& screen) { return screen.get() == &controller; });
    if (kept == stack_.end() || kept + 1 == stack_.end()) return;
    const std::vector<std::shared_ptr<UIViewController>> gone(kept + 1, stack_.end());
    stack_.erase(kept + 1, stack_.end());
    for (const auto& screen : gone)
        screen->navigation_ = nullptr;
    showTop(gone.back(), Side::left, animated, std::move(completion));
}

void UINavigationController::showTop(const std::shared_ptr<UIViewController>& former, Side side,
                                     bool animated, Completion completion) {
    if (!isViewLoaded()) {
        if (completion) completion();
        return;
    }
    const std::shared_ptr<UIViewController> top = stack_.back();
    const bool isMoving = animated && isInSight();
    std::vector<Transition> transitions;
    top->setViewFrame(contentFrame());
    if (isInSight()) {
        transitions.push_back(former->beginAppearance(false, isMoving));
        transitions.push_back(top->beginAppearance(true, isMoving));
    }
    const CGRect place = contentFrame();
    const CGPoint right{place.width, 0};
    const CGPoint behind{-kBehind * place.width, 0};
    const bool isForward = side == Side::right;
    const std::shared_ptr<UIView> picture = isMoving ? pictureOf(*former, place) : nullptr;
    former->view()->removeFromSuperview();
    if (isMoving) top->view()->setFrame(place.offsetBy(isForward ? right : behind));
    view()->insertSubview_atIndex(top->view(), 0);
    if (picture) view()->insertSubview_atIndex(picture, isForward ? 0 : 1);
    updateBar();
    animate(
        *top->view(), isMoving, kPushDuration,
        [&] {
            top->view()->setFrame(place);
            if (picture) picture->setFrame(place.offsetBy(isForward ? behind : right));
        },
        [picture, transitions = std::move(transitions), isMoving,
         completion = std::move(completion)] {
            if (picture) picture->removeFromSuperview();
            for (const Transition& transition : transitions)
                endAppearance(transition, isMoving);
            if (completion) completion();
        });
}

void UINavigationController::updateBar() {
    if (!bar_) return;
    const UIViewController& top = *topViewController();
    const bool hasBack = stack_.size() > 1;
    const auto pointer = [](const auto& item) { return item ? &*item : nullptr; };
    bar_->show(top.title(), hasBack ? &stack_[stack_.size() - 2]->title() : nullptr,
               pointer(top.leftBarButtonItem()), pointer(top.rightBarButtonItem()));
}

}  // namespace gexlo
