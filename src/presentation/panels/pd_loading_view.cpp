#include "presentation/panels/pd_loading_view.h"

#include "platform/foundation/device.h"
#include "platform/views/screen.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

constexpr float kBackgroundAlpha = 0.5F;
constexpr double kIndicator = 37;
constexpr double kBox = 80;  // of dark around it, for it is pale

CGRect centred(CGSize screen, double side) {
    return {(screen.width - side) / 2, (screen.height - side) / 2, side, side};
}

struct Shared {
    std::shared_ptr<PDLoadingView> view = std::make_shared<PDLoadingView>(kBackgroundAlpha);
};

}  // namespace

PDLoadingView& PDLoadingView::shared() {
    return *Device::current().singleton<Shared>().view;
}

PDLoadingView::PDLoadingView(float backgroundAlpha)
    : UIView(UIScreen::mainScreen().bounds()),
      box_(add<UIView>(centred(frame().size(), kBox))),
      indicator_(add<UIActivityIndicatorView>(centred(frame().size(), kIndicator))) {
    box_.setBackgroundColor(UIColor::colorWithWhite(0, 0.75F));
    box_.setCornerRadius(10);
    setAccessibilityIdentifier("PDLoadingView");
    setBackgroundColor(UIColor::colorWithWhite(0, backgroundAlpha));
}

void PDLoadingView::startLoading() {
    if (state_ != 0) return;
    state_ = 1;
    UIWindow::keyWindow().addSubview(shared_from_this());
    indicator_.startAnimating();
}

void PDLoadingView::stopLoading() {
    if (state_ != 1) return;
    state_ = 0;
    indicator_.stopAnimating();
    removeFromSuperview();
}

}  // namespace gexlo
