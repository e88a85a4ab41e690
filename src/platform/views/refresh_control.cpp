#include "platform/views/refresh_control.h"

#include "platform/views/scroll_view.h"

namespace gexlo {

UIRefreshControl::UIRefreshControl()
    : UIControl(CGRect{0, -kHeight, 0, kHeight}),
      indicator_(std::make_shared<UIActivityIndicatorView>(CGRect{0, 0, 0, kHeight})) {
    setAccessibilityIdentifier("refreshControl");
    setUserInteractionEnabled(false);
    addSubview(indicator_);
}

void UIRefreshControl::setFrame(CGRect frame) {
    UIControl::setFrame(frame);
    indicator_->setFrame(bounds());
}

void UIRefreshControl::endRefreshing() {
    if (!isRefreshing()) return;
    indicator_->stopAnimating();
    auto* scroll = dynamic_cast<UIScrollView*>(superview());
    if (!scroll || scroll->contentOffset().y >= 0) return;
    scroll->setContentOffset_animated({scroll->contentOffset().x, 0}, true);
}

}  // namespace gexlo
