#include "presentation/panels/subject_list_view.h"

#include <algorithm>

#include "platform/foundation/bundle.h"
#include "platform/foundation/string_format.h"
#include "platform/views/alert.h"
#include "platform/views/screen.h"
#include "presentation/notifications.h"
#include "presentation/style/color_manager.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr double kRowHeight = 48;
constexpr CGSize kSwatch{18, 32};
constexpr double kMargin = 12;
constexpr double kBarHeight = 48;
constexpr double kButtonWidth = 72;
constexpr double kMessageHeight = 32;
constexpr double kFadeDuration = 0.15;
constexpr double kIgnoredAlpha = 0.3;  // of buttons that do nothing while the list is edited
constexpr double kRise = 20;           // points from below that the panel comes from

/// A hairline over the width of what stands below it.
Stroke separator(double from, double to, double y) {
    return {{from, y - 0.5}, {to, y - 0.5}, 1, UIColor::colorWithWhite(1, 0.15F)};
}

std::shared_ptr<UIButton> barButton(const char* identifier, const char* textKey, CGRect frame) {
    auto button = std::make_shared<UIButton>(frame);
    button->setAccessibilityIdentifier(identifier);
    button->setTitle(NSLocalizedString(textKey));
    button->setTitleColor(GXThemeManager::manager().subViewItemColor);
    return button;
}

}  // namespace

// MARK: a row

SubjectListCell::SubjectListCell(const GXLessonData& lesson)
    : colorView_(std::make_shared<UIImageView>()),
      nameLabel_(std::make_shared<UILabel>()),
      professorLabel_(std::make_shared<UILabel>()) {
    const GXThemeManager& theme = GXThemeManager::manager();
    const GXColorManager& colors = GXColorManager::colorManager();
    colorView_->setImage(colors.imageWithColor_width_height(
        colors.colorWithName(lesson.color.get()), kSwatch.width, kSwatch.height));
    colorView_->setAccessibilityIdentifier("colorView");
    nameLabel_->setAccessibilityIdentifier("nameLabel");
    nameLabel_->setText(lesson.name.get());
    nameLabel_->setFont(UIFont::systemFontOfSize(16));
    nameLabel_->setTextColor(theme.subViewItemColor);
    professorLabel_->setAccessibilityIdentifier("professorLabel");
    professorLabel_->setText(lesson.professor ? lesson.professor->name.get() : "");
    professorLabel_->setFont(UIFont::systemFontOfSize(12));
    professorLabel_->setTextColor(theme.subViewItemColor.colorWithAlphaComponent(0.7F));
    for (const auto& view :
         std::initializer_list<std::shared_ptr<UIView>>{colorView_, nameLabel_, professorLabel_}) {
        contentView().addSubview(view);
    }
}

void SubjectListCell::layoutSubviews() {
    const CGSize size = contentView().frame().size();
    const double textX = kMargin + kSwatch.width + kMargin;
    const double textWidth = size.width - textX - kMargin;
    const bool alone = professorLabel_->text().empty();
    const bool unnamed = nameLabel_->text().empty();
    colorView_->setFrame(
        {kMargin, (size.height - kSwatch.height) / 2, kSwatch.width, kSwatch.height});
    nameLabel_->setFrame({textX, alone ? 13.0 : 5.0, textWidth, 22});
    professorLabel_->setFrame({textX, unnamed ? 16.0 : 27.0, textWidth, alone ? 0.0 : 16.0});
    setStrokes({separator(contentView().frame().x + textX, frame().width, size.height)});
}

// MARK: the table

SubjectListTableView::SubjectListTableView(CGRect frame) : UITableView(frame) {
    setRowHeight(kRowHeight);
}

void SubjectListTableView::load(std::weak_ptr<SubjectListTableViewDelegate> delegate) {
    panel_ = std::move(delegate);
    lessons_ = GXDataManager::manager().lessonListForCurrentTimetable();
    const auto self = std::static_pointer_cast<SubjectListTableView>(shared_from_this());
    setDataSource(self);
    setDelegate(self);
    reloadData();
}

void SubjectListTableView::drop(const GXLessonData& lesson) {
    const auto found = std::find(lessons_.begin(), lessons_.end(), &lesson);
    if (found == lessons_.end()) return;
    const NSIndexPath path{0, found - lessons_.begin()};
    lessons_.erase(found);
    deleteRow(path);
}

