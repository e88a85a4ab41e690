#include "presentation/panels/pd_alert_view.h"

#include "platform/foundation/bundle.h"
#include "platform/views/screen.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

constexpr double kShowDuration = 0.3;
constexpr double kCloseDuration = 0.2;
constexpr double kButtonHeight = 44;
constexpr double kButtonsY = 96;
constexpr double kButtonWidth = 130;
constexpr UIColor kLine = UIColor::colorWithWhite(0.78F);

CGRect mainRect() {
    const CGSize screen = UIScreen::mainScreen().bounds().size();
    return {30, (screen.height - 400) / 2, 260, 140};
}

}  // namespace

PDAlertView::PDAlertView(const std::string& title, const std::string& message,
                         std::weak_ptr<PDAlertViewDelegate> delegate,
                         const std::string& positiveButtonTitle)
    : FadingPanel(UIScreen::mainScreen().bounds()),
      delegate_(std::move(delegate)),
      mainView_(add<UIView>(mainRect())),
      titleLabel_(mainView_.add<UILabel>(CGRect{10, 10, 240, 30})),
      messageLabel_(mainView_.add<UILabel>(CGRect{10, 44, 240, 46})),
      cancelButton_(addButton("cancelButton", {0, kButtonsY, kButtonWidth, kButtonHeight},
                              NSLocalizedString("CANCEL_BUTTON"))),
      positiveButton_(addButton("positiveButton",
                                {kButtonWidth, kButtonsY, kButtonWidth, kButtonHeight},
                                positiveButtonTitle)) {
    setAccessibilityIdentifier("PDAlertView");
    setBackgroundColor(UIColor::colorWithWhite(0, 0.8F));
    mainView_.setBackgroundColor(UIColor::whiteColor());
    mainView_.setCornerRadius(8);
    mainView_.setClipsToBounds(true);
    mainView_.setStrokes(
        {{{0, kButtonsY}, {2 * kButtonWidth, kButtonsY}, 0.5, kLine},
         {{kButtonWidth, kButtonsY}, {kButtonWidth, kButtonsY + kButtonHeight}, 0.5, kLine}});
    titleLabel_.setAccessibilityIdentifier("titleLabel");
    titleLabel_.setText(title);
    titleLabel_.setFont(UIFont::boldSystemFontOfSize(16));
    titleLabel_.setTextAlignment(NSTextAlignment::center);
    titleLabel_.setMinimumScaleFactor(0.7);
    messageLabel_.setText(message);
    messageLabel_.setFont(UIFont::systemFontOfSize(13));
    messageLabel_.setTextAlignment(NSTextAlignment::center);
    messageLabel_.setNumberOfLines(0);
    cancelButton_.addAction(UIControlEvent::touchUpInside, [this] {
        pressed(cancelButton_, &PDAlertViewDelegate::cancelButtonPressed);
    });
    positiveButton_.addAction(UIControlEvent::touchUpInside, [this] {
        pressed(positiveButton_, &PDAlertViewDelegate::positiveButtonPressed);
    });
}

UIButton& PDAlertView::addButton(const char* identifier, CGRect frame, const std::string& title) {
    UIButton& button = mainView_.add<UIButton>(frame);
    button.setAccessibilityIdentifier(identifier);
    button.setTitle(title);
    button.setTitleColor(UIColor::colorWithRed_green_blue(0, 0.45F, 0.85F));
    return button;
}

void PDAlertView::setTextField(std::shared_ptr<UITextField> field) {
    field->setFrame({10, 50, 240, 30});
    field->setBackgroundColor(UIColor::whiteColor());
    // White on white is found by its edge.
    field->setBorder(1, kLine);
    field->setCornerRadius(5);
    messageLabel_.setHidden(true);
    mainView_.addSubview(std::move(field));
}

void PDAlertView::show() {
    UIWindow::keyWindow().addSubview(shared_from_this());
    fadeIn(kShowDuration);
}

void PDAlertView::pressed(UIButton& button, void (PDAlertViewDelegate::*told)(PDAlertView&)) {
    if (isLeaving()) return;
    button.setBackgroundColor(UIColor::colorWithWhite(0.93F));
    if (const auto delegate = delegate_.lock()) ((*delegate).*told)(*this);
    fadeOutAndLeave(kCloseDuration);
}

}  // namespace gexlo
