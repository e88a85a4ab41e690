#include "presentation/panels/add_lesson_view.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/device.h"
#include "platform/views/alert.h"
#include "platform/views/window.h"
#include "presentation/default_values.h"
#include "presentation/grid/cell_view.h"
#include "presentation/notifications.h"
#include "presentation/style/color_manager.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr double kOpenDuration = 0.35;
constexpr double kCloseDuration = 0.3;
constexpr double kCloseDelay = 0.02;
constexpr double kKeyboardDuration = 0.25;

constexpr double kRow = 40;
constexpr double kMargin = 10;
constexpr double kTitleWidth = 58;
constexpr double kColorWidth = 76;
constexpr double kDeleteWidth = 44;
constexpr double kRoomGap = 4;
constexpr double kRoomCap = 20;

constexpr UIColor kBackground{0, 0.25F, 0.5F, 0.98F};
constexpr UIColor kLine = UIColor::colorWithWhite(1, 0.15F);
// The same, and two by name: a room may one day look different while it is selected.
constexpr UIColor kRoomTextColorNormal = UIColor::whiteColor();
constexpr UIColor kRoomTextColorSelected = UIColor::whiteColor();

UIImage roomImage(const char* name) {
    return UIImage::imageNamed(name).stretchableImageWithLeftCapWidth_topCapHeight(kRoomCap, 0);
}

GXUIManager& manager() {
    return GXUIManager::manager();
}

void addLine(UIView& panel, double y, double width) {
    UIView& line = panel.add<UIView>(CGRect{kMargin, y, width - kMargin, 1});
    line.setBackgroundColor(kLine);
    line.setUserInteractionEnabled(false);
}

}  // namespace

// MARK: building

GXAddLessonView::GXAddLessonView(GXAddLessonViewDelegate& delegate) : delegate_(delegate) {
    const double width = manager().screenWidth();
    const double fieldX = kMargin + kTitleWidth;
    const double fieldWidth = width - fieldX - kColorWidth - kMargin;
    setAccessibilityIdentifier("addLessonView");
    setFrame(
        {0, closedY(), width, static_cast<double>(DefaultValues::shared().CLASS_INFO_VIEW_HEIGHT)});
    addTitle("SUBJECT_TITLE", {kMargin, 0, kTitleWidth - 4, kRow});
    addTitle("PROFESSOR_TITLE", {kMargin, kRow, kTitleWidth - 4, kRow});
    addTitle("ROOM_TITLE", {kMargin, 2 * kRow, kTitleWidth - 4, kRow});
    addLine(*this, kRow - 1, width - kColorWidth - kMargin);
    addLine(*this, 2 * kRow - 1, width);
    tfName_ = &addField("tfName", "SUBJECT_PLACEHOLDER", {fieldX, 0, fieldWidth, kRow});
    tfProfessor_ =
        &addField("tfProfessor", "PROFESSOR_PLACEHOLDER", {fieldX, kRow, fieldWidth, kRow});
    addColorButton({width - kColorWidth - 4, 0, kColorWidth, 2 * kRow});
    addRoomButtons(2 * kRow);
    setThemes();
    closeAll_ = NSNotificationCenter::defaultCenter().addObserver(
        GX_NOTI_CLOSE_ALL_SUBVIEWS, [this](const auto&) { cancel(); });
}

UILabel& GXAddLessonView::addTitle(const char* textKey, CGRect frame) {
    UILabel& title = add<UILabel>(frame);
    title.setText(NSLocalizedString(textKey));
    title.setFont(UIFont::systemFontOfSize(12));
    title.setMinimumScaleFactor(0.7);
    titles_.push_back(&title);
    return title;
}

UITextField& GXAddLessonView::addField(const char* identifier, const char* textKey, CGRect frame) {
    UITextField& field = add<UITextField>(frame);
    field.setAccessibilityIdentifier(identifier);
    field.setPlaceholder(NSLocalizedString(textKey));
    field.setTextColor(UIColor::whiteColor());
    field.setFont(UIFont::systemFontOfSize(15));
    return field;
}

