// The root of the view tree, where touches enter, with the alerts that lie over it.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "platform/views/alert.h"
#include "platform/views/view.h"

namespace gexlo {

class UITextInput;
class UIViewController;

/// Posted on the default centre when the keyboard comes, with its height, and when it goes.
inline constexpr const char* kKeyboardWillShowNotification = "UIKeyboardWillShowNotification";
inline constexpr const char* kKeyboardWillHideNotification = "UIKeyboardWillHideNotification";
inline constexpr UserInfoKey<double> kKeyboardHeight{"height"};  ///< points

/// As large as the screen.
class UIWindow final : public UIView {
public:
    UIWindow();
    ~UIWindow() override;
    /// The application's one window, made at first call.
    static UIWindow& keyWindow();

    const char* className() const override { return "UIWindow"; }
    UIWindow* window() override { return this; }
    const UIWindow* window() const override { return this; }

    // MARK: touches

    /// One finger: each returns the view that takes the touch, or null where an alert is up
    /// or nothing is hit; what the touch does may have removed it by then. A second touch before
    /// the first has ended cancels the first.
    std::shared_ptr<UIView> touchDown(CGPoint point);
    void touchMoved(CGPoint point);
    std::shared_ptr<UIView> touchUp(CGPoint point);
    void touchCancel();
    /// Whether a finger in the middle of what is seen of a view reaches it or one within.
    bool canReach(const UIView& view);
    /// A key that presses a view: down and up in the middle of what is seen of it, on that view
    /// whatever lies upon it. Does nothing where a finger could not reach it.
    void press(UIView& view);
    /// The view that a finger is on, or null.
    UIView* touched() const { return path_.empty() ? nullptr : path_.front().get(); }

    // MARK: alerts

    void present(UIAlert alert);
    /// Topmost last.
    const std::vector<UIAlert>& alerts() const { return alerts_; }
    /// Another number whenever another alert is topmost.
    unsigned alertNumber() const { return alertNumber_; }
    /// Writes into a field of the topmost alert, which keeps one line of it for the answer.
    /// Whether there is such a field.
    bool setAlertText(std::size_t field, std::string_view text);
    /// Takes the topmost alert away, and then tells who presented it. Does nothing for a
    /// button that it has not. A field without a text of its own keeps what it holds.
    void answer(std::size_t button, const std::vector<std::string>& texts = {});
    /// Takes away the alerts of a view and of all under it, for one that closes or leaves.
    void dropAlertsOf(const UIView& view);

    /// While something of the host's lies over all, as a composer, no touch is taken.
    bool isCovered() const { return isCovered_; }
    void setCovered(bool covered);

    // MARK: screens

    /// The screen below all others, or null. Whoever made it holds it.
    std::shared_ptr<UIViewController> rootViewController() const { return root_.lock(); }
    void setRootViewController(UIViewController& controller);
    /// Tells the root screen that it appears.
    void makeKeyAndVisible();

    // MARK: focus

    /// What the keyboard writes to, or null.
    UITextInput* firstResponder() const { return firstResponder_.get(); }
    /// Gives the focus, or with null takes it away; the keyboard follows. The one that had it
    /// is told first, and one that it moves on to takes the place of this one.
    void setFirstResponder(UITextInput* input);

    /// Ends what a person does with a view and all under it: a touch, typing and alerts.
    void viewWillLeave(UIView& view);
    /// Ends typing and alerts for one that has left, unless it is back by now.
    void viewDidLeave(const UIView& view);
    /// Ends a touch on a view or one under it.
    void cancelTouchOn(const UIView& view);

private:
    std::shared_ptr<UIView> beginTouch(UIView& hit, CGPoint point);
    void showKeyboard(bool shown);
    void endUseOf(const UIView& view);

    std::vector<UIAlert> alerts_;
    unsigned alertNumber_ = 0;
    bool isCovered_ = false;
    // The touched view and all above it: any of them may be removed by what the touch does.
    std::vector<std::shared_ptr<UIView>> path_;
    std::shared_ptr<UITextInput> firstResponder_;
    bool hasBegun_ = false;  // whether the first responder has been told so
    bool hasKeyboard_ = false;
    std::weak_ptr<UIViewController> root_;
};

}  // namespace gexlo
