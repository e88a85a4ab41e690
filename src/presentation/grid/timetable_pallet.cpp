#include "presentation/grid/timetable_pallet.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/calendar.h"
#include "platform/foundation/main_queue.h"
#include "platform/views/button.h"
#include "presentation/grid/pallet_scrolling.h"
#include "presentation/notifications.h"
#include "presentation/style/color_manager.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"
#include "time/periods_controller.h"

namespace gexlo {

namespace {

constexpr float kHalfLineAlpha = 0.35F;
constexpr double kPanelDuration = 0.2;
constexpr double kContentDuration = 0.3;

template <typename View, typename... Arguments>
std::shared_ptr<View> named(const char* identifier, Arguments&&... arguments) {
    auto view = std::make_shared<View>(std::forward<Arguments>(arguments)...);
    view->setAccessibilityIdentifier(identifier);
    return view;
}

}  // namespace

GXTimetablePallet::GXTimetablePallet() {
    buildViews();
    observe();
}

void GXTimetablePallet::buildViews() {
    const ScreenFacts& screen = GXUIManager::manager().screen();
    view_ = named<UIView>("timetablePallet",
                          CGRect{0, screen.statusBarHeight + ScreenFacts::kTopMenuHeight,
                                 screen.screenWidth, screen.contentFullHeight});
    view_->setClipsToBounds(true);
    mainScrollView_ = named<PDScrollView>("mainScrollView");
    mainScrollView_->setPagingEnabled(true);
    subScrollView_ = named<PDScrollView>("subScrollView");
    blinkIndex_ = named<UIView>("blinkIndex");
    btnIndexA_ = named<UIButton>("btnIndexA");
    btnIndexB_ = named<UIButton>("btnIndexB");
    daysView1_ = named<GXDaysView>("daysView1", 0);
    daysView2_ = named<GXDaysView>("daysView2", 1);
    timetable1_ = named<GXTimetableView>("timetable1", 0);
    timetable2_ = named<GXTimetableView>("timetable2", 1);

    view_->addSubview(mainScrollView_);
    mainScrollView_->addSubview(subScrollView_);
    subScrollView_->addSubview(timetable1_);
    subScrollView_->addSubview(timetable2_);
    for (const auto& view : std::initializer_list<std::shared_ptr<UIView>>{
             daysView1_, daysView2_, blinkIndex_, btnIndexA_, btnIndexB_}) {
        mainScrollView_->addSubview(view);
    }
    const struct {
        UIButton& button;
        const char* image;
        NSInteger tag;
        const char* spoken;
    } corners[] = {{*btnIndexA_, "button_index_0", 0, "PALLET_SHOW_SECOND_WEEK"},
                   {*btnIndexB_, "button_index_1", 1, "PALLET_SHOW_FIRST_WEEK"}};
    for (const auto& corner : corners) {
        corner.button.setBackgroundImage(UIImage::imageNamed(corner.image));
        corner.button.setTag(corner.tag);
        corner.button.setAccessibilityLabel(NSLocalizedString(corner.spoken));
        corner.button.addAction(UIControlEvent::touchUpInside,
                                [this, tag = corner.tag] { indexButtonDidPush(tag); });
    }
}

void GXTimetablePallet::observe() {
    using Handler = std::function<void(const NSNotification&)>;
    const Handler opened = [this](const auto&) { bottomViewOpened(); };
    const Handler closed = [this](const auto&) { bottomViewClosed(); };
    const std::pair<const char*, Handler> handlers[] = {
        {GX_NOTI_BEGIN_ADD_LESSON, opened},
        {GX_NOTI_BEGIN_EDIT_LESSON, opened},
        {GX_NOTI_CANCEL_ADD_LESSON, closed},
        {GX_NOTI_CANCEL_EDIT_LESSON, closed},
        {GX_NOTI_FINISH_ADD_NEW_LESSON, closed},
        {GX_NOTI_FINISH_EDIT_LESSON, closed},
        {GX_NOTI_LESSON_INFO_OPEN, [this](const auto& note) { classInfoViewOpened(note); }},
        {GX_NOTI_LESSON_INFO_CLOSE, closed},
        {GX_NOTI_CLOSE_ALL_SUBVIEWS, closed},
        {kSignificantTimeChangeNotification, [this](const auto&) { setDayToday(); }},
    };
    for (const auto& [name, handler] : handlers) {
        tokens_.push_back(NSNotificationCenter::defaultCenter().addObserver(name, handler));
    }
}

// MARK: filling the grid

void GXTimetablePallet::updateFromData() {
    const GXTimetableData* timetable = GXDataManager::manager().currentTimetableData();
    if (!timetable) return;
    readTimetable(*timetable);
    setTimetableParameters(*timetable);
    looks_ = looksOf(*timetable);
    setDayCells();
    setCorners();
    setScrollViews();
    const GXPeriodsController& periods = *GXUIManager::manager().periods();
    timetable1_->update(grid_, looks_.grid, periods);
    if (hasTwoWeeks()) {
        timetable2_->update(grid_, looks_.grid, periods);
    } else {
        timetable2_->clearLessonCells();
    }
    timetable2_->setHidden(!hasTwoWeeks());
    setLessons(*timetable);
}

void GXTimetablePallet::readTimetable(const GXTimetableData& timetable) {
    name_ = timetable.name.get();
    backgroundImageName_ = timetable.backgroundImage.get();
    GXUIManager& manager = GXUIManager::manager();
    if (GXPeriodsController* periods = manager.periods()) {
        periods->setTimetableData(timetable);
    } else {
        manager.setPeriods(std::make_unique<GXPeriodsController>(timetable));
    }
    manager.setUseSameClasshours(timetable.useSameClasshours.get());
    manager.setDaysToNumbers(timetable.daysToNumbers.get());
    manager.setNumDays(numDays(timetable.firstDay.get(), timetable.lastDay.get()));
}

GXTimetablePallet::Looks GXTimetablePallet::looksOf(const GXTimetableData& timetable) const {
    const GXColorManager& colors = GXColorManager::colorManager();
    const auto color = [&](const auto& name, const auto& alpha) {
        return colors.tableColorWithName_alpha(name.get(), alpha.get());
    };
    const UIColor border = color(timetable.colorBorder, timetable.alphaBorder);
    Looks looks;
    looks.grid = {
        .border = border,
        .borderHalf = border.colorWithAlphaComponent(std::min(border.alpha, kHalfLineAlpha)),
        .background = color(timetable.colorTableBack, timetable.alphaTableBack),
        .periodsBackground = color(timetable.colorPeriodsBack, timetable.alphaPeriodsBack),
        .periodsFont = colors.tableColorWithName(timetable.colorPeriodsFont.get()),
        .useHalfPeriods = timetable.useHalfPeriods.get(),
        .showClasstimes = timetable.showClasstimes.get(),
        .useSameClasshours = timetable.useSameClasshours.get(),
        .subjectTextSize = timetable.textSize.get(),
    };
    looks.days = {
        .background = color(timetable.colorDaysBack, timetable.alphaDaysBack),
        .font = colors.tableColorWithName(timetable.colorDaysFont.get()),
        .border = border,
        .daysToNumbers = timetable.daysToNumbers.get(),
    };
    return looks;
}

void GXTimetablePallet::setTimetableParameters(const GXTimetableData& timetable) {
    const GXUIManager& manager = GXUIManager::manager();
    grid_ = gridGeometry({.firstDay = timetable.firstDay.get(),
                          .lastDay = timetable.lastDay.get(),
                          .numPeriods = manager.periods()->numPeriods(),
                          .numWeeks = timetable.numWeeks.get(),
                          .daysOnLeft = timetable.daysOnLeft.get(),
                          .useHalfPeriods = timetable.useHalfPeriods.get(),
                          .screenWidth = manager.screenWidth(),
                          .contentFullHeight = manager.contentFullHeight()});
}

void GXTimetablePallet::setDayCells() {
    daysView1_->update(grid_, looks_.days);
    daysView2_->update(grid_, looks_.days);
    daysView2_->setHidden(!hasTwoWeeks());
    setDayToday();
}

void GXTimetablePallet::setDayToday() {
    const int weekday =
        NSCalendar::currentCalendar().componentsFromDate(NSDate::date()).weekday - 1;
    daysView1_->markToday(weekday);
    daysView2_->markToday(weekday);
}

void GXTimetablePallet::setCorners() {
    blinkIndex_->setFrame(grid_.cornerRect());
    blinkIndex_->setBackgroundColor(looks_.grid.border);
    blinkIndex_->setHidden(hasTwoWeeks());
    btnIndexA_->setFrame(grid_.cornerRect());
    btnIndexA_->setHidden(!hasTwoWeeks());
    btnIndexB_->setFrame(grid_.secondCornerRect());
    btnIndexB_->setHidden(!hasTwoWeeks());
}

void GXTimetablePallet::setScrollViews() {
    mainScrollView_->setFrame(grid_.mainScrollRect());
    mainScrollView_->setContentSize(grid_.mainContentSize());
    // A panel that was open over the former grid has turned it off.
    mainScrollView_->setPagingEnabled(true);
    mainScrollView_->setAlwaysBounceHorizontal(!grid_.daysOnLeft);
    mainScrollView_->setAlwaysBounceVertical(grid_.daysOnLeft);
    subScrollView_->setFrame(grid_.subScrollRect());
    subScrollView_->setContentSize(grid_.subContentSize());
    subScrollView_->setAlwaysBounceHorizontal(grid_.daysOnLeft);
    subScrollView_->setAlwaysBounceVertical(!grid_.daysOnLeft);
    mainScrollView_->setContentOffset({});
    subScrollView_->setContentOffset({});
}

void GXTimetablePallet::setLessons(const GXTimetableData& timetable) {
    for (GXLessonData* lesson : timetable.lessons.allObjects()) {
        NSNotificationCenter::defaultCenter().postNotificationName(
            GX_NOTI_SET_LESSONS,
            {user_info::kLessonData(lesson),
             user_info::kClasstimes(sortedPlacements(lesson->times.allObjects()))});
    }
}

// MARK: weeks

int GXTimetablePallet::timetablePosition() const {
    return weekAtOffset(grid_, mainScrollView_->contentOffset());
}

void GXTimetablePallet::setTimetablePosition(NSInteger position) {
    if (grid_.weeksShareAPage()) return;
    mainScrollView_->setContentOffset_animated(pageOffset(grid_, hasTwoWeeks() ? position : 0),
                                               true);
}

void GXTimetablePallet::indexButtonDidPush(NSInteger tag) {
    setTimetablePosition(tag == 0 ? 1 : 0);
}

// MARK: panels at the foot

void GXTimetablePallet::setMainContentHeight(double height) {
    mainScrollView_->setContentSize({mainScrollView_->contentSize().width, height});
}

void GXTimetablePallet::setSubContentHeight(double height) {
    subScrollView_->setContentSize({subScrollView_->contentSize().width, height});
}

void GXTimetablePallet::bottomViewOpened() {
    if (!grid_.daysOnLeft) return setSubContentHeight(grid_.tableHeight + bottomPanelHeight());
    setMainContentHeight(mainHeightWithPanel(grid_));
    mainScrollView_->setPagingEnabled(false);
}

void GXTimetablePallet::bottomViewClosed() {
    if (!grid_.daysOnLeft) {
        return subScrollView_->animateWithDuration(
            kContentDuration, [&] { setSubContentHeight(grid_.tableHeight - 1); });
    }
    mainScrollView_->setPagingEnabled(true);
    const double height = grid_.mainContentSize().height;
    const auto scrollTo = [scroll = mainScrollView_](double y) {
        scroll->setContentOffset_animated({scroll->contentOffset().x, y}, true);
    };
    if (grid_.weeksShareAPage()) {
        return mainScrollView_->animateWithDuration(
            kPanelDuration, [&] { setMainContentHeight(height); }, [scrollTo] { scrollTo(0); });
    }
    mainScrollView_->animateWithDuration(kContentDuration, [&] { setMainContentHeight(height); });
    scrollTo(offsetAfterPanel(grid_, GXUIManager::manager().contentSmallHeight(),
                              mainScrollView_->contentOffset().y));
}

void GXTimetablePallet::classInfoViewOpened(const NSNotification& notification) {
    const auto week = notification.value(user_info::kWeekNo);
    const auto positionY = notification.value(user_info::kPositionY);
    if (!week || !positionY) return;
    bottomViewOpened();
    UIScrollView& scroll = grid_.daysOnLeft ? *mainScrollView_ : *subScrollView_;
    const double y =
        offsetForBlock(grid_, GXUIManager::manager().contentSmallHeight(), *week, *positionY);
    scroll.setContentOffset_animated({scroll.contentOffset().x, y}, true);
}

void GXTimetablePallet::classInfoViewClosed(const NSNotification& notification) {
    if (notification.value(user_info::kBottomViewClosed).value_or(false)) {
        bottomViewClosed();
    } else {
        bottomViewOpened();
    }
}

}  // namespace gexlo
