#include "presentation/panels/add_lesson_view.h"

#include "platform/foundation/bundle.h"
#include "platform/views/alert.h"
#include "presentation/grid/cell_view.h"
#include "presentation/notifications.h"
#include "presentation/panels/lesson_entry.h"
#include "presentation/style/color_manager.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr double kKeyboardGoesDuration = 0.3;
constexpr UIColor kBackground{0, 0.25F, 0.5F, 0.98F};

GXUIManager& manager() {
    return GXUIManager::manager();
}

}  // namespace

GXAddLessonView::GXAddLessonView(GXAddLessonViewDelegate& delegate)
    : delegate_(delegate),
      form_(*this, [this] { colorButtonDidPush(); }),
      roomRow_(
          *this, [this](std::size_t place) { roomButtonDidPush(place); },
          [this] { deleteRoomButtonDidPush(); }) {
    setAccessibilityIdentifier("addLessonView");
    GXAddLessonView::layOut(0);
    setThemes();
    closeAll_ = NSNotificationCenter::defaultCenter().addObserver(
        GX_NOTI_CLOSE_ALL_SUBVIEWS, [this](const auto&) { cancel(); });
}

void GXAddLessonView::setThemes() {
    setBackgroundColor(kBackground);
    form_.setTitleColor(UIColor::whiteColor());
}

void GXAddLessonView::endTyping() {
    form_.name().resignFirstResponder();
    form_.professor().resignFirstResponder();
}

void GXAddLessonView::layOut(double covered) {
    form_.layOut(covered);
    roomRow_.setFrame(form_.roomRow());
}

void GXAddLessonView::shouldReturn(UITextInput& field) {
    field.resignFirstResponder();
}

// MARK: opening

void GXAddLessonView::open(const std::string& name, const std::string& professor,
                           const LessonRooms& rooms) {
    form_.name().setText(name);
    form_.professor().setText(professor);
    rooms_ = rooms;
    roomsChanged();
    const auto self = std::static_pointer_cast<GXAddLessonView>(shared_from_this());
    form_.name().setDelegate(self);
    form_.professor().setDelegate(self);
    slideIn();
}

void GXAddLessonView::openAddMode() {
    setThemes();
    selectedlesson_ = nullptr;
    setSubjectColorByIndex_andFontColor(0, 0);
    open("", "", LessonRooms());
}

void GXAddLessonView::openEditMode(GXLessonData& lesson) {
    setThemes();
    selectedlesson_ = &lesson;
    const GXColorManager& colors = GXColorManager::colorManager();
    setSubjectColorByIndex_andFontColor(colors.indexWithName(lesson.color.get()),
                                        colors.indexWithFontColorName(lesson.fontColor.get()));
    open(lesson.name.get(), lesson.professor ? lesson.professor->name.get() : "",
         LessonRooms({lesson.room1.get(), lesson.room2.get(), lesson.room3.get()}));
}

// MARK: colours

void GXAddLessonView::setSubjectColorByIndex_andFontColor(NSInteger color, NSInteger fontColor) {
    const GXColorManager& colors = GXColorManager::colorManager();
    const bool ownColor = color < 0 && selectedlesson_;
    const bool ownFontColor = fontColor < 0 && selectedlesson_;
    const UIColor subject =
        ownColor ? colors.colorWithName(selectedlesson_->color.get()) : colors.colorAt(color);
    const UIColor font = ownFontColor ? colors.fontColorWithName(selectedlesson_->fontColor.get())
                                      : colors.fontColorAt(fontColor);
    manager().setSelectedColor(subject);
    manager().setSelectedFontColor(font);
    form_.setSample(subject, font);
    colorIndex_ = color;
    fontColorIndex_ = fontColor;
    for (const auto& cell : manager().selectedCells()) {
        cell->setColor(subject);
        cell->setFontColor(font);
    }
}

void GXAddLessonView::colorButtonDidPush() {
    // The keyboard, as it goes, moves the panel too: within the animation, or nothing is left of
    // it.
    animateWithDuration(kKeyboardGoesDuration, [&] {
        endTyping();
        moveToOpenPosition();
    });
    delegate_.showColorSelectViewWithColorIndex_andFontColorIndex(colorIndex_, fontColorIndex_);
}

// MARK: rooms

