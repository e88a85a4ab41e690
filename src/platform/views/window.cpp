#include "platform/views/window.h"

#include "platform/foundation/device.h"
#include "platform/views/screen.h"
#include "platform/views/text_input.h"
#include "platform/views/view_controller.h"

namespace gexlo {

namespace {

struct KeyWindow {
    std::shared_ptr<UIWindow> window = std::make_shared<UIWindow>();
};

}  // namespace

UIWindow::UIWindow() : UIView(UIScreen::mainScreen().bounds()) {}
UIWindow::~UIWindow() = default;

UIWindow& UIWindow::keyWindow() {
    return *Device::current().singleton<KeyWindow>().window;
}

UIView* UIWindow::touchDown(CGPoint point) {
    touchCancel();
    if (!alerts_.empty() || isCovered_) return nullptr;
    UIView* hit = hitTest(point);
    if (hit) beginTouch(*hit, point);
    return hit;
}

void UIWindow::beginTouch(UIView& hit, CGPoint point) {
    for (UIView* view = &hit; view; view = view->superview())
        path_.push_back(view->shared_from_this());
    hit.touchesBegan(point);
}

void UIWindow::touchMoved(CGPoint point) {
    if (!touched()) return;
    const auto view = path_.front();
    if (view->isDescendantOf(*this)) view->touchesMoved(point);
}

UIView* UIWindow::touchUp(CGPoint point) {
    if (!touched()) return nullptr;
    const auto path = std::move(path_);
    path_.clear();
    UIView& view = *path.front();
    // A view that has left the screen meanwhile was told so.
    if (!view.isDescendantOf(*this)) return nullptr;
    view.touchesEnded(point);
    return &view;
}

void UIWindow::touchCancel() {
    if (!touched()) return;
    const auto path = std::move(path_);
    path_.clear();
    path.front()->touchesCancelled();
}

bool UIWindow::canReach(const UIView& view) {
    const CGRect seen = view.visibleRect();
    if (!alerts_.empty() || isCovered_ || seen.width <= 0 || seen.height <= 0) return false;
    const UIView* hit = hitTest(seen.center());
    return hit && hit->isDescendantOf(view);
}

void UIWindow::press(UIView& view) {
    touchCancel();
    if (!canReach(view)) return;
    const CGPoint point = view.visibleRect().center();
    beginTouch(view, point);
    touchUp(point);
}

void UIWindow::present(UIAlert alert) {
    touchCancel();
    alerts_.push_back(std::move(alert));
    ++alertNumber_;
    markChanged();
}

bool UIWindow::setAlertText(std::size_t field, std::string_view text) {
    if (alerts_.empty() || field >= alerts_.back().fields.size()) return false;
    alerts_.back().fields[field].text = onOneLine(text);
    markChanged();
    return true;
}

void UIWindow::answer(std::size_t button, const std::vector<std::string>& texts) {
    if (alerts_.empty() || button >= alerts_.back().buttons.size()) return;
    for (std::size_t i = 0; i < texts.size(); ++i)
        setAlertText(i, texts[i]);
    UIAlert alert = std::move(alerts_.back());
    alerts_.pop_back();
    ++alertNumber_;
    markChanged();
    if (alert.dismissed) alert.dismissed(button, alert.fields);
}

void UIWindow::dropAlertsOf(const UIView& view) {
    const auto isOfView = [&](const UIAlert& alert) {
        const auto owner = alert.owner.lock();
        return owner && owner->isDescendantOf(view);
    };
    if (!alerts_.empty() && isOfView(alerts_.back())) ++alertNumber_;
    if (std::erase_if(alerts_, isOfView) > 0) markChanged();
}

void UIWindow::setCovered(bool covered) {
    if (covered) touchCancel();
    isCovered_ = covered;
}

void UIWindow::setRootViewController(std::shared_ptr<UIViewController> controller) {
    root_ = std::move(controller);
    insertSubview_atIndex(root_->view(), 0);
}

void UIWindow::makeKeyAndVisible() {
    UIViewController::endAppearance(root_->beginAppearance(true, false), false);
}

void UIWindow::setFirstResponder(UITextInput* input) {
    if (input == firstResponder_.get()) return;
    const auto former = std::move(firstResponder_);
    firstResponder_ =
        input ? std::static_pointer_cast<UITextInput>(input->shared_from_this()) : nullptr;
    if (former) former->focusChanged(false);
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    const double height = Device::current().facts().keyboardHeight;
    if (height == 0 || this != &keyWindow()) {
        // A device with keys of its own shows none, and an alert's fields move nothing.
    } else if (!former && input) {
        center.postNotificationName(kKeyboardWillShowNotification, {kKeyboardHeight(height)});
    } else if (former && !input) {
        center.postNotificationName(kKeyboardWillHideNotification);
    }
    if (input) input->focusChanged(true);
}

void UIWindow::viewWillLeave(UIView& view) {
    if (firstResponder_ && firstResponder_->isDescendantOf(view)) setFirstResponder(nullptr);
    if (touched() && touched()->isDescendantOf(view)) touchCancel();
    dropAlertsOf(view);
}

}  // namespace gexlo