NSInteger SubjectListTableView::numberOfRowsInSection(UITableView&, NSInteger) {
    return static_cast<NSInteger>(lessons_.size());
}

std::shared_ptr<UITableViewCell> SubjectListTableView::cellForRow(UITableView&, NSIndexPath path) {
    return std::make_shared<SubjectListCell>(lessonAt(path));
}

void SubjectListTableView::commitDelete(UITableView&, NSIndexPath path) {
    if (const auto panel = panel_.lock()) panel->lessonToBeRemoved(lessonAt(path));
}

void SubjectListTableView::moveRow(UITableView&, NSIndexPath from, NSIndexPath to) {
    GXLessonData* moved = &lessonAt(from);
    lessons_.erase(lessons_.begin() + from.row);
    lessons_.insert(lessons_.begin() + to.row, moved);
    // The top row has the largest.
    auto sortIndex = static_cast<NSInteger>(lessons_.size());
    for (GXLessonData* lesson : lessons_)
        lesson->sortIndex = sortIndex--;
    GXDataManager::manager().saveContext();
}

void SubjectListTableView::didSelectRow(UITableView&, NSIndexPath path) {
    if (locked_) return;
    if (const auto panel = panel_.lock()) panel->lessonSelected(lessonAt(path));
}

// MARK: the panel

SubjectListView::SubjectListView() : Panel(UIScreen::mainScreen().bounds()) {
    const GXThemeManager& theme = GXThemeManager::manager();
    const ScreenFacts& screen = GXUIManager::manager().screen();
    setAccessibilityIdentifier("SubjectListView");
    setBackgroundColor(UIColor::colorWithWhite(0, 0.4F));

    const double side = screen.scheduleBaseViewLeftMargin;
    const double top = screen.statusBarHeight + ScreenFacts::kTopMenuHeight + 12;
    const double width = screen.screenWidth - 2 * side;
    const double height = screen.screenHeight - top - screen.bottomViewHeight - 12;
    panel_ = std::make_shared<UIView>(CGRect{side, top, width, height});
    panel_->setBackgroundColor(theme.subViewBackgroundColor);
    panel_->setBorder(theme.subViewBorderWidth, theme.subViewBorderColor);
    panel_->setCornerRadius(8);
    panel_->setClipsToBounds(true);

    titleLabel_ =
        std::make_shared<UILabel>(CGRect{kButtonWidth, 0, width - 2 * kButtonWidth, kBarHeight});
    titleLabel_->setText(NSLocalizedString("SUBJECT_LIST_TITLE"));
    titleLabel_->setFont(UIFont::boldSystemFontOfSize(17));
    titleLabel_->setTextColor(theme.subViewItemColor);
    titleLabel_->setTextAlignment(NSTextAlignment::center);
    titleLabel_->setMinimumScaleFactor(0.7);

    const double footY = height - kBarHeight;
    panel_->setStrokes({separator(0, width, footY + 1)});
    table_ = std::make_shared<SubjectListTableView>(
        CGRect{0, kBarHeight + kMessageHeight, width, footY - kBarHeight - kMessageHeight});
    messageLabel_ =
        std::make_shared<UILabel>(CGRect{kMargin, kBarHeight, width - 2 * kMargin, kMessageHeight});
    messageLabel_->setAccessibilityIdentifier("messageLabel");
    messageLabel_->setFont(UIFont::systemFontOfSize(13));
    messageLabel_->setTextColor(theme.subViewItemColor.colorWithAlphaComponent(0.7F));
    messageLabel_->setTextAlignment(NSTextAlignment::center);
    messageLabel_->setMinimumScaleFactor(0.7);

    closeButton_ = barButton("closeButton", "CLOSE_BUTTON", {0, 0, kButtonWidth, kBarHeight});
    doneButton_ =
        barButton("doneButton", "DONE_BUTTON", {width - kButtonWidth, 0, kButtonWidth, kBarHeight});
    addButton_ = barButton("addButton", "ADD_BUTTON", {0, footY, width / 2, kBarHeight});
    editButton_ = barButton("editButton", "EDIT_BUTTON", {width / 2, footY, width / 2, kBarHeight});
    const struct {
        UIButton& button;
        void (SubjectListView::*action)();
    } actions[] = {{*closeButton_, &SubjectListView::close},
                   {*doneButton_, &SubjectListView::setListMode},
                   {*addButton_, &SubjectListView::addButtonAction},
                   {*editButton_, &SubjectListView::setEditMode}};
    for (const auto& [button, action] : actions) {
        // Only the done button works while the list is being edited.
        const bool always = action == &SubjectListView::setListMode;
        button.addAction(UIControlEvent::touchUpInside, [this, always, action = action] {
            if (always || !locked_) (this->*action)();
        });
    }
    addSubview(panel_);
    for (const auto& view : std::initializer_list<std::shared_ptr<UIView>>{
             titleLabel_, messageLabel_, table_, closeButton_, doneButton_, addButton_,
             editButton_}) {
        panel_->addSubview(view);
    }
    table_->setAccessibilityIdentifier(table_->className());
    setListMode();
}

