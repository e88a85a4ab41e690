// Adding and editing a subject on the main screen: its panel at the foot, and the colours for it.
#pragma once

#include <memory>

#include "presentation/flows/lesson_flow.h"
#include "presentation/panels/add_lesson_view.h"
#include "presentation/panels/color_selector.h"

namespace gexlo {

class MainScreen;

class LessonEditing final : public LessonFlow,
                            public GXAddLessonViewDelegate,
                            public GXColorSelectorDelegate {
public:
    explicit LessonEditing(MainScreen& screen);

    const std::shared_ptr<GXAddLessonView>& addLessonView() const { return addLessonView_; }

    void openAddMode() override;
    void openEditMode(GXLessonData& lesson) override;
    void saveLesson() override;
    void cancelLessonEditing() override;

    void showColorSelectViewWithColorIndex_andFontColorIndex(NSInteger color,
                                                             NSInteger fontColor) override;
    void colorSelected_andFontColor(NSInteger color, NSInteger fontColor) override;

private:
    MainScreen& screen_;  // owns this
    std::shared_ptr<GXAddLessonView> addLessonView_;
};

}  // namespace gexlo
