#include "platform/views/view.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/device.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// The least alpha at which a view is still touched.
constexpr double kTouchableAlpha = 0.01;

}  // namespace

UIView::~UIView() {
    for (const auto& view : subviews_)
        view->superview_ = nullptr;
}

void UIView::addSubview(std::shared_ptr<UIView> view) {
    insertSubview_atIndex(std::move(view), subviews_.size());
}

void UIView::insertSubview_atIndex(std::shared_ptr<UIView> view, std::size_t index) {
    // Who hears of its leaving may have put it elsewhere.
    while (view->superview_)
        view->removeFromSuperview();
    view->superview_ = this;
    subviews_.insert(
        subviews_.begin() + static_cast<std::ptrdiff_t>(std::min(index, subviews_.size())),
        std::move(view));
    markChanged();
    changedBelow_ = true;
}

/// Those who hear of it may change the tree: a touch is told while the view can pass it on to
/// those above it, all else once it has gone.
void UIView::removeFromSuperview() {
    if (!superview_) return;
    const std::shared_ptr<UIView> self = shared_from_this();
    const std::shared_ptr<UIWindow> window = heldWindow();
    if (window) window->cancelTouchOn(*this);
    if (!superview_) return;
    UIView& parent = *std::exchange(superview_, nullptr);
    std::erase(parent.subviews_, self);
    parent.markChanged();
    if (window) window->viewDidLeave(*this);
}

void UIView::removeAllSubviews() {
    if (subviews_.empty()) return;
    const std::shared_ptr<UIWindow> window = heldWindow();
    const UIView* touched = window ? window->touched() : nullptr;
    if (touched && touched != this && touched->isDescendantOf(*this)) window->touchCancel();
    std::vector<std::shared_ptr<UIView>> former;
    former.swap(subviews_);
    for (const auto& view : former)
        view->superview_ = nullptr;
    markChanged();
    if (!window) return;
    for (const auto& view : former)
        window->viewDidLeave(*view);
}

void UIView::bringSubviewToFront(UIView& view) {
    const auto found = std::find_if(subviews_.begin(), subviews_.end(),
                                    [&](const auto& other) { return other.get() == &view; });
    if (found == subviews_.end()) return;
    std::rotate(found, found + 1, subviews_.end());
    markChanged();
}

std::shared_ptr<UIWindow> UIView::heldWindow() {
    UIWindow* window = this->window();
    return window ? std::static_pointer_cast<UIWindow>(window->shared_from_this()) : nullptr;
}

bool UIView::isDescendantOf(const UIView& other) const {
    for (const UIView* view = this; view; view = view->superview_) {
        if (view == &other) return true;
    }
    return false;
}

UIView* UIView::viewWithTag(NSInteger tag) {
    if (tag_ == tag) return this;
    for (const auto& view : subviews_) {
        if (UIView* found = view->viewWithTag(tag)) return found;
    }
    return nullptr;
}

CGPoint UIView::convertPointToWindow(CGPoint point) const {
    for (const UIView* view = this; view; view = view->superview_) {
        const CGPoint offset = view->contentOffset();
        point = {point.x - offset.x + view->frame_.x, point.y - offset.y + view->frame_.y};
    }
    return point;
}

CGRect UIView::frameInWindow() const {
    if (!superview_) return frame_;
    const CGPoint origin = superview_->convertPointToWindow(frame_.origin());
    return {origin.x, origin.y, frame_.width, frame_.height};
}

CGRect UIView::visibleRect() const {
    CGRect rect = frameInWindow();
    const UIView* top = this;
    for (const UIView* view = this; view; view = view->superview_) {
        if (view->hidden_ || view->alpha_ == 0) return {rect.x, rect.y, 0, 0};
        if (view->clipsToBounds_ && view != this) rect = rect.intersection(view->frameInWindow());
        top = view;
    }
    return rect.intersection(top->frame_);
}

UIView* UIView::hitTest(CGPoint point) {
    if (hidden_ || !userInteractionEnabled_ || alpha_ < kTouchableAlpha) return nullptr;
    if (!bounds().contains(point)) return nullptr;
    const CGPoint offset = contentOffset();
    for (auto view = subviews_.rbegin(); view != subviews_.rend(); ++view) {
        const CGRect& frame = (*view)->frame_;
        if (UIView* hit =
                (*view)->hitTest({point.x + offset.x - frame.x, point.y + offset.y - frame.y})) {
            return hit;
        }
    }
    return this;
}

void UIView::touchesBegan(CGPoint inWindow) {
    if (superview_) superview_->touchesBegan(inWindow);
}

void UIView::touchesMoved(CGPoint inWindow) {
    if (superview_) superview_->touchesMoved(inWindow);
}

void UIView::touchesEnded(CGPoint inWindow) {
    if (superview_) superview_->touchesEnded(inWindow);
}

void UIView::touchesCancelled() {
    if (superview_) superview_->touchesCancelled();
}

void UIView::markChanged() {
    changed_ = true;
    for (UIView* view = superview_; view && !view->changedBelow_; view = view->superview_)
        view->changedBelow_ = true;
}

bool UIView::changesWereRead(NSDate seenAt) {
    changed_ = false;
    if (animations_ && animations_->areOver(seenAt)) animations_.reset();
    if (std::exchange(changedBelow_, false)) {
        for (const auto& view : subviews_) {
            if (view->changesWereRead(seenAt)) changedBelow_ = true;
        }
    }
    return animations_ || changedBelow_;
}

template <typename T>
void UIView::animate(const T& former, const T& value, AnimatedLook<T> look) {
    if (!animating_) {
        ((*animations_).*look).reset();
        return;
    }
    const T from = seen(look, former, animating_->begin);
    if (!animations_) animations_ = std::make_unique<ViewAnimations>();
    (*animations_).*look = Animation<T>{from, value, *animating_};
}

template void UIView::animate(const CGRect&, const CGRect&, AnimatedLook<CGRect>);
template void UIView::animate(const float&, const float&, AnimatedLook<float>);
template void UIView::animate(const UIColor&, const UIColor&, AnimatedLook<UIColor>);
template void UIView::animate(const CGPoint&, const CGPoint&, AnimatedLook<CGPoint>);

void UIView::animateWithDuration(double duration, const std::function<void()>& changes,
                                 std::function<void()> completion) {
    const NSDate now = NSDate::date();
    std::optional<AnimationSpan> span;
    if (duration > 0) span = {now, now.dateByAddingTimeInterval(duration)};
    const std::optional<AnimationSpan> outer = std::exchange(animating_, span);
    changes();
    animating_ = outer;
    if (!completion) return;
    Device::current().mainQueue().after(
        duration, [held = weak_from_this().lock(), done = std::move(completion)] { done(); });
}

}  // namespace gexlo
