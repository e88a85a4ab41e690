#include "app/main_view.h"

#include "platform/foundation/user_defaults.h"
#include "presentation/notifications.h"
#include "presentation/panels/more_menu.h"
#include "presentation/settings_manager.h"
#include "presentation/style/color_manager.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"
#include "store/app_local.h"
#include "store/data_manager.h"
#include "store/user_default_keys.h"
#include "time/periods_controller.h"

namespace gexlo {

namespace {

/// Points of black above and below the screen, for what slides beyond it.
constexpr double kOuterBar = 200;
/// The bubble before it slides down; it ends where the title begins.
constexpr CGRect kBubble{8, 0, GXDateView::kWidth - 8, 44};
constexpr double kBubbleNameY = 5;
constexpr double kBubbleNameHeight = 18;
constexpr double kBubbleSlide = 0.2;
/// Seconds that the bubble stands at least.
constexpr double kBubbleStands = 1.4;

}  // namespace

GXMainView::GXMainView() : view_(std::make_shared<UIView>()) {
    buildViews();
    GXUIManager& manager = GXUIManager::manager();
    manager.setMainView(this);
    manager.setTopTitleView(titleView_);
    initAppInformationFromCoreData();
    setCurrentTimetableFromCoreData();
    setTimetablePosition(
        NSUserDefaults::standardUserDefaults().integerForKey(user_default::kLastTimetableIndex));
}

GXMainView::~GXMainView() {
    GXUIManager& manager = GXUIManager::manager();
    manager.setMainView(nullptr);
    manager.setTopTitleView(nullptr);
}

/// From bottom to top.
void GXMainView::buildViews() {
    const ScreenFacts& screen = GXUIManager::manager().screen();
    const double width = screen.screenWidth;
    const double height = screen.screenHeight;
    const double top = screen.statusBarHeight;
    view_->setAccessibilityIdentifier("mainView");
    view_->setFrame({0, 0, width, height});
    view_->setBackgroundColor(UIColor::colorWithWhite(0.8F));
    backgroundImageView_ = &view_->add<UIImageView>(CGRect{0, 0, width, height});
    backgroundImageView_->setAccessibilityIdentifier("backgroundImageView");
    view_->addSubview(timetablePallet_.view());
    topMenu_ = &view_->add<TopMenu>(width, top);
    addLessonView_ = std::make_shared<GXAddLessonView>(*this);
    view_->addSubview(addLessonView_);
    titleView_ = &view_->add<GXTitleView>(width, top);
    buildClasshourBubble();
    bottomMenu_ = &view_->add<GXBottomMenu>(
        CGRect{0, height - screen.bottomViewHeight, width, screen.bottomViewHeight});
    statusBarBase_ = &addBar("statusBarBase", {0, 0, width, top}, UIColor::blackColor());
    addBar("", {0, -kOuterBar, width, kOuterBar}, UIColor::blackColor());
    addBar("", {0, height, width, kOuterBar}, UIColor::blackColor());
    setThemes();
}

UIView& GXMainView::addBar(const char* identifier, CGRect frame, UIColor color) {
    UIView& bar = view_->add<UIView>(frame);
    bar.setAccessibilityIdentifier(identifier);
    bar.setBackgroundColor(color);
    return bar;
}

void GXMainView::buildClasshourBubble() {
    classhourBaseView_ = &view_->add<UIView>(kBubble);
    classhourBaseView_->setAccessibilityIdentifier("classhourBaseView");
    classhourBaseView_->setUserInteractionEnabled(false);
    classhourBaseView_->setHidden(true);
    const struct {
        UILabel*& label;
        const char* identifier;
        CGRect frame;
        UIFont font;
    } labels[] = {
        {lblPeriodName_,
         "lblPeriodName",
         {2, kBubbleNameY, kBubble.width - 4, kBubbleNameHeight},
         UIFont::boldSystemFontOfSize(13)},
        {lblClasshour_,
         "lblClasshour",
         {2, 22, kBubble.width - 4, 16},
         UIFont::systemFontOfSize(11)},
    };
    for (const auto& [label, identifier, frame, font] : labels) {
        label = &classhourBaseView_->add<UILabel>(frame);
        label->setAccessibilityIdentifier(identifier);
        label->setFont(font);
        label->setTextColor(UIColor::whiteColor());
        label->setMinimumScaleFactor(0.7);
    }
}

void GXMainView::setThemes() {
    topMenu_->setThemes();
    titleView_->setThemes();
    topMenu_->dateView().setThemes();
    bottomMenu_->setThemes();
    addLessonView_->setThemes();
    const UIColor chrome = GXThemeManager::manager().topMenuBackgroundColor;
    statusBarBase_->setBackgroundColor(chrome);
    classhourBaseView_->setBackgroundColor(chrome);
}

void GXMainView::initAppInformationFromCoreData() {
    GXDataManager& manager = GXDataManager::manager();
    context_ = manager.context();
    GXAppSettingData& setting = manager.appSettingData();
    if (setting.lastTimetableIndex.get() != -1) {
        manager.setCurrentTimetableNo(manager.startingTimetableNo());
        setting.dataVersion = GXDataManager::kDataVersion;
    } else {
        manager.setCurrentTimetableNo(0);
    }
    manager.saveContext();
}

GXTimetableData& GXMainView::timetableToLoad() {
    GXDataManager& manager = GXDataManager::manager();
    if (GXTimetableData* current = manager.currentTimetableData()) return *current;
    const auto list = manager.timetableList();
    GXTimetableData* timetable = nullptr;
    if (!list.empty()) {
        // The current number stays that of the missing timetable until the next start.
        timetable = list.front();
    } else {
        timetable = &manager.addNewTimetable();
        manager.setCurrentTimetableNo(timetable->index.get());
    }
    manager.setStartingTimetable_fixed(timetable->index.get(), true);
    return *timetable;
}

void GXMainView::setCurrentTimetableFromCoreData() {
    GXDataManager& manager = GXDataManager::manager();
    GXTimetableData& timetable = timetableToLoad();
    timetablePallet_.updateFromData();
    topMenu_->setTimetableName(timetablePallet_.name());
    setBackgroundImage(timetable.backgroundImage.get());
    // Whatever was imported or copied, the language decides.
    timetable.useAbsenceCounting = GXAppLocal::appLocal().isJapanease();
    manager.saveContext();
    topMenu_->dateView().setUseAbsenceCount(timetable.useAbsenceCounting.get());
}

void GXMainView::setBackgroundImage(const std::string& name) {
    const auto color = GXColorManager::colorManager().backgroundColorWithName(name);
    backgroundImageView_->setBackgroundColor(color.value_or(UIColor::clearColor()));
}

void GXMainView::updateAlarms() {
    GXDataManager& manager = GXDataManager::manager();
    const GXPeriodsController* periods = GXSettingsManager::manager().periodsInfo();
    const GXTimetableData* timetable = manager.currentTimetableData();
    if (!timetable || !periods) return;
    for (const GXLessonData* lesson : timetable->lessons.allObjects()) {
        for (GXDayNPeriodData* placement : lesson->times.allObjects()) {
            if (periods->indexOfPeriodNo(placement->period.get()) == -1) {
                manager.clearAlarmInClass(*placement);
            }
        }
    }
}

void GXMainView::addPanel(std::shared_ptr<UIView> panel) {
    view_->addSubview(std::move(panel));
}

void GXMainView::lockMenu(bool locked) {
    bottomMenu_->setIsLocked(locked);
    topMenu_->dateView().setIsLocked(locked);
}

// MARK: the panel of a subject

void GXMainView::openAddMode() {
    addLessonView_->openAddMode();
}

void GXMainView::openEditMode(GXLessonData& lesson) {
    addLessonView_->openEditMode(lesson);
}

void GXMainView::saveLesson() {
    addLessonView_->save();
}

void GXMainView::cancelLessonEditing() {
    addLessonView_->cancel();
}

void GXMainView::showColorSelectViewWithColorIndex_andFontColorIndex(NSInteger color,
                                                                     NSInteger fontColor) {
    const auto selector = std::make_shared<GXColorSelector>(view_->bounds(), *this);
    addPanel(selector);
    selector->showWithColorIndex_andFontColorIndex(color, fontColor);
}

void GXMainView::colorSelected_andFontColor(NSInteger color, NSInteger fontColor) {
    addLessonView_->setSubjectColorByIndex_andFontColor(color, fontColor);
}

// MARK: the bubble

void GXMainView::showClassHour_periodName(const std::string& classHour,
                                          const std::string& periodName) {
    classhourBeginTime_ = NSDate::date();
    titleView_->cancelButtonHidden(true);
    lblPeriodName_->setText(periodName);
    lblClasshour_->setText(classHour);
    // A name without an hour stands in the middle.
    const double nameY =
        classHour.empty() ? (kBubble.height - kBubbleNameHeight) / 2 : kBubbleNameY;
    lblPeriodName_->setFrame({2, nameY, kBubble.width - 4, kBubbleNameHeight});
    classhourBaseView_->setHidden(false);
    classhourBaseView_->setFrame(kBubble);
    classhourBaseView_->animateWithDuration(kBubbleSlide, [&] {
        classhourBaseView_->setFrame(
            kBubble.offsetBy({0, GXUIManager::manager().statusBarHeight()}));
    });
    topMenu_->dateView().hide();
}

void GXMainView::hideClassHour() {
    if (NSDate::date().timeIntervalSinceDate(classhourBeginTime_) < kBubbleStands) return;
    titleView_->cancelButtonHidden(false);
    classhourBaseView_->setFrame(kBubble);
    classhourBaseView_->setHidden(true);
    lblPeriodName_->setText("");
    lblClasshour_->setText("");
    topMenu_->dateView().show();
}

// MARK: menus

void GXMainView::openMoreMenu() {
    const auto menu = std::make_shared<GXMoreMenu>(view_->bounds());
    addPanel(menu);
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_LESSON_INFO_CLOSE);
    lockMenu(true);
    menu->open();
}

void GXMainView::dateViewAbsence(int count) {
    topMenu_->dateView().setAbsenceCount(count);
}

void GXMainView::dateViewLateness(int count) {
    topMenu_->dateView().setLatenessCount(count);
}

}  // namespace gexlo
