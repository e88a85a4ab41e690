#include "platform/views/view.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/device.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// The least alpha at which a view is still touched.
constexpr double kTouchableAlpha = 0.01;

/// Of the changes that are being made; 0 outside an animation.
float animationUnderWay = 0;

}  // namespace

UIView::~UIView() {
    for (const auto& view : subviews_)
        view->superview_ = nullptr;
}

void UIView::addSubview(std::shared_ptr<UIView> view) {
    insertSubview_atIndex(std::move(view), subviews_.size());
}

void UIView::insertSubview_atIndex(std::shared_ptr<UIView> view, std::size_t index) {
    if (view->superview_) view->removeFromSuperview();
    view->superview_ = this;
    subviews_.insert(
        subviews_.begin() + static_cast<std::ptrdiff_t>(std::min(index, subviews_.size())),
        std::move(view));
    markChanged();
    changedBelow_ = true;
}

void UIView::removeFromSuperview() {
    if (!superview_) return;
    if (UIWindow* window = this->window()) window->viewWillLeave(*this);
    UIView& parent = *superview_;
    superview_ = nullptr;
    parent.markChanged();
    const auto found =
        std::find_if(parent.subviews_.begin(), parent.subviews_.end(),
                     [this](const std::shared_ptr<UIView>& view) { return view.get() == this; });
    // The view may end with its last holder, so nothing of it is touched from here on.
    const std::shared_ptr<UIView> self = std::move(*found);
    parent.subviews_.erase(found);
}

void UIView::removeAllSubviews() {
    if (subviews_.empty()) return;
    UIWindow* window = this->window();
    std::vector<std::shared_ptr<UIView>> former;
    former.swap(subviews_);
    for (const auto& view : former) {
        if (window) window->viewWillLeave(*view);
        view->superview_ = nullptr;
    }
    markChanged();
}

void UIView::bringSubviewToFront(UIView& view) {
    const auto found = std::find_if(subviews_.begin(), subviews_.end(),
                                    [&](const auto& other) { return other.get() == &view; });
    if (found == subviews_.end()) return;
    std::rotate(found, found + 1, subviews_.end());
    markChanged();
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
    animationDuration_ = animationUnderWay;
    changed_ = true;
    for (UIView* view = superview_; view && !view->changedBelow_; view = view->superview_)
        view->changedBelow_ = true;
}

void UIView::changesWereRead() {
    changed_ = false;
    animationDuration_ = 0;
    if (!std::exchange(changedBelow_, false)) return;
    for (const auto& view : subviews_)
        view->changesWereRead();
}

void UIView::animateWithDuration(double duration, const std::function<void()>& changes,
                                 std::function<void()> completion) {
    const float outer = animationUnderWay;
    animationUnderWay = static_cast<float>(duration);
    changes();
    animationUnderWay = outer;
    if (completion) Device::current().mainQueue().after(duration, std::move(completion));
}

}  // namespace gexlo
