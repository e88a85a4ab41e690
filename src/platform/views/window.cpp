#include "platform/views/window.h"

#include <utility>

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

std::shared_ptr<UIView> UIWindow::touchDown(CGPoint point) {
    touchCancel();
    if (!alerts_.empty() || isCovered_) return nullptr;
    UIView* hit = hitTest(point);
    return hit ? beginTouch(*hit, point) : nullptr;
}

std::shared_ptr<UIView> UIWindow::beginTouch(UIView& hit, CGPoint point) {
    for (UIView* view = &hit; view; view = view->superview())
        path_.push_back(view->shared_from_this());
    const std::shared_ptr<UIView> held = path_.front();
    held->touchesBegan(point);
    return held;
}

void UIWindow::touchMoved(CGPoint point) {
    if (!touched()) return;
    const auto view = path_.front();
    if (view->isDescendantOf(*this)) view->touchesMoved(point);
}

std::shared_ptr<UIView> UIWindow::touchUp(CGPoint point) {
    const auto path = std::exchange(path_, {});
    // A view that has left the screen meanwhile was told so.
    if (path.empty() || !path.front()->isDescendantOf(*this)) return nullptr;
    path.front()->touchesEnded(point);
    return path.front();
}

void UIWindow::touchCancel() {
    const auto path = std::exchange(path_, {});
    if (!path.empty()) path.front()->touchesCancelled();
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

void UIWindow::setRootViewController(UIViewController& controller) {
    root_ = controller.weak_from_this();
    insertSubview_atIndex(controller.view(), 0);
}

void UIWindow::makeKeyAndVisible() {
    if (const auto root = root_.lock()) {
        UIViewController::endAppearance(root->beginAppearance(true, false), false);
    }
}

void UIWindow::setFirstResponder(UITextInput* input) {
    if (input == firstResponder_.get()) return;
    const auto next =
        input ? std::static_pointer_cast<UITextInput>(input->shared_from_this()) : nullptr;
    const auto former = std::exchange(firstResponder_, next);
    // Whoever is told may move the focus on; what comes after it here is then out of date.
    const bool hadBegun = std::exchange(hasBegun_, false);
    if (hadBegun) former->focusChanged(false);
    if (firstResponder_ == next) showKeyboard(next != nullptr);
    if (!next || firstResponder_ != next || hasBegun_) return;
    hasBegun_ = true;
    next->focusChanged(true);
}

/// A device with keys of its own shows none, and an alert's fields move nothing.
void UIWindow::showKeyboard(bool shown) {
    const double height = Device::current().facts().keyboardHeight;
    if (height == 0 || this != &keyWindow() || shown == hasKeyboard_) return;
    hasKeyboard_ = shown;
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    if (shown) {
        center.postNotificationName(kKeyboardWillShowNotification, {kKeyboardHeight(height)});
    } else {
        center.postNotificationName(kKeyboardWillHideNotification);
    }
}

void UIWindow::viewWillLeave(UIView& view) {
    cancelTouchOn(view);
    endUseOf(view);
}

void UIWindow::viewDidLeave(const UIView& view) {
    if (!view.isDescendantOf(*this)) endUseOf(view);
}

void UIWindow::cancelTouchOn(const UIView& view) {
    if (touched() && touched()->isDescendantOf(view)) touchCancel();
}

void UIWindow::endUseOf(const UIView& view) {
    if (firstResponder_ && firstResponder_->isDescendantOf(view)) setFirstResponder(nullptr);
    dropAlertsOf(view);
}

}  // namespace gexlo
