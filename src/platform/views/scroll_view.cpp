#include "platform/views/scroll_view.h"

#include <algorithm>
#include <cmath>

#include "platform/views/window.h"

namespace gexlo {

namespace {

double resting(double wanted, double first, double last, double step) {
    if (step > 0) wanted = std::round(wanted / step) * step;
    return std::clamp(wanted, first, last);
}

}  // namespace

CGPoint UIScrollView::lastOffset() const {
    return {std::max(0.0, contentSize_.width - frame().width),
            std::max(0.0, contentSize_.height - frame().height)};
}

void UIScrollView::setContentSize(CGSize size) {
    const CGPoint former = lastOffset();
    change(contentSize_, size);
    comeToRest(former);
}

void UIScrollView::setFrame(CGRect frame) {
    const CGPoint former = lastOffset();
    UIView::setFrame(frame);
    comeToRest(former);
}

/// A limit that has not come nearer lets the offset stand: one beyond it was set so, or is held
/// there by a finger.
void UIScrollView::comeToRest(CGPoint formerLast) {
    const CGPoint last = lastOffset();
    CGPoint offset = contentOffset_;
    if (last.x < formerLast.x) offset.x = std::min(offset.x, last.x);
    if (last.y < formerLast.y) offset.y = std::min(offset.y, last.y);
    setContentOffset(offset);
}

void UIScrollView::setContentOffset(CGPoint offset) {
    if (contentOffset_ == offset) return;
    change(contentOffset_, offset, &ViewAnimations::contentOffset);
    didScroll();
}

void UIScrollView::setContentOffset_animated(CGPoint offset, bool animated) {
    if (!animated) return setContentOffset(offset);
    animateWithDuration(kScrollDuration, [&] { setContentOffset(offset); });
}

CGPoint UIScrollView::restingOffset(CGPoint offset) const {
    const CGPoint first = firstOffset();
    const CGPoint last = lastOffset();
    const CGSize step = restingStep();
    return {resting(offset.x, first.x, last.x, step.width),
            resting(offset.y, first.y, last.y, step.height)};
}

void UIScrollView::dragTo(CGPoint offset) {
    if (!scrollEnabled_) return;
    if (UIWindow* window = this->window()) {
        const UIView* touched = window->touched();
        if (touched && touched->isDescendantOf(*this) &&
            !touchesShouldCancelInContentView(*touched))
            return;
        window->touchCancel();
    }
    const auto self = weak_from_this().lock();
    willBeginDragging();
    setContentOffset(restingOffset(offset));
    didComeToRest();
}

}  // namespace gexlo
