#include "app/class_hour_bubble.h"

#include "presentation/panels/date_view.h"
#include "presentation/panels/title_view.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

/// Before it slides down; it ends where the title begins.
constexpr CGRect kBubble{8, 0, GXDateView::kWidth - 8, GXTitleView::kHeight};
constexpr double kNameY = 5;
constexpr double kNameHeight = 18;
constexpr double kSlide = 0.2;
/// Seconds that the bubble stands at least.
constexpr double kStands = 1.4;

constexpr CGRect nameRect(double y) {
    return {2, y, kBubble.width - 4, kNameHeight};
}

UILabel& addLabel(UIView& bubble, const char* identifier, CGRect frame, UIFont font) {
    UILabel& label = bubble.add<UILabel>(frame);
    label.setAccessibilityIdentifier(identifier);
    label.setFont(font);
    label.setTextColor(UIColor::whiteColor());
    label.setMinimumScaleFactor(0.7);
    return label;
}

}  // namespace

ClassHourBubble::ClassHourBubble(UIView& screen, GXTitleView& titleView, GXDateView& dateView)
    : titleView_(titleView),
      dateView_(dateView),
      classhourBaseView_(screen.add<UIView>(kBubble)),
      lblPeriodName_(addLabel(classhourBaseView_, "lblPeriodName", nameRect(kNameY),
                              UIFont::boldSystemFontOfSize(13))),
      lblClasshour_(addLabel(classhourBaseView_, "lblClasshour", {2, 22, kBubble.width - 4, 16},
                             UIFont::systemFontOfSize(11))) {
    classhourBaseView_.setAccessibilityIdentifier("classhourBaseView");
    classhourBaseView_.setUserInteractionEnabled(false);
    classhourBaseView_.setHidden(true);
}

void ClassHourBubble::setThemes() {
    classhourBaseView_.setBackgroundColor(GXThemeManager::manager().topMenuBackgroundColor);
}

void ClassHourBubble::showClassHour_periodName(const std::string& classHour,
                                               const std::string& periodName) {
    classhourBeginTime_ = NSDate::date();
    titleView_.cancelButtonHidden(true);
    lblPeriodName_.setText(periodName);
    lblClasshour_.setText(classHour);
    // A name without an hour stands in the middle.
    lblPeriodName_.setFrame(
        nameRect(classHour.empty() ? (kBubble.height - kNameHeight) / 2 : kNameY));
    classhourBaseView_.setHidden(false);
    classhourBaseView_.setFrame(kBubble);
    classhourBaseView_.animateWithDuration(kSlide, [&] {
        classhourBaseView_.setFrame(
            kBubble.offsetBy({0, GXUIManager::manager().statusBarHeight()}));
    });
    dateView_.hide();
}

void ClassHourBubble::hideClassHour() {
    if (NSDate::date().timeIntervalSinceDate(classhourBeginTime_) < kStands) return;
    titleView_.cancelButtonHidden(false);
    classhourBaseView_.setFrame(kBubble);
    classhourBaseView_.setHidden(true);
    lblPeriodName_.setText("");
    lblClasshour_.setText("");
    dateView_.show();
}

}  // namespace gexlo
