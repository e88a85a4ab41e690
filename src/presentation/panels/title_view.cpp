#include "presentation/panels/title_view.h"

#include "platform/foundation/bundle.h"
#include "platform/foundation/utf8.h"
#include "presentation/flows/schedule_flow.h"
#include "presentation/notifications.h"
#include "presentation/panels/date_view.h"
#include "presentation/style/theme_manager.h"
#include "presentation/ui_manager.h"

namespace gexlo {

namespace {

constexpr double kNotesDuration = 0.2;
constexpr double kButtonWidth = 64;
constexpr double kTitleInset = GXDateView::kWidth;  // as much as a class hour may cover
constexpr std::size_t kShortTitle = 9;              // characters from which a title is set smaller

struct NoteButton {
    const char* identifier;
    const char* textKey;
    void (ScheduleFlow::*action)();
};
constexpr NoteButton kNoteButtons[] = {
    {"btnMemo", "MEMO_TITLE", &ScheduleFlow::titleViewMemoAction},
    {"btnHomework", "HOMEWORK_TITLE", &ScheduleFlow::titleViewHomeworkAction},
    {"btnExam", "EXAM_TITLE", &ScheduleFlow::titleViewExamAction},
};

float sizeFor(const std::string& title) {
    return utf16Length(title) < kShortTitle ? 15 : 13.5F;
}

}  // namespace

GXTitleView::GXTitleView(double width, double topSpace)
    : UIView({0, topSpace - kHeight, width, kHeight}),
      topSpace_(topSpace),
      lblTitle_(add<UILabel>(CGRect{kTitleInset, 0, width - 2 * kTitleInset, kHeight})),
      btnOK_(addFaceButton("btnOK", {width - kButtonWidth, 0, kButtonWidth, kHeight})),
      btnCancel_(addFaceButton("btnCancel", {0, 0, kButtonWidth, kHeight})) {
    setAccessibilityIdentifier("titleView");
    setAlpha(0);
    lblTitle_.setAccessibilityIdentifier("lblTitle");
    lblTitle_.setTextAlignment(NSTextAlignment::center);
    lblTitle_.setMinimumScaleFactor(0.7);
    btnOK_.setImage(UIImage::imageNamed("Button_OK"));
    btnOK_.setAccessibilityLabel(NSLocalizedString("OK_BUTTON"));
    btnOK_.addAction(UIControlEvent::touchUpInside, [] { GXUIManager::manager().saveLesson(); });
    btnCancel_.setImage(UIImage::imageNamed("Button_Cancel"));
    btnCancel_.setAccessibilityLabel(NSLocalizedString("CANCEL_BUTTON"));
    btnCancel_.addAction(UIControlEvent::touchUpInside,
                         [] { GXUIManager::manager().cancelLessonEditing(); });
    addNoteButtons();
    hideButtons();
    setThemes();
    observe();
}

UIButton& GXTitleView::addFaceButton(const char* identifier, CGRect frame) {
    UIButton& button = add<UIButton>(frame);
    button.setAccessibilityIdentifier(identifier);
    return button;
}

void GXTitleView::addNoteButtons() {
    const double width = frame().width / std::size(kNoteButtons);
    for (std::size_t i = 0; i < std::size(kNoteButtons); ++i) {
        const NoteButton& entry = kNoteButtons[i];
        UIButton& button =
            addFaceButton(entry.identifier, {static_cast<double>(i) * width, 0, width, kHeight});
        button.setTitle(NSLocalizedString(entry.textKey));
        button.addAction(UIControlEvent::touchUpInside, [this, action = entry.action] {
            if (!scheduleLock_) GXUIManager::manager().ask(action);
        });
        noteButtons_[i] = &button;
    }
}

void GXTitleView::observe() {
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    tokens_.push_back(center.addObserver(GX_NOTI_BEGIN_ADD_LESSON,
                                         [this](const auto&) { beginAddLessonMode(); }));
    tokens_.push_back(center.addObserver(GX_NOTI_BEGIN_EDIT_LESSON,
                                         [this](const auto&) { beginEditLessonMode(); }));
    for (const char* name : {GX_NOTI_CANCEL_ADD_LESSON, GX_NOTI_CANCEL_EDIT_LESSON,
                             GX_NOTI_FINISH_ADD_NEW_LESSON, GX_NOTI_FINISH_EDIT_LESSON}) {
        tokens_.push_back(center.addObserver(name, [this](const auto&) { close(); }));
    }
}

void GXTitleView::setThemes() {
    const GXThemeManager& theme = GXThemeManager::manager();
    setBackgroundColor(theme.topMenuBackgroundColor);
    lblTitle_.setTextColor(theme.topMenuFontColor);
    btnOK_.setTintColor(theme.topTitleOKButtonColor);
    btnCancel_.setTintColor(theme.topTitleCancelButtonColor);
    for (UIButton* button : noteButtons_)
        button->setTitleColor(theme.topMenuFontColor);
}

void GXTitleView::setTitle(const std::string& title, float fontSize) {
    lblTitle_.setText(title);
    lblTitle_.setFont(UIFont::boldSystemFontOfSize(fontSize));
}

void GXTitleView::drop(double duration) {
    ++generation_;
    setFrame({0, topSpace_ - kHeight, frame().width, kHeight});
    setAlpha(0);
    animateWithDuration(duration, [&] {
        setFrame({0, topSpace_, frame().width, kHeight});
        setAlpha(1);
    });
}

void GXTitleView::show(const std::string& title) {
    show_fontSize_animationDuration(title, sizeFor(title));
}

void GXTitleView::show_fontSize_animationDuration(const std::string& title, float fontSize,
                                                  double duration) {
    setTitle(title, fontSize);
    hideButtons();
    drop(duration);
}

void GXTitleView::showWithButtons(const std::string& title) {
    setTitle(title, sizeFor(title));
    hideButtons();
    btnOK_.setHidden(false);
    btnCancel_.setHidden(false);
    buttonEnabled_ = true;
    scheduleLock_ = false;
    drop(kDuration);
}

void GXTitleView::showWithNotes(NSInteger index) {
    lblTitle_.setText("");
    hideButtons();
    for (UIButton* button : noteButtons_)
        button->setHidden(false);
    setNoteIndex(index);
    drop(kNotesDuration);
}

void GXTitleView::setNoteIndex(NSInteger index) {
    for (std::size_t i = 0; i < noteButtons_.size(); ++i) {
        const bool selected = static_cast<NSInteger>(i) == index;
        noteButtons_[i]->setSelected(selected);
        noteButtons_[i]->setBackgroundColor(selected ? UIColor::colorWithWhite(1, 0.18F)
                                                     : UIColor::clearColor());
    }
}

void GXTitleView::close() {
    animateWithDuration(
        kDuration,
        [&] {
            setFrame({0, topSpace_ - kHeight, frame().width, kHeight});
            setAlpha(0);
        },
        [this, generation = ++generation_] {
            if (generation_ == generation) removeTitle();
        });
}

void GXTitleView::closeAnimated(bool animated) {
    if (animated) return close();
    ++generation_;
    setFrame({0, topSpace_ - kHeight, frame().width, kHeight});
    setAlpha(0);
    removeTitle();
}

void GXTitleView::hideButtons() {
    btnOK_.setHidden(true);
    btnCancel_.setHidden(true);
    for (UIButton* button : noteButtons_)
        button->setHidden(true);
    buttonEnabled_ = false;
}

void GXTitleView::removeTitle() {
    lblTitle_.setText("");
    hideButtons();
}

void GXTitleView::cancelButtonHidden(bool hidden) {
    if (buttonEnabled_) btnCancel_.setHidden(hidden);
}

void GXTitleView::beginAddLessonMode() {
    showWithButtons(NSLocalizedString("ADD_CLASS_TITLE"));
}

void GXTitleView::beginEditLessonMode() {
    showWithButtons(NSLocalizedString("EDIT_CLASS_TITLE"));
}

}  // namespace gexlo
