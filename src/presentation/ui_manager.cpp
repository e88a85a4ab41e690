#include "presentation/ui_manager.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/device.h"
#include "platform/foundation/notification_center.h"
#include "platform/views/alert.h"
#include "platform/views/screen.h"
#include "presentation/flows/attendance_flow.h"
#include "presentation/flows/class_hour_flow.h"
#include "presentation/flows/community_flow.h"
#include "presentation/flows/lesson_flow.h"
#include "presentation/flows/schedule_flow.h"
#include "presentation/flows/timetable_flow.h"
#include "presentation/grid/cell_view.h"
#include "presentation/main_screen.h"
#include "presentation/notifications.h"
#include "presentation/panels/date_view.h"
#include "presentation/panels/panel_stack.h"
#include "presentation/panels/slot_reveal.h"
#include "presentation/panels/subject_list_view.h"
#include "presentation/panels/title_view.h"
#include "time/periods_controller.h"

namespace gexlo {

GXUIManager& GXUIManager::manager() {
    return Device::current().singleton<GXUIManager>();
}

GXUIManager::GXUIManager() {
    constexpr std::size_t usualSelection = 20;
    selectedCells_.reserve(usualSelection);
    const CGRect frame = UIScreen::mainScreen().applicationFrame();
    screen_ = screenFacts(static_cast<float>(frame.width), static_cast<float>(frame.height),
                          static_cast<float>(frame.y));
}

GXUIManager::~GXUIManager() = default;

void GXUIManager::setPeriods(std::unique_ptr<GXPeriodsController> periods) {
    periods_ = std::move(periods);
}

void GXUIManager::addSelectedCell(std::shared_ptr<GXCellView> cell) {
    selectedCells_.push_back(std::move(cell));
}

void GXUIManager::removeSelectedCell(const GXCellView& cell) {
    std::erase_if(selectedCells_, [&](const auto& selected) { return selected.get() == &cell; });
}

void GXUIManager::resetSelectedCells() {
    selectedCells_.clear();
}

const Flows& GXUIManager::flows() const {
    static constexpr Flows none;
    return mainView_ ? mainView_->flows() : none;
}

void GXUIManager::lockMenu(bool locked) {
    if (mainView_) mainView_->lockMenu(locked);
}

void GXUIManager::openAddLessonView() {
    lockMenu(true);
    stateAddLessonMode();
    resetSelectedCells();
    ask(&LessonFlow::openAddMode);
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_BEGIN_ADD_LESSON);
}

void GXUIManager::openEditLessonView(GXLessonData* lesson) {
    if (!lesson) return;
    lockMenu(true);
    stateEditLessonMode();
    resetSelectedCells();
    ask(&LessonFlow::openEditMode, *lesson);
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_BEGIN_EDIT_LESSON,
                                                               {user_info::kLessonData(lesson)});
    revealFirstSlot(selectedCells_);
}

void GXUIManager::openLessonSelector() {
    if (!mainView_) return;
    lockMenu(true);
    const auto list = std::make_shared<SubjectListView>();
    mainView_->panels().present(list);
    list->show();
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_LESSON_INFO_CLOSE);
}

void GXUIManager::showClassHour_periodName(const std::string& classHour,
                                           const std::string& periodName) {
    ask(&ClassHourFlow::showClassHour_periodName, classHour, periodName);
}

void GXUIManager::hideClassHour() {
    ask(&ClassHourFlow::hideClassHour);
}

void GXUIManager::saveLesson() {
    ask(&LessonFlow::saveLesson);
}

void GXUIManager::cancelLessonEditing() {
    ask(&LessonFlow::cancelLessonEditing);
}

void GXUIManager::setCurrentTimetable() {
    if (mainView_) mainView_->setCurrentTimetableFromCoreData();
}

void GXUIManager::closeScheduleView() {
    ask(&ScheduleFlow::closeScheduleView);
}

void GXUIManager::openTimetableList() {
    ask(&TimetableFlow::openTimetableList);
}

void GXUIManager::openAbsenceCountView(GXLessonData* lesson) {
    ask(&AttendanceFlow::openAbsenceCountView, lesson);
}

void GXUIManager::openTessaly() {
    ask(&CommunityFlow::openTessaly);
}

void GXUIManager::showAlertView_message(const std::string& title, const std::string& message) {
    UIAlert::notice(title, message, NSLocalizedString("OK_BUTTON")).show();
}

void GXUIManager::openTopTitleViewWithScheduleIndex(NSInteger index) {
    if (topTitleView_) topTitleView_->showWithNotes(index);
}

void GXUIManager::setScheduleIndexInTopTitleView(NSInteger index) {
    if (topTitleView_) topTitleView_->setNoteIndex(index);
}

void GXUIManager::closeTopTitleViewAnimated(bool animated) {
    if (topTitleView_) topTitleView_->closeAnimated(animated);
}

void GXUIManager::lockScheduleButtonInTopTitleView(bool locked) {
    if (topTitleView_) topTitleView_->scheduleLock(locked);
}

void GXUIManager::dateViewAbsence(int count) {
    if (dateView_) dateView_->setAbsenceCount(count);
}

void GXUIManager::dateViewLateness(int count) {
    if (dateView_) dateView_->setLatenessCount(count);
}

}  // namespace gexlo
