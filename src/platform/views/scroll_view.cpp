#include "platform/views/scroll_view.h"

#include <algorithm>
#include <cmath>

#include "platform/views/window.h"

namespace gexlo {

namespace {

double restingOffset(double wanted, double content, double visible, bool paging) {
    if (paging && visible > 0) wanted = std::round(wanted / visible) * visible;
    return std::clamp(wanted, 0.0, std::max(0.0, content - visible));
}

}  // namespace

void UIScrollView::setContentOffset(CGPoint offset) {
    if (contentOffset_ == offset) return;
    change(contentOffset_, offset);
    didScroll();
}

void UIScrollView::setContentOffset_animated(CGPoint offset, bool animated) {
    if (!animated) return setContentOffset(offset);
    animateWithDuration(kScrollDuration, [&] { setContentOffset(offset); });
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
    setContentOffset(
        {restingOffset(offset.x, contentSize_.width, frame().width, pagingEnabled_),
         restingOffset(offset.y, contentSize_.height, frame().height, pagingEnabled_)});
}

}  // namespace gexlo
