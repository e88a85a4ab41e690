#include "presentation/panels/foot_panel.h"

#include <algorithm>

#include "platform/foundation/device.h"
#include "platform/views/window.h"
#include "presentation/default_values.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

constexpr double kOpenDuration = 0.35;
constexpr double kCloseDuration = 0.3;
constexpr double kCloseDelay = 0.02;
constexpr double kKeyboardDuration = 0.25;

double panelHeight() {
    return DefaultValues::shared().CLASS_INFO_VIEW_HEIGHT;
}

double closedY() {
    return GXUIManager::manager().screenHeight();
}

double titleBarBottom() {
    const ScreenFacts& screen = GXUIManager::manager().screen();
    return screen.screenHeight - screen.bottomViewHeight - screen.contentFullHeight;
}

}  // namespace

FootPanel::FootPanel()
    : UIView({0, closedY(), GXUIManager::manager().screenWidth(), panelHeight()}) {}

void FootPanel::moveTo(double y) {
    setFrame({0, y, frame().width, frame().height});
    layOut(std::max(0.0, titleBarBottom() - y));
}

void FootPanel::moveToOpenPosition() {
    moveTo(closedY() - GXUIManager::manager().bottomViewHeight() - panelHeight());
}

void FootPanel::slideIn() {
    animateWithDuration(kOpenDuration, [&] { moveToOpenPosition(); });
    isOpened_ = true;
    keyboardOn_ = false;
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    keyboard_.clear();
    keyboard_.push_back(center.addObserver(kKeyboardWillShowNotification, [this](const auto& note) {
        if (const auto height = note.value(kKeyboardHeight)) keyboardWillShow(*height);
    }));
    keyboard_.push_back(center.addObserver(kKeyboardWillHideNotification,
                                           [this](const auto&) { keyboardWillHide(); }));
}

void FootPanel::keyboardWillShow(double height) {
    if (!isOpened_) return;
    const double y = closedY() - height - frame().height;
    if (keyboardOn_) {
        moveTo(y);
    } else {
        animateWithDuration(kKeyboardDuration, [&] { moveTo(y); });
    }
    keyboardOn_ = true;
}

void FootPanel::keyboardWillHide() {
    moveToOpenPosition();
}

void FootPanel::clearView() {
    endTyping();
    keyboardOn_ = false;
    isOpened_ = false;
    keyboard_.clear();
    UIWindow::keyWindow().dropAlertsOf(*this);
    const auto slideOut = [weak = weak_from_this()] {
        const auto self = std::static_pointer_cast<FootPanel>(weak.lock());
        // Opened again meanwhile, it stays.
        if (!self || self->isOpened_) return;
        self->animateWithDuration(kCloseDuration, [&] { self->moveTo(closedY()); });
    };
    Device::current().mainQueue().after(kCloseDelay, slideOut);
}

}  // namespace gexlo
