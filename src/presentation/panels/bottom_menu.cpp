#include "presentation/panels/bottom_menu.h"

#include "platform/foundation/bundle.h"
#include "platform/foundation/notification_center.h"
#include "platform/views/text_measure.h"
#include "presentation/main_screen.h"
#include "presentation/notifications.h"
#include "presentation/panels/share_sheet.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

constexpr double kLockedAlpha = 0.3;
constexpr double kHighlightedAlpha = 0.6;
constexpr double kTextWidth = 54;
constexpr double kIcon = 24;

}  // namespace

UIFont getFontFromText(const std::string& text) {
    for (const float size : {10.0F, 9.0F}) {
        const UIFont font = UIFont::systemFontOfSize(size);
        constexpr double anyWidth = 10'000;
        if (TextMeasure::current().sizeOfText(text, font, anyWidth).width <= kTextWidth) {
            return font;
        }
    }
    return UIFont::systemFontOfSize(8);
}

BottomMenuButton::BottomMenuButton(CGRect frame, const char* image, const char* textKey)
    : UIControl(frame),
      icon_(add<UIImageView>(CGRect{(frame.width - kIcon) / 2, 8, kIcon, kIcon})),
      label_(add<UILabel>(CGRect{1, 35, frame.width - 2, 14})) {
    const std::string text = NSLocalizedString(textKey);
    icon_.setImage(UIImage::imageNamed(image));
    label_.setAccessibilityIdentifier("label");
    label_.setText(text);
    label_.setFont(getFontFromText(text));
    label_.setTextAlignment(NSTextAlignment::center);
    setAccessibilityLabel(text);
}

void BottomMenuButton::setColor(UIColor color) {
    label_.setTextColor(color);
    icon_.setTintColor(color);
}

GXBottomMenu::GXBottomMenu(CGRect frame) : UIView(frame) {
    setAccessibilityIdentifier("bottomMenu");
    const struct {
        const char* identifier;
        const char* image;
        const char* textKey;
        void (GXBottomMenu::*action)();
    } buttons[] = {
        {"btnManage", "theme_basic_bottom_menu_manage", "BOTTOM_MENU_MANAGE",
         &GXBottomMenu::manage},
        {"btnAdd", "theme_basic_bottom_menu_add", "BOTTOM_MENU_ADD", &GXBottomMenu::add},
        {"btnEdit", "theme_basic_bottom_menu_edit", "BOTTOM_MENU_EDIT", &GXBottomMenu::edit},
        {"btnShare", "theme_basic_bottom_menu_share", "BOTTOM_MENU_SHARE", &GXBottomMenu::share},
        {"btnMore", "theme_basic_bottom_menu_more", "BOTTOM_MENU_MORE", &GXBottomMenu::more},
    };
    const double width = frame.width / std::size(buttons);
    double x = 0;
    for (const auto& entry : buttons) {
        BottomMenuButton& button = UIView::add<BottomMenuButton>(CGRect{x, 0, width, kBarHeight},
                                                                 entry.image, entry.textKey);
        button.setAccessibilityIdentifier(entry.identifier);
        button.addAction(UIControlEvent::touchUpInside, [this, action = entry.action] {
            if (!isLocked_) (this->*action)();
        });
        button.addAction(UIControlEvent::touchDown, [&] { button.setAlpha(kHighlightedAlpha); });
        for (const UIControlEvent end :
             {UIControlEvent::touchUpInside, UIControlEvent::touchUpOutside,
              UIControlEvent::touchCancel}) {
            button.addAction(end,
                             [this, &button] { button.setAlpha(isLocked_ ? kLockedAlpha : 1); });
        }
        buttons_.push_back(&button);
        x += width;
    }
    setThemes();
}

void GXBottomMenu::setThemes() {
    const GXThemeManager& theme = GXThemeManager::manager();
    setBackgroundColor(theme.bottomMenuBackgroundColor);
    for (BottomMenuButton* button : buttons_)
        button->setColor(theme.bottomMenuFontColor);
}

void GXBottomMenu::setIsLocked(bool locked) {
    isLocked_ = locked;
    for (BottomMenuButton* button : buttons_) {
        button->setEnabled(!locked);
        button->setAlpha(locked ? kLockedAlpha : 1);
    }
}

void GXBottomMenu::iconJustWhite() {
    for (BottomMenuButton* button : buttons_)
        button->setAlpha(1);
}

void GXBottomMenu::manage() {
    GXUIManager& manager = GXUIManager::manager();
    if (!manager.flow<TimetableFlow>()) return;
    setIsLocked(true);
    manager.openTimetableList();
}

void GXBottomMenu::add() {
    GXUIManager::manager().openAddLessonView();
}

void GXBottomMenu::edit() {
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_LESSON_INFO_CLOSE);
    GXUIManager::manager().openLessonSelector();
}

void GXBottomMenu::share() {
    showShareSheet(*this, facebookEnabled_);
}

void GXBottomMenu::more() {
    if (MainScreen* screen = GXUIManager::manager().mainView()) screen->openMoreMenu();
}

}  // namespace gexlo
