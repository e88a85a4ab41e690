// The look of the chrome around the grid: menus, panels, pop-ups and schedule screens.
#pragma once

#include "platform/foundation/types.h"
#include "platform/views/color.h"
#include "platform/views/image.h"

namespace gexlo {

/// Colours, widths in points and images by the place where they are used.
struct ThemeItems {
    UIColor topMenuBackgroundColor = UIColor::colorWithWhite(0.12F);
    UIColor topMenuFontColor = UIColor::whiteColor();
    UIColor bottomMenuBackgroundColor = UIColor::colorWithWhite(0.12F);
    UIColor bottomMenuFontColor = UIColor::colorWithWhite(0.85F);
    UIColor topTitleOKButtonColor{0.333F, 0.8F, 0.333F, 1.0F};
    UIColor topTitleCancelButtonColor{0.961F, 0.396F, 0.396F, 1.0F};
    UIColor classInformationBackgroundColor = UIColor::colorWithWhite(0.1F, 0.96F);
    UIColor classInformationTitleFontColor = UIColor::colorWithWhite(0.85F);
    UIColor classInformationContentFontColor = UIColor::whiteColor();
    UIColor classInformationCloseButtonColor = UIColor::whiteColor();
    UIColor classInformationScheduleOnColor = UIColor::whiteColor();
    UIColor classInformationScheduleOffColor = UIColor::colorWithWhite(0.267F);
    UIColor subViewBackgroundColor = UIColor::colorWithWhite(0.12F, 0.96F);
    UIColor subViewBorderColor = UIColor::colorWithWhite(0.7F);
    double subViewBorderWidth = 1.0;
    UIColor subViewItemColor = UIColor::whiteColor();
    UIColor popUpViewBackgroundColor{0.25F, 0.25F, 0.24F, 0.96F};
    UIColor popUpViewBorderColor = UIColor::colorWithWhite(0.4F);
    double popUpViewBorderWidth = 1.0;
    UIColor colorSelectorOKButtonColor = UIColor::whiteColor();
    UIColor colorSelectorCloseButtonColor = UIColor::whiteColor();
    UIColor moreMenuItemColor = UIColor::whiteColor();
    UIColor moreMenuTextColor = UIColor::whiteColor();
    UIImage alarmIconNone = UIImage::imageNamed("theme_basic_alarm_none");
    UIImage alarmIconOntime = UIImage::imageNamed("theme_basic_alarm_ontime");
    UIImage alarmIcon5min = UIImage::imageNamed("theme_basic_alarm_5min");
    UIImage alarmIcon10min = UIImage::imageNamed("theme_basic_alarm_10min");
    UIImage alarmIcon30min = UIImage::imageNamed("theme_basic_alarm_30min");
    UIImage alarmIcon1hour = UIImage::imageNamed("theme_basic_alarm_1hour");
    UIImage alarmIcon1day = UIImage::imageNamed("theme_basic_alarm_1day");
    UIColor scheduleViewBackgroundColor = UIColor::colorWithWhite(0.12F, 0.96F);
    UIColor scheduleViewBorderColor = UIColor::clearColor();
    double scheduleViewBorderWidth = 0.0;
    UIColor scheduleViewEmptyCellBorderColor = UIColor::whiteColor();
    UIColor scheduleViewEmptyCellTextColor = UIColor::whiteColor();
    double scheduleViewEmptyCellBorderWidth = 1.0;
    UIColor scheduleViewDetailLineColor = UIColor::colorWithWhite(0.7F);
    UIColor scheduleViewDateBackgroundColor = UIColor::colorWithWhite(0.8F);
    UIColor scheduleViewDateTextColor = UIColor::colorWithWhite(0.2F);
    UIColor scheduleViewTagColorMemo{0.984F, 0.714F, 0.176F, 1.0F};
    UIColor scheduleViewTagColorHomework{0.059F, 0.616F, 0.216F, 1.0F};
    UIColor scheduleViewTagColorExam{0.169F, 0.353F, 0.831F, 1.0F};
    UIColor scheduleViewSaveButtonColor = UIColor::whiteColor();
    UIColor scheduleViewCloseButtonColor = UIColor::whiteColor();
    UIColor scheduleViewRepeatCloseButtonColor = UIColor::whiteColor();
    UIColor timetableListSelectorCancelButtonColor{0.961F, 0.396F, 0.396F, 1.0F};
    UIImage buttonKeyboardDown = UIImage::imageNamed("theme_basic_btn_key_down");
};

/// Two themes are offered and one set of items exists: every type gives the same. Which was
/// chosen lives on in the settings, and the manager forgets it with the process.
class GXThemeManager : public ThemeItems {
public:
    static GXThemeManager& manager();

    /// The theme in use; 0 at every start, whatever was chosen before.
    NSInteger themeType() const { return themeType_; }
    /// Writes the choice to the keychain, from which nothing reads it back.
    void setThemeType(NSInteger type);

    void initSingleton() { restoreFromKeychain(); }
    /// Despite its name it reads nothing: every start begins with type 0.
    void restoreFromKeychain();
    /// The items of the type in use: the place for a second table.
    void setItems();
    void setDefaultItems() { static_cast<ThemeItems&>(*this) = ThemeItems(); }

private:
    NSInteger themeType_ = 0;
};

}  // namespace gexlo