void GXAddLessonView::addColorButton(CGRect frame) {
    btnColor_ = &add<UIButton>(frame);
    btnColor_->setAccessibilityIdentifier("colorButtonDidPush");
    btnColor_->setAccessibilityLabel(NSLocalizedString("COLOR_TITLE"));
    btnColor_->addAction(UIControlEvent::touchUpInside, [this] { colorButtonDidPush(); });
    UILabel& title = btnColor_->add<UILabel>(CGRect{2, 6, frame.width - 4, 16});
    title.setText(NSLocalizedString("COLOR_TITLE"));
    title.setFont(UIFont::systemFontOfSize(12));
    title.setTextAlignment(NSTextAlignment::center);
    title.setMinimumScaleFactor(0.7);
    titles_.push_back(&title);
    colorSample_ = &btnColor_->add<UIView>(CGRect{12, 26, frame.width - 24, 44});
    colorSample_->setAccessibilityIdentifier("colorSample");
    colorSample_->setCornerRadius(6);
    colorSample_->setBorder(1, UIColor::colorWithWhite(1, 0.6F));
    colorSample_->setUserInteractionEnabled(false);
    fontSample_ = &colorSample_->add<UILabel>(colorSample_->bounds());
    fontSample_->setAccessibilityIdentifier("fontSample");
    fontSample_->setText("A");
    fontSample_->setFont(UIFont::boldSystemFontOfSize(20));
    fontSample_->setTextAlignment(NSTextAlignment::center);
}

void GXAddLessonView::addRoomButtons(double y) {
    static constexpr const char* kIdentifiers[] = {"btnRoom1", "btnRoom2", "btnRoom3"};
    const double x = kMargin + kTitleWidth;
    const double width = (frame().width - x - kDeleteWidth - 4) / LessonRooms::kMost;
    for (std::size_t place = 0; place < LessonRooms::kMost; ++place) {
        UIButton& button = add<UIButton>(
            CGRect{x + static_cast<double>(place) * width, y, width - kRoomGap, kRow});
        button.setAccessibilityIdentifier(kIdentifiers[place]);
        button.setFont(UIFont::systemFontOfSize(13));
        button.addAction(UIControlEvent::touchUpInside,
                         [this, place] { roomButtonDidPush(place); });
        btnRooms_[place] = &button;
    }
    btnDelLessonRoom_ =
        &add<UIButton>(CGRect{frame().width - kDeleteWidth - 2, y, kDeleteWidth, kRow});
    btnDelLessonRoom_->setAccessibilityIdentifier("btnDelLessonRoom");
    btnDelLessonRoom_->setAccessibilityLabel(NSLocalizedString("DELETE_ROOM"));
    btnDelLessonRoom_->setImage(UIImage::imageNamed("theme_basic_btn_del_room"));
    btnDelLessonRoom_->addAction(UIControlEvent::touchUpInside,
                                 [this] { deleteRoomButtonDidPush(); });
}

void GXAddLessonView::setThemes() {
    setBackgroundColor(kBackground);
    for (UILabel* title : titles_)
        title->setTextColor(UIColor::whiteColor());
}

// MARK: place on the screen

double GXAddLessonView::closedY() const {
    return manager().screenHeight();
}

double GXAddLessonView::openY() const {
    return static_cast<double>(manager().screenHeight() - manager().bottomViewHeight()) -
           DefaultValues::shared().CLASS_INFO_VIEW_HEIGHT;
}

void GXAddLessonView::moveTo(double y) {
    setFrame({0, y, frame().width, frame().height});
}

void GXAddLessonView::open() {
    const auto self = std::static_pointer_cast<GXAddLessonView>(shared_from_this());
    tfName_->setDelegate(self);
    tfProfessor_->setDelegate(self);
    animateWithDuration(kOpenDuration, [&] { moveTo(openY()); });
    isOpened_ = true;
    keyboardOn_ = false;
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    keyboard_.clear();
    keyboard_.push_back(center.addObserver(kKeyboardWillShowNotification, [this](const auto& note) {
        keyboardWillShow(std::any_cast<double>(note.userInfo.find("height")->second));
    }));
    keyboard_.push_back(center.addObserver(kKeyboardWillHideNotification,
                                           [this](const auto&) { keyboardWillHide(); }));
}