void GXAddLessonView::roomsChanged() {
    roomRow_.show(rooms_);
    manager().setSelectedRoom(rooms_.selectedRoom());
}

void GXAddLessonView::roomButtonDidPush(std::size_t place) {
    if (place == rooms_.numRooms()) return showNewRoomView();
    // It decides what the next toggled cell takes, and changes none.
    rooms_.select(place);
    roomsChanged();
}

void GXAddLessonView::showNewRoomView() {
    endTyping();
    UIAlert alert;
    alert.title = NSLocalizedString("ADD_ROOM");
    alert.fields = {{}};
    alert.buttons = {{NSLocalizedString("CANCEL_BUTTON"), UIAlert::Button::Style::cancel},
                     {NSLocalizedString("ADD_BUTTON")}};
    alert.dismissed = [weak = weak_from_this()](std::size_t button, const auto& fields) {
        const auto self = std::static_pointer_cast<GXAddLessonView>(weak.lock());
        if (!self) return;
        self->endTyping();
        self->forgetKeyboard();
        if (button == 1) self->addRoom(fields.front().text);
    };
    std::move(alert).showFor(*this);
}

void GXAddLessonView::addRoom(const std::string& room) {
    if (room.empty() || rooms_.numRooms() == LessonRooms::kMost) return;
    if (rooms_.hasSame(room)) {
        UIAlert::notice("", NSLocalizedString("SAME_ROOM_MESSAGE"), NSLocalizedString("OK_BUTTON"))
            .showFor(*this);
        return;
    }
    rooms_.add(room);
    roomsChanged();
    for (const auto& cell : manager().selectedCells()) {
        if (cell->room().empty()) cell->setRoom(room);
    }
}

void GXAddLessonView::deleteRoomButtonDidPush() {
    const std::string removed = rooms_.removeSelected();
    roomsChanged();
    for (const auto& cell : manager().selectedCells()) {
        if (cell->room() == removed) cell->setRoom("");
    }
}

// MARK: leaving

void GXAddLessonView::save() {
    if (manager().appState() == AppState::addLesson) {
        // The two alerts differ in their button, and always did.
        if (!nameIsMissing("OK_BUTTON")) saveNewLesson();
    } else if (manager().appState() == AppState::editLesson) {
        if (!nameIsMissing("DONE_BUTTON")) saveEditedLesson();
    }
}

bool GXAddLessonView::nameIsMissing(const char* buttonKey) {
    if (!form_.name().text().empty()) return false;
    UIAlert::notice("", NSLocalizedString("SUBJECT_NAME_EMPTY_MESSAGE"),
                    NSLocalizedString(buttonKey))
        .showFor(*this);
    return true;
}

LessonEntry GXAddLessonView::entry() {
    return {
        form_.name().text(),      form_.professor().text(), colorIndex_, fontColorIndex_, rooms_,
        manager().selectedCells()};
}

void GXAddLessonView::saveNewLesson() {
    GXTimetableData* timetable = GXDataManager::manager().currentTimetableData();
    if (timetable) finish(GX_NOTI_FINISH_ADD_NEW_LESSON, addLesson(entry(), *timetable));
}

void GXAddLessonView::saveEditedLesson() {
    if (!selectedlesson_ || selectedlesson_->isDeleted()) return cancel();
    updateLesson(entry(), *selectedlesson_);
    finish(GX_NOTI_FINISH_EDIT_LESSON, *selectedlesson_);
}

void GXAddLessonView::finish(const char* notification, GXLessonData& lesson) {
    NSNotificationCenter::defaultCenter().postNotificationName(
        notification, {user_info::kLessonData(&lesson),
                       user_info::kClasstimes(sortedPlacements(lesson.times.allObjects()))});
    clearView();
    leaveMode();
    manager().lockMenu(false);
    GXDataManager::manager().dataUpdateNoUp();
}

void GXAddLessonView::cancel() {
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    if (manager().appState() == AppState::addLesson) {
        center.postNotificationName(GX_NOTI_CANCEL_ADD_LESSON);
    } else if (manager().appState() == AppState::editLesson) {
        center.postNotificationName(GX_NOTI_CANCEL_EDIT_LESSON);
    }
    clearView();
    manager().lockMenu(false);
    leaveMode();
}

void GXAddLessonView::leaveMode() {
    manager().resetSelectedCells();
    manager().stateNormal();
}

}  // namespace gexlo
