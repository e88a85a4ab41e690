#include "presentation/panels/date_view.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/calendar.h"
#include "platform/foundation/date_formatter.h"
#include "platform/foundation/main_queue.h"
#include "platform/foundation/string_format.h"
#include "presentation/notifications.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"
#include "store/app_local.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr double kFadeDuration = 0.3;
constexpr double kLeft = 10;
constexpr double kCaptionWidth = 36;
constexpr double kCountX = kLeft + kCaptionWidth + 4;
constexpr const char* kWeekdayKeys[] = {"SUNDAY",   "MONDAY", "TUESDAY", "WEDNESDAY",
                                        "THURSDAY", "FRIDAY", "SATURDAY"};

UILabel& addLabel(UIView& face, const char* identifier, CGRect frame, UIFont font) {
    UILabel& label = face.add<UILabel>(frame);
    label.setAccessibilityIdentifier(identifier);
    label.setFont(font);
    label.setMinimumScaleFactor(0.7);
    return label;
}

std::string monthName(NSDate date) {
    NSDateFormatter formatter;
    formatter.setDateFormat(
        NSDateFormatter::dateFormatFromTemplate("MMM", NSLocale::currentLocale()));
    return formatter.stringFromDate(date);
}

/// Month and day in the order of language and region.
std::string monthAndDay(NSDate date) {
    const GXAppLocal& local = GXAppLocal::appLocal();
    const std::string month = monthName(date);
    const int day = NSCalendar::currentCalendar().componentsFromDate(date).day;
    if (local.isKorean() || local.isJapanease() || local.isChinese()) {
        return stringWithFormat("%@  %ld%@", month, day, NSLocalizedString("DATEVIEW_DAY"));
    }
    if (local.isUS() || local.isCanada() || local.isPhilippines()) {
        return stringWithFormat("%@  %ld", month, day);
    }
    return stringWithFormat("%ld  %@", day, month);
}

}  // namespace

GXDateView::GXDateView(CGRect frame)
    : UIView(frame),
      dateFace_(add<UIView>(bounds())),
      lblDate_(addLabel(dateFace_, "lblDate", {kLeft, 5, frame.width - 12, 18},
                        UIFont::boldSystemFontOfSize(13))),
      lblWeekday_(addLabel(dateFace_, "lblWeekday", {kLeft, 22, frame.width - 12, 16},
                           UIFont::systemFontOfSize(11))),
      absenceFace_(add<UIView>(bounds())),
      lblAbsence_(addLabel(absenceFace_, "lblAbsence", {kCountX, 5, frame.width - kCountX - 2, 17},
                           UIFont::boldSystemFontOfSize(13))),
      lblLateness_(addLabel(absenceFace_, "lblLateness",
                            {kCountX, 22, frame.width - kCountX - 2, 17},
                            UIFont::boldSystemFontOfSize(13))),
      lblAbsenceCaption_(addLabel(absenceFace_, "lblAbsenceCaption", {kLeft, 5, kCaptionWidth, 17},
                                  UIFont::systemFontOfSize(11))),
      lblLatenessCaption_(addLabel(absenceFace_, "lblLatenessCaption",
                                   {kLeft, 22, kCaptionWidth, 17}, UIFont::systemFontOfSize(11))),
      btnAbsence_(absenceFace_.add<UIButton>(bounds())) {
    setAccessibilityIdentifier("dateView");
    absenceFace_.setAlpha(0);
    lblAbsenceCaption_.setText(NSLocalizedString("DATEVIEW_ABSENT"));
    lblLatenessCaption_.setText(NSLocalizedString("DATEVIEW_LATE"));
    btnAbsence_.setAccessibilityIdentifier("btnAbsence");
    btnAbsence_.setAccessibilityLabel(NSLocalizedString("DATEVIEW_ABSENCES"));
    btnAbsence_.addAction(UIControlEvent::touchUpInside, [this] { absenceButtonAction(); });
    setAbsenceCount(0);
    setLatenessCount(0);
    setThemes();
    setDate();
    observe();
}

void GXDateView::observe() {
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    for (const char* name : {GX_NOTI_BEGIN_ADD_LESSON, GX_NOTI_BEGIN_EDIT_LESSON,
                             GX_NOTI_LESSON_INFO_CLOSE, GX_NOTI_CLOSE_ALL_SUBVIEWS}) {
        tokens_.push_back(center.addObserver(name, [this](const auto&) { openDateView(); }));
    }
    tokens_.push_back(center.addObserver(GX_NOTI_LESSON_INFO_OPEN, [this](const auto& note) {
        if (const auto lesson = note.value(user_info::kLessonData)) openAbsenceView(*lesson);
    }));
    tokens_.push_back(
        center.addObserver(kSignificantTimeChangeNotification, [this](const auto&) { setDate(); }));
}

void GXDateView::setThemes() {
    const UIColor color = GXThemeManager::manager().topMenuFontColor;
    for (UILabel* label : {&lblDate_, &lblWeekday_, &lblAbsence_, &lblLateness_,
                           &lblAbsenceCaption_, &lblLatenessCaption_})
        label->setTextColor(color);
}

void GXDateView::setDate() {
    const NSDate now = NSDate::date();
    const int weekday = NSCalendar::currentCalendar().componentsFromDate(now).weekday;
    lblDate_.setText(monthAndDay(now));
    lblWeekday_.setText(NSLocalizedString(kWeekdayKeys[weekday - 1]));
}

void GXDateView::openDateView() {
    animateWithDuration(kFadeDuration, [&] {
        dateFace_.setAlpha(1);
        absenceFace_.setAlpha(0);
    });
}

void GXDateView::openAbsenceView(GXLessonData* lesson) {
    lesson_ = lesson;
    if (!useAbsenceCount_) return;
    animateWithDuration(kFadeDuration, [&] {
        dateFace_.setAlpha(0);
        absenceFace_.setAlpha(1);
    });
}

void GXDateView::absenceButtonAction() {
    if (!isLocked_) GXUIManager::manager().openAbsenceCountView(lesson_);
}

void GXDateView::show() {
    animateWithDuration(kFadeDuration, [&] { setAlpha(1); });
}

void GXDateView::hide() {
    setAlpha(0);
}

void GXDateView::setAbsenceCount(NSInteger count) {
    lblAbsence_.setText(stringWithFormat("%ld", count));
}

void GXDateView::setLatenessCount(NSInteger count) {
    lblLateness_.setText(stringWithFormat("%ld", count));
}

void GXDateView::absenceCountUp() {
    changeAbsenceCount(1);
}

void GXDateView::absenceCountDown() {
    changeAbsenceCount(-1);
}

void GXDateView::changeAbsenceCount(NSInteger by) {
    if (!lesson_) return;
    const NSInteger count = std::max<NSInteger>(0, lesson_->absenceCount.get() + by);
    lesson_->absenceCount = count;
    GXDataManager::manager().saveContext();
    setAbsenceCount(count);
}

}  // namespace gexlo
