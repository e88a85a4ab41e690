#include "presentation/panels/more_menu.h"

#include "platform/foundation/bundle.h"
#include "platform/services/mail_composer.h"
#include "platform/views/alert.h"
#include "platform/views/image_view.h"
#include "presentation/flows/schedule_flow.h"
#include "presentation/flows/timetable_flow.h"
#include "presentation/main_screen.h"
#include "presentation/panels/share_sheet.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

constexpr double kOpenDuration = 0.2;
constexpr double kCloseDuration = 0.1;
constexpr int kColumns = 3;
constexpr int kRows = 2;
constexpr double kItemHeight = 88;
constexpr double kIcon = 32;
constexpr double kCloseHeight = 48;
constexpr double kMargin = 12;
constexpr double kWidest = 360;

CGRect panelRect(CGSize screen, double footHeight) {
    const double width = std::min(kWidest, screen.width - 2 * kMargin);
    const double height = kRows * kItemHeight + kCloseHeight + kMargin;
    return {(screen.width - width) / 2, screen.height - footHeight - kMargin - height, width,
            height};
}

}  // namespace

GXMoreMenu::GXMoreMenu(CGRect frame)
    : Panel(frame),
      panel_(add<UIView>(panelRect(frame.size(), GXUIManager::manager().bottomViewHeight()))) {
    const GXThemeManager& theme = GXThemeManager::manager();
    setAccessibilityIdentifier("GXMoreMenu");
    setBackgroundColor(UIColor::colorWithWhite(0, 0.4F));
    panel_.setBackgroundColor(theme.popUpViewBackgroundColor);
    panel_.setBorder(theme.popUpViewBorderWidth, theme.popUpViewBorderColor);
    panel_.setCornerRadius(10);
    addItems();
}

void GXMoreMenu::addItems() {
    const GXThemeManager& theme = GXThemeManager::manager();
    const struct {
        const char* identifier;
        const char* image;
        const char* textKey;
        void (GXMoreMenu::*action)();
    } items[] = {
        {"btnHomework", "theme_basic_more_homework", "MORE_HOMEWORK",
         &GXMoreMenu::openInstead<&ScheduleFlow::openAssignListView>},
        {"btnExam", "theme_basic_more_exam", "MORE_EXAM",
         &GXMoreMenu::openInstead<&ScheduleFlow::openExamListView>},
        {"btnAlarm", "theme_basic_more_alarm", "MORE_ALARM", &GXMoreMenu::alarmAction},
        {"btnShare", "theme_basic_more_share", "MORE_SHARE", &GXMoreMenu::shareAction},
        {"btnExport", "theme_basic_more_export", "MORE_EXPORT", &GXMoreMenu::exportAction},
        {"btnSettings", "theme_basic_more_settings", "MORE_SETTINGS",
         &GXMoreMenu::openInstead<&TimetableFlow::openSettingView>},
    };
    const double width = panel_.frame().width / kColumns;
    int place = 0;
    for (const auto& item : items) {
        const int row = place / kColumns;
        const CGRect frame{place % kColumns * width, kMargin + row * kItemHeight, width,
                           kItemHeight};
        UIButton& button = panel_.add<UIButton>(frame);
        button.setAccessibilityIdentifier(item.identifier);
        button.setAccessibilityLabel(NSLocalizedString(item.textKey));
        UIImageView& icon = button.add<UIImageView>(CGRect{(width - kIcon) / 2, 14, kIcon, kIcon});
        icon.setImage(UIImage::imageNamed(item.image));
        icon.setTintColor(theme.moreMenuItemColor);
        UILabel& label = button.add<UILabel>(CGRect{4, 54, width - 8, 18});
        label.setText(NSLocalizedString(item.textKey));
        label.setFont(UIFont::systemFontOfSize(12));
        label.setMinimumScaleFactor(0.7);
        label.setTextAlignment(NSTextAlignment::center);
        label.setTextColor(theme.moreMenuTextColor);
        button.addAction(UIControlEvent::touchUpInside, [this, action = item.action] {
            if (!isLeaving()) (this->*action)();
        });
        ++place;
    }
    UIButton& closeButton = panel_.add<UIButton>(
        CGRect{0, panel_.frame().height - kCloseHeight, panel_.frame().width, kCloseHeight});
    closeButton.setAccessibilityIdentifier("closeButton");
    closeButton.setTitle(NSLocalizedString("CLOSE_BUTTON"));
    closeButton.setTitleColor(theme.moreMenuTextColor);
    closeButton.addAction(UIControlEvent::touchUpInside, [this] { closeButtonAction(); });
}

void GXMoreMenu::open() {
    fadeIn(kOpenDuration);
}

void GXMoreMenu::close() {
    fadeOutAndLeave(kCloseDuration);
}

template <auto operation>
void GXMoreMenu::openInstead() {
    if (GXUIManager::manager().ask(operation)) close();
}

void GXMoreMenu::unlockAndClose() {
    GXUIManager::manager().lockMenu(false);
    close();
}

void GXMoreMenu::closeButtonAction() {
    if (!isLeaving()) unlockAndClose();
}

void GXMoreMenu::alarmAction() {
    if (MainScreen* screen = GXUIManager::manager().mainView()) screen->openAlarmListView();
    // No list opens that could unlock the menu.
    unlockAndClose();
}

void GXMoreMenu::shareAction() {
    showShareSheet(*this, true);
}

void GXMoreMenu::exportAction() {
    UIAlert sheet;
    sheet.kind = UIAlert::Kind::sheet;
    sheet.buttons = {{NSLocalizedString("EXPORT_EMAIL")},
                     {NSLocalizedString("CANCEL_BUTTON"), UIAlert::Button::Style::cancel}};
    sheet.dismissed = [weak = weak_from_this()](std::size_t button, const auto&) {
        const auto self = std::static_pointer_cast<GXMoreMenu>(weak.lock());
        if (!self || button != 0) return;
        GXUIManager::manager().openExportView();
        // The mail frees the menu once it is sent or not; where none comes, nothing else would.
        if (!MFMailComposeViewController::canSendMail()) GXUIManager::manager().lockMenu(false);
        self->close();
    };
    std::move(sheet).showFor(*this);
}

}  // namespace gexlo
