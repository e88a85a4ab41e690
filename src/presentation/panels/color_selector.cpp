#include "presentation/panels/color_selector.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/string_format.h"
#include "presentation/style/color_manager.h"
#include "presentation/style/theme_manager.h"

namespace gexlo {

namespace {

constexpr double kShowDuration = 0.2;
constexpr double kCloseDuration = 0.1;
constexpr int kColumns = 6;
constexpr double kSwatch = 40;        // as high too, where the screen is high enough
constexpr double kScreenMargin = 10;  // that a low screen leaves above and below
constexpr double kGap = 6;
constexpr double kMargin = 14;
constexpr double kTitleHeight = 26;
constexpr double kAnswerHeight = 44;
constexpr double kChosenBorder = 3;
constexpr double kPlainBorder = 2;

int rowsFor(NSInteger count) {
    return static_cast<int>((count - 1) / kColumns + 1);
}

/// Of the panel, with swatches of that height.
CGSize panelSize(double swatchHeight) {
    const int rows = rowsFor(GXColorManager::colorManager().numOfColors());
    return {2 * kMargin + kColumns * kSwatch + (kColumns - 1) * kGap,
            kMargin + (rows + 1) * (swatchHeight + kGap) + kTitleHeight + kAnswerHeight};
}

/// All of them are in sight on every screen: on a low one they are lower.
double swatchHeightFor(double screenHeight) {
    const int rows = rowsFor(GXColorManager::colorManager().numOfColors()) + 1;
    const double left = screenHeight - 2 * kScreenMargin - panelSize(0).height;
    return std::min(kSwatch, static_cast<double>(static_cast<int>(left / rows)));
}

CGRect centred(CGSize size, CGSize screen) {
    return {static_cast<double>(static_cast<int>((screen.width - size.width) / 2)),
            static_cast<double>(static_cast<int>((screen.height - size.height) / 2)), size.width,
            size.height};
}

}  // namespace

GXColorSelector::GXColorSelector(CGRect frame, GXColorSelectorDelegate& delegate)
    : Panel(frame),
      delegate_(delegate),
      swatchHeight_(swatchHeightFor(frame.height)),
      panel_(add<UIView>(centred(panelSize(swatchHeight_), frame.size()))) {
    const GXThemeManager& theme = GXThemeManager::manager();
    setAccessibilityIdentifier("GXColorSelector");
    setBackgroundColor(UIColor::colorWithWhite(0, 0.4F));
    panel_.setBackgroundColor(theme.popUpViewBackgroundColor);
    panel_.setBorder(theme.popUpViewBorderWidth, theme.popUpViewBorderColor);
    panel_.setCornerRadius(10);
    double y = kMargin;
    addSubjectColors(y);
    addFontColors(y);
    addAnswers(y);
}

GXColorSelector::Swatch GXColorSelector::addSwatch(const std::string& identifier, CGRect frame,
                                                   UIColor color, NSInteger tag) {
    UIButton& button = panel_.add<UIButton>(frame);
    button.setAccessibilityIdentifier(identifier);
    button.setTag(tag);
    button.setBackgroundColor(color);
    button.setCornerRadius(6);
    UILabel& mark = button.add<UILabel>(button.bounds());
    mark.setAccessibilityIdentifier("mark");
    mark.setText("✓");
    mark.setFont(UIFont::boldSystemFontOfSize(20));
    mark.setTextAlignment(NSTextAlignment::center);
    const bool bright = GXColorManager::colorManager().brightnessWithColor(color) > 0.7F;
    mark.setTextColor(bright ? UIColor::blackColor() : UIColor::whiteColor());
    return {&button, &mark};
}

void GXColorSelector::addSubjectColors(double& y) {
    const GXColorManager& colors = GXColorManager::colorManager();
    for (NSInteger i = 0; i < colors.numOfColors(); ++i) {
        const NSInteger row = i / kColumns;
        const CGRect frame{kMargin + static_cast<double>(i % kColumns) * (kSwatch + kGap),
                           y + static_cast<double>(row) * (swatchHeight_ + kGap), kSwatch,
                           swatchHeight_};
        colors_.push_back(
            addSwatch(stringWithFormat("subjectColor_%ld", i), frame, colors.colorAt(i), i));
        colors_.back().button->setAccessibilityLabel(
            stringWithFormat(NSLocalizedString("COLOR_SELECTOR_COLOR"), i + 1));
        colors_.back().button->addAction(UIControlEvent::touchUpInside,
                                         [this, i] { selectColor(i); });
    }
    y += rowsFor(colors.numOfColors()) * (swatchHeight_ + kGap);
}

void GXColorSelector::addFontColors(double& y) {
    const double width = panel_.frame().width;
    UILabel& title = panel_.add<UILabel>(CGRect{kMargin, y, width - 2 * kMargin, kTitleHeight});
    title.setText(NSLocalizedString("FONT_COLOR_TITLE"));
    title.setFont(UIFont::systemFontOfSize(13));
    title.setTextColor(UIColor::whiteColor());
    title.setTextAlignment(NSTextAlignment::center);
    y += kTitleHeight;
    constexpr const char* kSpoken[] = {"COLOR_SELECTOR_BLACK", "COLOR_SELECTOR_WHITE"};
    for (NSInteger tag = 0; tag < 2; ++tag) {
        const double x = width / 2 + (tag == 0 ? -kSwatch - kGap : kGap);
        fontColors_.push_back(addSwatch(stringWithFormat("fontColor_%ld", tag),
                                        {x, y, kSwatch, swatchHeight_},
                                        GXColorManager::colorManager().fontColorAt(tag), tag));
        fontColors_.back().button->setAccessibilityLabel(NSLocalizedString(kSpoken[tag]));
        fontColors_.back().button->addAction(UIControlEvent::touchUpInside,
                                             [this, tag] { selectFontColor(tag); });
    }
    y += swatchHeight_ + kGap;
}

void GXColorSelector::addAnswers(double y) {
    const GXThemeManager& theme = GXThemeManager::manager();
    const double width = panel_.frame().width / 2;
    const struct {
        const char* identifier;
        const char* image;
        const char* spokenKey;
        UIColor color;
        double x;
        void (GXColorSelector::*action)();
    } answers[] = {
        {"btnCancel", "Button_Cancel", "CANCEL_BUTTON", theme.colorSelectorCloseButtonColor, 0,
         &GXColorSelector::closeView},
        {"btnOK", "Button_OK", "OK_BUTTON", theme.colorSelectorOKButtonColor, width,
         &GXColorSelector::done},
    };
    for (const auto& answer : answers) {
        UIButton& button = panel_.add<UIButton>(CGRect{answer.x, y, width, kAnswerHeight});
        button.setAccessibilityIdentifier(answer.identifier);
        button.setAccessibilityLabel(NSLocalizedString(answer.spokenKey));
        button.setImage(UIImage::imageNamed(answer.image));
        button.setTintColor(answer.color);
        button.addAction(UIControlEvent::touchUpInside,
                         [this, action = answer.action] { (this->*action)(); });
    }
}

void GXColorSelector::mark(const std::vector<Swatch>& swatches, NSInteger chosen) {
    for (const Swatch& swatch : swatches) {
        const bool isChosen = swatch.button->tag() == chosen;
        swatch.button->setSelected(isChosen);
        swatch.button->setBorder(isChosen ? kChosenBorder : kPlainBorder,
                                 UIColor::colorWithWhite(1, isChosen ? 1.0F : 0.5F));
        swatch.mark->setHidden(!isChosen);
    }
}

void GXColorSelector::selectColor(NSInteger index) {
    colorIndex_ = index;
    mark(colors_, index);
}

void GXColorSelector::selectFontColor(NSInteger tag) {
    fontColorIndex_ = tag;
    // Black is 0, any other white.
    mark(fontColors_, tag < 0 ? tag : tag == 0 ? 0 : 1);
}

void GXColorSelector::showWithColorIndex_andFontColorIndex(NSInteger color, NSInteger fontColor) {
    selectColor(color);
    selectFontColor(fontColor);
    fadeIn(kShowDuration);
}

void GXColorSelector::done() {
    if (isLeaving()) return;
    delegate_.colorSelected_andFontColor(colorIndex_, fontColorIndex_);
    closeView();
}

void GXColorSelector::closeView() {
    fadeOutAndLeave(kCloseDuration);
}

}  // namespace gexlo
