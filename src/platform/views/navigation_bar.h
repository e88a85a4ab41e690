// The bar above a navigation's screens.
#pragma once

#include "platform/views/button.h"
#include "platform/views/label.h"

namespace gexlo {

struct UIBarButtonItem;

/// It reaches up behind the status bar; its buttons are `back`, `left` and `right`.
class UINavigationBar final : public UIView {
public:
    /// Points below the status bar.
    static constexpr double kHeight = 44;

    UINavigationBar(CGRect frame, double statusBarHeight);
    const char* className() const override { return "UINavigationBar"; }

    // Null for a button that is not there. An item on the left stands in for the way back.
    void show(const std::string& title, const std::string* back, const UIBarButtonItem* left,
              const UIBarButtonItem* right);
    UIButton& backButton() { return *back_; }

    void setBarTintColor(UIColor color) { setBackgroundColor(color); }
    /// Of the buttons.
    void setTintColor(UIColor color);
    void setTitleColor(UIColor color) { title_->setTextColor(color); }

private:
    void place(UIButton& button, double width, bool onTheRight);
    void showItem(UIButton& button, const UIBarButtonItem* item, bool onTheRight);

    double top_;
    UILabel* title_;
    UIButton* back_;
    UIButton* left_;
    UIButton* right_;
    std::function<void()> leftAction_;
    std::function<void()> rightAction_;
};

}  // namespace gexlo
