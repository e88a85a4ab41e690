#include "app/lesson_editing.h"

#include "presentation/main_screen.h"
#include "presentation/panels/panel_stack.h"

namespace gexlo {

LessonEditing::LessonEditing(MainScreen& screen)
    : screen_(screen), addLessonView_(std::make_shared<GXAddLessonView>(*this)) {}

void LessonEditing::openAddMode() {
    addLessonView_->openAddMode();
}

void LessonEditing::openEditMode(GXLessonData& lesson) {
    addLessonView_->openEditMode(lesson);
}

void LessonEditing::saveLesson() {
    addLessonView_->save();
}

void LessonEditing::cancelLessonEditing() {
    addLessonView_->cancel();
}

void LessonEditing::showColorSelectViewWithColorIndex_andFontColorIndex(NSInteger color,
                                                                        NSInteger fontColor) {
    const auto selector = std::make_shared<GXColorSelector>(screen_.panels().bounds(), *this);
    screen_.panels().present(selector);
    selector->showWithColorIndex_andFontColorIndex(color, fontColor);
}

void LessonEditing::colorSelected_andFontColor(NSInteger color, NSInteger fontColor) {
    addLessonView_->setSubjectColorByIndex_andFontColor(color, fontColor);
}

}  // namespace gexlo