void GXAddLessonView::keyboardWillShow(double height) {
    if (!isOpened_) return;
    const double y = static_cast<double>(manager().screenHeight()) - height - frame().height;
    if (keyboardOn_) {
        moveTo(y);
    } else {
        animateWithDuration(kKeyboardDuration, [&] { moveTo(y); });
    }
    keyboardOn_ = true;
}

void GXAddLessonView::keyboardWillHide() {
    moveTo(openY());
}

void GXAddLessonView::endTyping() {
    tfName_->resignFirstResponder();
    tfProfessor_->resignFirstResponder();
}

void GXAddLessonView::clearView() {
    endTyping();
    keyboardOn_ = false;
    isOpened_ = false;
    keyboard_.clear();
    const auto slideOut = [weak = weak_from_this()] {
        const auto self = std::static_pointer_cast<GXAddLessonView>(weak.lock());
        // Opened again meanwhile, it stays.
        if (!self || self->isOpened_) return;
        animateWithDuration(kCloseDuration, [&] { self->moveTo(self->closedY()); });
    };
    Device::current().mainQueue().after(kCloseDelay, slideOut);
}

// MARK: opening

void GXAddLessonView::openAddMode() {
    setThemes();
    selectedlesson_ = nullptr;
    setSubjectColorByIndex_andFontColor(0, 0);
    tfName_->setText("");
    tfProfessor_->setText("");
    rooms_ = LessonRooms();
    roomsChanged();
    open();
}

void GXAddLessonView::openEditMode(GXLessonData& lesson) {
    setThemes();
    selectedlesson_ = &lesson;
    const GXColorManager& colors = GXColorManager::colorManager();
    setSubjectColorByIndex_andFontColor(colors.indexWithName(lesson.color.get()),
                                        colors.indexWithFontColorName(lesson.fontColor.get()));
    tfName_->setText(lesson.name.get());
    tfProfessor_->setText(lesson.professor ? lesson.professor->name.get() : "");
    rooms_ = LessonRooms({lesson.room1.get(), lesson.room2.get(), lesson.room3.get()});
    roomsChanged();
    open();
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
    colorSample_->setBackgroundColor(subject);
    fontSample_->setTextColor(font);
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
    animateWithDuration(kCloseDuration, [&] {
        endTyping();
        moveTo(openY());
    });
    delegate_.showColorSelectViewWithColorIndex_andFontColorIndex(colorIndex_, fontColorIndex_);
}

// MARK: rooms

void GXAddLessonView::roomsChanged() {
    const std::size_t count = rooms_.numRooms();
    for (std::size_t place = 0; place < btnRooms_.size(); ++place) {
        UIButton& button = *btnRooms_[place];
        const bool isSelected = place + 1 == rooms_.selectedRoomNo();
        button.setHidden(place > count);
        button.setTitle(rooms_.room(place));
        button.setTitleColor(isSelected ? kRoomTextColorSelected : kRoomTextColorNormal);
        button.setSelected(isSelected);
        if (place == count) {
            button.setBackgroundImage(roomImage("theme_basic_btn_room_add"));
            button.setImage(UIImage::imageNamed("theme_basic_list_button_add"));
            button.setAccessibilityLabel(NSLocalizedString("ADD_ROOM"));
        } else {
            button.setBackgroundImage(roomImage(isSelected ? "theme_basic_btn_room_selected"
                                                           : "theme_basic_btn_room_normal"));
            button.setImage({});
            button.setAccessibilityLabel("");
        }
    }
    btnDelLessonRoom_->setHidden(count == 0);
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
        if (!self || !self->isOpened_) return;
        self->endTyping();
        self->keyboardOn_ = false;
        if (button == 1) self->addRoom(fields.front().text);
    };
    std::move(alert).show();
}

