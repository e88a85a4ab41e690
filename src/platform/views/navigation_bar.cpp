#include "platform/views/navigation_bar.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/views/text_measure.h"
#include "platform/views/view_controller.h"

namespace gexlo {

namespace {

constexpr double kLeastButton = 44;
constexpr double kPadding = 12;
constexpr double kImage = 24;
constexpr double kTitleGap = 4;
const UIFont kButtonFont = UIFont::systemFontOfSize(16);
const UIFont kTitleFont = UIFont::boldSystemFontOfSize(17);

double widthOfText(const std::string& text) {
    constexpr double unbroken = 1000;
    return TextMeasure::current().sizeOfText(text, kButtonFont, unbroken).width;
}

}  // namespace

UINavigationBar::UINavigationBar(CGRect frame, double statusBarHeight)
    : UIView(frame), top_(statusBarHeight) {
    setAccessibilityIdentifier("navigationBar");
    setBarTintColor(UIColor::colorWithWhite(0.97F));
    const double bottom = frame.height - 0.5;
    setStrokes({{{0, bottom}, {frame.width, bottom}, 1, UIColor::colorWithWhite(0.8F)}});
    title_ = &add<UILabel>();
    title_->setAccessibilityIdentifier("navigationTitle");
    title_->setFont(kTitleFont);
    title_->setTextAlignment(NSTextAlignment::center);
    title_->setMinimumScaleFactor(0.7);
    const struct {
        UIButton*& button;
        const char* identifier;
    } buttons[] = {{back_, "back"}, {left_, "left"}, {right_, "right"}};
    for (const auto& [button, identifier] : buttons) {
        button = &add<UIButton>();
        button->setAccessibilityIdentifier(identifier);
        button->setFont(kButtonFont);
    }
    back_->setImage(UIImage::imageNamed("theme_basic_schedule_view_back"));
    // A copy, for what the action shows may take the button away.
    left_->addAction(UIControlEvent::touchUpInside, [this] {
        if (const auto action = leftAction_) action();
    });
    right_->addAction(UIControlEvent::touchUpInside, [this] {
        if (const auto action = rightAction_) action();
    });
    setTintColor(UIColor::colorWithRed_green_blue(0.082F, 0.584F, 0.851F));
}

void UINavigationBar::setTintColor(UIColor color) {
    for (UIButton* button : {back_, left_, right_}) {
        button->setTitleColor(color);
        button->setTintColor(color);
    }
}

void UINavigationBar::place(UIButton& button, double width, bool onTheRight) {
    const double x = onTheRight ? frame().width - width : 0;
    button.setFrame({x, top_, width, kHeight});
}

void UINavigationBar::showItem(UIButton& button, const UIBarButtonItem* item, bool onTheRight) {
    button.setHidden(!item);
    if (!item) return;
    button.setTitle(item->title);
    button.setImage(item->image);
    button.setAccessibilityLabel(item->accessibilityLabel);
    button.setEnabled(item->isEnabled);
    place(button, std::max(kLeastButton, widthOfText(item->title) + 2 * kPadding), onTheRight);
}

void UINavigationBar::show(const std::string& title, const std::string* back,
                           const UIBarButtonItem* left, const UIBarButtonItem* right) {
    title_->setText(title);
    showItem(*left_, left, false);
    showItem(*right_, right, true);
    leftAction_ = left ? left->action : nullptr;
    rightAction_ = right ? right->action : nullptr;
    back_->setHidden(!back || left);
    if (back) {
        const std::string text = back->empty() ? NSLocalizedString("BACK_BUTTON") : *back;
        back_->setTitle(text);
        // A long title leaves room for that of the screen.
        place(*back_, std::min(frame().width / 3, widthOfText(text) + kImage + 2 * kPadding),
              false);
    }
    const auto taken = [](const UIButton& button) {
        return button.isHidden() ? 0 : button.frame().width;
    };
    const double side = std::max({taken(*back_), taken(*left_), taken(*right_)}) + kTitleGap;
    title_->setFrame({side, top_, std::max(0.0, frame().width - 2 * side), kHeight});
}

}  // namespace gexlo
