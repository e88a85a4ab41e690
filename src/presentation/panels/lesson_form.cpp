#include "presentation/panels/lesson_form.h"

#include "platform/foundation/bundle.h"

namespace gexlo {

namespace {

constexpr double kRow = 40;
constexpr double kMargin = 10;
constexpr double kTitleWidth = 58;
constexpr double kFieldX = kMargin + kTitleWidth;
constexpr double kColorWidth = 76;
constexpr int kRoomRow = 2;

constexpr UIColor kLine = UIColor::colorWithWhite(1, 0.15F);

}  // namespace

LessonForm::LessonForm(UIView& panel, const std::function<void()>& colorButtonDidPush)
    : panel_(panel) {
    const double width = panel.frame().width;
    addTitle("SUBJECT_TITLE", 0);
    addTitle("PROFESSOR_TITLE", 1);
    addTitle("ROOM_TITLE", kRoomRow);
    addLine(1, width - kColorWidth - kMargin);
    addLine(2, width);
    tfName_ = &addField("tfName", "SUBJECT_PLACEHOLDER", 0);
    tfProfessor_ = &addField("tfProfessor", "PROFESSOR_PLACEHOLDER", 1);
    addColorButton(colorButtonDidPush);
}

void LessonForm::setUpTitle(UILabel& title, const char* textKey) {
    title.setText(NSLocalizedString(textKey));
    title.setFont(UIFont::systemFontOfSize(12));
    title.setMinimumScaleFactor(0.7);
    titles_.push_back(&title);
}

void LessonForm::addTitle(const char* textKey, int row) {
    setUpTitle(panel_.add<UILabel>(CGRect{kMargin, row * kRow, kTitleWidth - 4, kRow}), textKey);
}

/// Above a row.
void LessonForm::addLine(int row, double width) {
    UIView& line = panel_.add<UIView>(CGRect{kMargin, row * kRow - 1, width - kMargin, 1});
    line.setBackgroundColor(kLine);
    line.setUserInteractionEnabled(false);
}

UITextField& LessonForm::addField(const char* identifier, const char* textKey, int row) {
    const double width = panel_.frame().width - kFieldX - kColorWidth - kMargin;
    UITextField& field = panel_.add<UITextField>(CGRect{kFieldX, row * kRow, width, kRow});
    field.setAccessibilityIdentifier(identifier);
    field.setPlaceholder(NSLocalizedString(textKey));
    field.setTextColor(UIColor::whiteColor());
    field.setFont(UIFont::systemFontOfSize(15));
    return field;
}

void LessonForm::addColorButton(const std::function<void()>& didPush) {
    UIButton& button = panel_.add<UIButton>(
        CGRect{panel_.frame().width - kColorWidth - 4, 0, kColorWidth, kRoomRow * kRow});
    button.setAccessibilityIdentifier("colorButtonDidPush");
    button.setAccessibilityLabel(NSLocalizedString("COLOR_TITLE"));
    button.addAction(UIControlEvent::touchUpInside, didPush);
    UILabel& title = button.add<UILabel>(CGRect{2, 6, kColorWidth - 4, 16});
    setUpTitle(title, "COLOR_TITLE");
    title.setTextAlignment(NSTextAlignment::center);
    colorSample_ = &button.add<UIView>(CGRect{12, 26, kColorWidth - 24, 44});
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

void LessonForm::setTitleColor(UIColor color) {
    for (UILabel* title : titles_)
        title->setTextColor(color);
}

void LessonForm::setSample(UIColor subject, UIColor font) {
    colorSample_->setBackgroundColor(subject);
    fontSample_->setTextColor(font);
}

CGRect LessonForm::roomRow() const {
    return {kFieldX, kRoomRow * kRow, panel_.frame().width - kFieldX, kRow};
}

}  // namespace gexlo