void GXAddLessonView::addRoom(const std::string& room) {
    if (room.empty() || rooms_.numRooms() == LessonRooms::kMost) return;
    if (rooms_.hasSame(room)) {
        UIAlert::notice("", NSLocalizedString("SAME_ROOM_MESSAGE"), NSLocalizedString("OK_BUTTON"))
            .show();
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
    if (!tfName_->text().empty()) return false;
    UIAlert::notice("", NSLocalizedString("SUBJECT_NAME_EMPTY_MESSAGE"),
                    NSLocalizedString(buttonKey))
        .show();
    return true;
}

void GXAddLessonView::writeFields(GXLessonData& lesson, std::string colorName,
                                  std::string fontColorName) {
    lesson.name = tfName_->text();
    if (!lesson.professor) lesson.professor = &GXDataManager::manager().addNewProfessor();
    lesson.professor->name = tfProfessor_->text();
    if (colorIndex_ >= 0) lesson.color = std::move(colorName);
    if (fontColorIndex_ >= 0) lesson.fontColor = std::move(fontColorName);
    lesson.room1 = rooms_.room(0);
    lesson.room2 = rooms_.room(1);
    lesson.room3 = rooms_.room(2);
}

std::vector<GXDayNPeriodData*> GXAddLessonView::newPlacements() {
    std::vector<GXDayNPeriodData*> placements;
    for (const GXCellView* cell : onePerSlot(manager().selectedCells())) {
        GXDayNPeriodData& placement = GXDataManager::manager().addNewDayNPeriod();
        placement.week = cell->slot().week;
        placement.day = cell->slot().day;
        placement.period = cell->slot().periodNo;
        placement.room = cell->room();
        placements.push_back(&placement);
    }
    return placements;
}

void GXAddLessonView::saveNewLesson() {
    GXDataManager& data = GXDataManager::manager();
    GXTimetableData* timetable = data.currentTimetableData();
    if (!timetable) return;
    GXLessonData& lesson = data.addNewLessonInTimetable(*timetable);
    const GXColorManager& colors = GXColorManager::colorManager();
    writeFields(lesson, colors.colorNameAt(colorIndex_), colors.fontColorNameAt(fontColorIndex_));
    lesson.times.setObjects(newPlacements());
    data.saveContext();
    finish(GX_NOTI_FINISH_ADD_NEW_LESSON, lesson);
}

namespace {

/// A slot that stays keeps its alarm: the new placement takes it, and the old one no longer
/// counts as having one.
void takeAlarm(GXDayNPeriodData& placement, const std::vector<GXDayNPeriodData*>& former) {
    const auto old = std::find_if(former.begin(), former.end(), [&](const auto* candidate) {
        return candidate->week.get() == placement.week.get() &&
               weekdayOf(candidate->day.get()) == placement.day.get() &&
               candidate->period.get() == placement.period.get();
    });
    if (old == former.end()) return;
    using T = GXDayNPeriodData;
    for (auto member : {&T::alarmExactly, &T::alarm5min, &T::alarm10min, &T::alarm1hour})
        (placement.*member).copyFrom((**old).*member);
    placement.time.copyFrom((*old)->time);
    placement.alarmValue.copyFrom((*old)->alarmValue);
    (*old)->alarmValue = 0;
}

}  // namespace

void GXAddLessonView::saveEditedLesson() {
    if (!selectedlesson_ || selectedlesson_->isDeleted()) return cancel();
    GXLessonData& lesson = *selectedlesson_;
    GXDataManager& data = GXDataManager::manager();
    const GXColorManager& colors = GXColorManager::colorManager();
    writeFields(lesson, colors.colorNameAt(colorIndex_), colors.fontColorNameAt(fontColorIndex_));
    const std::vector<GXDayNPeriodData*> former = lesson.times.allObjects();
    const std::vector<GXDayNPeriodData*> placements = newPlacements();
    for (GXDayNPeriodData* placement : placements) {
        takeAlarm(*placement, former);
        // Each removal saves: no placement may stand in the store without its subject.
        lesson.times.addObject(*placement);
    }
    for (GXDayNPeriodData* old : former) {
        if (old->alarmValue.get() != 0) data.clearAlarmInClass(*old);
        data.removeData(*old);
    }
    lesson.times.setObjects(placements);
    data.saveContext();
    finish(GX_NOTI_FINISH_EDIT_LESSON, lesson);
}

void GXAddLessonView::finish(const char* notification, GXLessonData& lesson) {
    NSNotificationCenter::defaultCenter().postNotificationName(
        notification, {{user_info::kLessonData, &lesson},
                       {user_info::kClasstimes, sortedPlacements(lesson.times.allObjects())}});
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

void GXAddLessonView::shouldReturn(UITextInput& field) {
    field.resignFirstResponder();
}

}  // namespace gexlo
