#include "presentation/panels/lesson_form.h"

#include "platform/foundation/bundle.h"

namespace gexlo {

namespace {

constexpr int kRows = 3;
constexpr double kMargin = 10;
constexpr double kTitleWidth = 58;
constexpr double kFieldX = kMargin + kTitleWidth;
constexpr double kColorWidth = 76;
constexpr double kSampleY = 26;
constexpr double kSampleMargin = 12;

constexpr UIColor kLine = UIColor::colorWithWhite(1, 0.15F);

}  // namespace

LessonForm::LessonForm(UIView& panel, const std::function<void()>& colorButtonDidPush)
    : panel_(panel) {
    for (const char* textKey : {"SUBJECT_TITLE", "PROFESSOR_TITLE", "ROOM_TITLE"})
        addTitle(panel, textKey);
    lines_ = {&addLine(), &addLine()};
    tfName_ = &addField("tfName", "SUBJECT_PLACEHOLDER");
    tfProfessor_ = &addField("tfProfessor", "PROFESSOR_PLACEHOLDER");
    addColorButton(colorButtonDidPush);
}

UILabel& LessonForm::addTitle(UIView& to, const char* textKey) {
    UILabel& title = to.add<UILabel>(CGRect{});
    title.setText(NSLocalizedString(textKey));
    title.setFont(UIFont::systemFontOfSize(12));
    title.setMinimumScaleFactor(0.7);
    titles_.push_back(&title);
    return title;
}

UIView& LessonForm::addLine() {
    UIView& line = panel_.add<UIView>();
    line.setBackgroundColor(kLine);
    line.setUserInteractionEnabled(false);
    return line;
}

UITextField& LessonForm::addField(const char* identifier, const char* textKey) {
    UITextField& field = panel_.add<UITextField>();
    field.setAccessibilityIdentifier(identifier);
    field.setPlaceholder(NSLocalizedString(textKey));
    field.setTextColor(UIColor::whiteColor());
    field.setFont(UIFont::systemFontOfSize(15));
    return field;
}

void LessonForm::addColorButton(const std::function<void()>& didPush) {
    btnColor_ = &panel_.add<UIButton>();
    btnColor_->setAccessibilityIdentifier("colorButtonDidPush");
    btnColor_->setAccessibilityLabel(NSLocalizedString("COLOR_TITLE"));
    btnColor_->addAction(UIControlEvent::touchUpInside, didPush);
    addTitle(*btnColor_, "COLOR_TITLE").setTextAlignment(NSTextAlignment::center);
    colorSample_ = &btnColor_->add<UIView>();
    colorSample_->setAccessibilityIdentifier("colorSample");
    colorSample_->setCornerRadius(6);
    colorSample_->setBorder(1, UIColor::colorWithWhite(1, 0.6F));
    colorSample_->setUserInteractionEnabled(false);
    fontSample_ = &colorSample_->add<UILabel>(CGRect{});
    fontSample_->setAccessibilityIdentifier("fontSample");
    fontSample_->setText("A");
    fontSample_->setFont(UIFont::boldSystemFontOfSize(20));
    fontSample_->setTextAlignment(NSTextAlignment::center);
}

void LessonForm::layOut(double covered) {
    const double width = panel_.frame().width;
    const double height = static_cast<int>((panel_.frame().height - covered) / kRows);
    const auto y = [&](int row) { return covered + row * height; };
    for (int row = 0; row < kRows; ++row)
        titles_[static_cast<std::size_t>(row)]->setFrame(
            {kMargin, y(row), kTitleWidth - 4, height});
    lines_[0]->setFrame({kMargin, y(1) - 1, width - kColorWidth - 2 * kMargin, 1});
    lines_[1]->setFrame({kMargin, y(2) - 1, width - kMargin, 1});
    const double fieldWidth = width - kFieldX - kColorWidth - kMargin;
    tfName_->setFrame({kFieldX, y(0), fieldWidth, height});
    tfProfessor_->setFrame({kFieldX, y(1), fieldWidth, height});
    btnColor_->setFrame({width - kColorWidth - 4, y(0), kColorWidth, 2 * height});
    titles_.back()->setFrame({2, 6, kColorWidth - 4, 16});
    colorSample_->setFrame({kSampleMargin, kSampleY, kColorWidth - 2 * kSampleMargin,
                            2 * height - kSampleY - kMargin});
    fontSample_->setFrame(colorSample_->bounds());
    roomRow_ = {kFieldX, y(2), width - kFieldX, height};
}

void LessonForm::setTitleColor(UIColor color) {
    for (UILabel* title : titles_)
        title->setTextColor(color);
}

void LessonForm::setSample(UIColor subject, UIColor font) {
    colorSample_->setBackgroundColor(subject);
    fontSample_->setTextColor(font);
}

}  // namespace gexlo
