// The bar at the foot: manage, add, edit, share, more.
#pragma once

#include <functional>
#include <vector>

#include "platform/views/button.h"
#include "platform/views/image_view.h"
#include "platform/views/label.h"

namespace gexlo {

/// One of its buttons: an icon over a word.
class BottomMenuButton final : public UIControl {
public:
    BottomMenuButton(CGRect frame, const char* image, const char* textKey);
    const char* className() const override { return "BottomMenuButton"; }
    void setColor(UIColor color);

private:
    UIImageView& icon_;
    UILabel& label_;
};

class GXBottomMenu final : public UIView {
public:
    /// Without what the tallest screens add at the foot.
    static constexpr double kBarHeight = 55;

    explicit GXBottomMenu(CGRect frame);
    const char* className() const override { return "GXBottomMenu"; }

    void setThemes();
    bool isLocked() const { return isLocked_; }
    /// Disables the buttons and dims them, or the other way round.
    void setIsLocked(bool locked);
    void iconJustWhite();
    /// Whether the share sheet offers that service.
    void setFacebookEnabled(bool enabled) { facebookEnabled_ = enabled; }

private:
    void manage();
    void add();
    void edit();
    void share();
    void more();

    std::vector<BottomMenuButton*> buttons_;  // subviews
    bool isLocked_ = false;
    bool facebookEnabled_ = true;
};

/// The largest of three sizes with which a text fits under an icon.
UIFont getFontFromText(const std::string& text);

}  // namespace gexlo
