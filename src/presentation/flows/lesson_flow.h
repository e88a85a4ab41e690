// Adding and editing a subject.
#pragma once

namespace gexlo {

class GXLessonData;

class LessonFlow {
public:
    virtual ~LessonFlow() = default;
    virtual void openAddMode() = 0;
    virtual void openEditMode(GXLessonData& lesson) = 0;
    virtual void saveLesson() = 0;
    virtual void cancelLessonEditing() = 0;
};

}  // namespace gexlo
