#include "presentation/panels/top_menu.h"

#include "platform/foundation/bundle.h"
#include "platform/foundation/date_formatter.h"
#include "platform/foundation/log.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "presentation/main_screen.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"
#include "store/app_local.h"

namespace gexlo {

namespace {

constexpr double kListButtonWidth = 44;

}  // namespace

TopMenu::TopMenu(double width, double topSpace)
    : UIView({0, topSpace, width, kHeight}),
      dateView_(add<GXDateView>(CGRect{0, 0, GXDateView::kWidth, kHeight})),
      titleLabel_(add<UILabel>()),
      btnTimetableList_(addMenuButton("btnTimetableList", "top_menu_timetable_list",
                                      "TOPMENU_TIMETABLE_LIST", kListButtonWidth,
                                      &TopMenu::timetableListAction)),
      btnTessaly_(addMenuButton("btnTessaly", "top_menu_community", "TOPMENU_COMMUNITY",
                                tessalyWidth_, &TopMenu::tessalyAction)),
      btnAddSubject_(addMenuButton("btnAddSubject", "top_menu_add_subject", "BOTTOM_MENU_ADD",
                                   addSubjectWidth_, &TopMenu::addSubjectAction)),
      btnSubjectList_(addMenuButton("btnSubjectList", "top_menu_subject_list", "BOTTOM_MENU_EDIT",
                                    subjectListWidth_, &TopMenu::subjectListAction)),
      btnMore_(addMenuButton("btnMore", "top_menu_more", "BOTTOM_MENU_MORE", moreMenuWidth_,
                             &TopMenu::moreAction)) {
    setAccessibilityIdentifier("topMenu");
    titleLabel_.setAccessibilityIdentifier("titleLabel");
    titleLabel_.setFont(UIFont::boldSystemFontOfSize(17));
    titleLabel_.setTextAlignment(NSTextAlignment::center);
    titleLabel_.setMinimumScaleFactor(0.6);
    for (UIButton* hidden : {&btnAddSubject_, &btnSubjectList_, &btnMore_})
        hidden->setHidden(true);
    const GXAppLocal& local = GXAppLocal::appLocal();
    if (!local.isKorean() && !local.isJapanease()) {
        // The community is offered to these two languages alone.
        btnTessaly_.setHidden(true);
        tessalyWidth_ = 0;
        titleSpaceRight_ = 32;
    }
    setThemes();
    layOut();
}

UIButton& TopMenu::addMenuButton(const char* identifier, const char* image, const char* spokenKey,
                                 double width, void (TopMenu::*action)()) {
    UIButton& button = add<UIButton>(CGRect{0, 0, width, kHeight});
    button.setAccessibilityIdentifier(identifier);
    button.setAccessibilityLabel(NSLocalizedString(spokenKey));
    button.setImage(UIImage::imageNamed(image));
    button.addAction(UIControlEvent::touchUpInside, [this, action] {
        if (!isLocked_) (this->*action)();
    });
    return button;
}

void TopMenu::layOut() {
    const double width = frame().width;
    double x = width;
    const auto place = [&](UIButton& button, double buttonWidth, double space) {
        x -= buttonWidth + space;
        button.setFrame({x, 0, buttonWidth, kHeight});
    };
    place(btnMore_, moreMenuWidth_, moreMenuWidth_ > 0 ? moreSpace_ : 0);
    place(btnTimetableList_, kListButtonWidth, 0);
    place(btnTessaly_, tessalyWidth_, tessalySpace_);
    place(btnSubjectList_, subjectListWidth_, subjectListSpace_);
    place(btnAddSubject_, addSubjectWidth_, addSubjectSpace_);
    titleLabel_.setFrame({titleSpaceLeft_, 0, x - titleSpaceRight_ - titleSpaceLeft_, kHeight});
}

void TopMenu::setThemes() {
    const GXThemeManager& theme = GXThemeManager::manager();
    setBackgroundColor(theme.topMenuBackgroundColor);
    titleLabel_.setTextColor(theme.topMenuFontColor);
    for (UIButton* button :
         {&btnTimetableList_, &btnTessaly_, &btnAddSubject_, &btnSubjectList_, &btnMore_}) {
        button->setTintColor(theme.topMenuFontColor);
    }
}

void TopMenu::setTimetableName(std::string_view name) {
    titleLabel_.setText(name);
}

void TopMenu::timetableListAction() {
    GXUIManager::manager().openTimetableList();
}

void TopMenu::tessalyAction() {
    GXUIManager::manager().openTessaly();
}

void TopMenu::addSubjectAction() {
    GXUIManager::manager().openAddLessonView();
}

void TopMenu::subjectListAction() {
    GXUIManager::manager().openLessonSelector();
}

void TopMenu::moreAction() {
    if (MainScreen* screen = GXUIManager::manager().mainView()) screen->openMoreMenu();
}

void TopMenu::notiTest() const {
    NSDateFormatter formatter;
    formatter.setDateStyle(DateStyle::full);
    formatter.setTimeStyle(DateStyle::full);
    NSLog("#########################");
    for (const UILocalNotification& note :
         UIApplication::sharedApplication().scheduledLocalNotifications()) {
        NSLog("%@", note.alertBody);
        NSLog("%@", formatter.stringFromDate(note.fireDate));
    }
    NSLog("=========================");
}

}  // namespace gexlo
