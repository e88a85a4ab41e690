#include "app/main_view.h"

#include "platform/foundation/user_defaults.h"
#include "platform/services/application.h"
#include "platform/views/window.h"
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

}  // namespace

GXMainView::GXMainView() {
    buildViews();
    GXUIManager& manager = GXUIManager::manager();
    manager.setMainView(this);
    manager.setTopTitleView(titleView_);
    manager.setDateView(&topMenu_->dateView());
    initAppInformationFromCoreData();
    setCurrentTimetableFromCoreData();
    setTimetablePosition(
        NSUserDefaults::standardUserDefaults().integerForKey(user_default::kLastTimetableIndex));
}

GXMainView::~GXMainView() {
    GXUIManager& manager = GXUIManager::manager();
    manager.setMainView(nullptr);
    manager.setTopTitleView(nullptr);
    manager.setDateView(nullptr);
}

/// From bottom to top.
void GXMainView::buildViews() {
    const ScreenFacts& screen = GXUIManager::manager().screen();
    const double width = screen.screenWidth;
    const double height = screen.screenHeight;
    const double top = screen.statusBarHeight;
    setView(std::make_shared<UIView>());
    UIView& view = *this->view();
    view.setAccessibilityIdentifier("mainView");
    view.setFrame({0, 0, width, height});
    view.setBackgroundColor(UIColor::colorWithWhite(0.8F));
    backgroundImageView_ = &view.add<UIImageView>(CGRect{0, 0, width, height});
    backgroundImageView_->setAccessibilityIdentifier("backgroundImageView");
    view.addSubview(timetablePallet_.view());
    topMenu_ = &view.add<TopMenu>(width, top);
    std::get<LessonFlow*>(flows_) = &lessonEditing_.emplace(*this);
    view.addSubview(lessonEditing_->addLessonView());
    titleView_ = &view.add<GXTitleView>(width, top);
    std::get<ClassHourFlow*>(flows_) =
        &classHourBubble_.emplace(view, *titleView_, topMenu_->dateView());
    bottomMenu_ = &view.add<GXBottomMenu>(
        CGRect{0, height - screen.bottomViewHeight, width, screen.bottomViewHeight});
    statusBarBase_ = &addBar("statusBarBase", {0, 0, width, top}, UIColor::blackColor());
    addBar("", {0, -kOuterBar, width, kOuterBar}, UIColor::blackColor());
    addBar("", {0, height, width, kOuterBar}, UIColor::blackColor());
    panels_.emplace(view);
    setThemes();
}

void GXMainView::viewWillAppear(bool) {
    UIApplication::sharedApplication().setStatusBarStyle_animated(UIStatusBarStyle::lightContent,
                                                                  false);
    UIWindow::keyWindow().setBackgroundColor(UIColor::blackColor());
}

UIView& GXMainView::addBar(const char* identifier, CGRect frame, UIColor color) {
    UIView& bar = view()->add<UIView>(frame);
    bar.setAccessibilityIdentifier(identifier);
    bar.setBackgroundColor(color);
    return bar;
}

void GXMainView::setThemes() {
    topMenu_->setThemes();
    titleView_->setThemes();
    topMenu_->dateView().setThemes();
    bottomMenu_->setThemes();
    lessonEditing_->addLessonView()->setThemes();
    classHourBubble_->setThemes();
    statusBarBase_->setBackgroundColor(GXThemeManager::manager().topMenuBackgroundColor);
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

void GXMainView::lockMenu(bool locked) {
    bottomMenu_->setIsLocked(locked);
    topMenu_->dateView().setIsLocked(locked);
}

void GXMainView::openMoreMenu() {
    const auto menu = std::make_shared<GXMoreMenu>(view()->bounds());
    panels_->present(menu);
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_LESSON_INFO_CLOSE);
    lockMenu(true);
    menu->open();
}

}  // namespace gexlo