void SubjectListView::show() {
    table_->load(std::static_pointer_cast<SubjectListView>(shared_from_this()));
    showMessage();
    const CGRect place = panel_->frame();
    panel_->setFrame(place.offsetBy({0, kRise}));
    fadeIn(kFadeDuration, [&] { panel_->setFrame(place); });
}

void SubjectListView::close() {
    if (isLeaving()) return;
    GXUIManager::manager().lockMenu(false);
    fadeOutAndLeave(kFadeDuration);
}

void SubjectListView::setListMode() {
    locked_ = false;
    table_->setLocked(false);
    table_->setEditing(false);
    doneButton_->setHidden(true);
    showIgnoredButtons();
    showMessage();
}

void SubjectListView::setEditMode() {
    locked_ = true;
    table_->setLocked(true);
    table_->setEditing(true);
    messageLabel_->setText("");
    doneButton_->setHidden(false);
    showIgnoredButtons();
}

void SubjectListView::showIgnoredButtons() {
    for (const auto& button : {closeButton_, addButton_, editButton_})
        button->setAlpha(locked_ ? kIgnoredAlpha : 1);
}

void SubjectListView::showMessage() {
    messageLabel_->setText(NSLocalizedString(table_->isEmpty() ? "SUBJECT_LIST_EMPTY_COMMENT"
                                                               : "SUBJECT_LIST_SELECT_COMMENT"));
}

// Closing unlocks the menu, which adding and editing then lock again: so it comes first.

void SubjectListView::addButtonAction() {
    close();
    GXUIManager::manager().openAddLessonView();
}

void SubjectListView::lessonSelected(GXLessonData& lesson) {
    close();
    GXUIManager::manager().openEditLessonView(&lesson);
}

void SubjectListView::lessonToBeRemoved(GXLessonData& lesson) {
    UIAlert sheet;
    sheet.kind = UIAlert::Kind::sheet;
    sheet.title = stringWithFormat(NSLocalizedString("DELETE_ITEM_COMMENT"), lesson.name.get());
    sheet.buttons = {
        {NSLocalizedString("DELETE_THIS_CLASS_BUTTON"), UIAlert::Button::Style::destructive},
        {NSLocalizedString("CANCEL_BUTTON"), UIAlert::Button::Style::cancel}};
    sheet.dismissed = [weak = weak_from_this(), &lesson](std::size_t button, const auto&) {
        const auto self = std::static_pointer_cast<SubjectListView>(weak.lock());
        if (!self) return;
        if (button == 0) {
            self->remove(lesson);
        } else {
            self->setListMode();
        }
    };
    std::move(sheet).showFor(*this);
}

void SubjectListView::remove(GXLessonData& lesson) {
    GXDataManager& manager = GXDataManager::manager();
    GXTimetableData* timetable = lesson.timetable.get();
    if (lesson.isDeleted() || !timetable) return;
    // The grid hears of it while the subject still exists.
    NSNotificationCenter::defaultCenter().postNotificationName(GX_NOTI_REMOVE_LESSON,
                                                               {user_info::kLessonData(&lesson)});
    manager.removeLesson_inTimetable(lesson, *timetable);
    table_->drop(lesson);
    manager.dataUpdateNoUp();
    manager.saveContext();
    if (!locked_) showMessage();
}

}  // namespace gexlo
