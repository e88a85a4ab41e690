// The panel at the foot in which a subject is entered while its slots are toggled in the grid.
#pragma once

#include <string>

#include "platform/foundation/notification_center.h"
#include "presentation/panels/foot_panel.h"
#include "presentation/panels/lesson_form.h"
#include "presentation/panels/room_row.h"

namespace gexlo {

class GXLessonData;
struct LessonEntry;

/// Whom the panel asks for the picker of colours.
class GXAddLessonViewDelegate {
public:
    virtual ~GXAddLessonViewDelegate() = default;
    virtual void showColorSelectViewWithColorIndex_andFontColorIndex(NSInteger color,
                                                                     NSInteger fontColor) = 0;
};

/// Serves adding and editing; the state of the UI manager says which. The slots that were
/// chosen are the manager's, and `save` writes them to the store.
class GXAddLessonView final : public FootPanel, public UITextInputDelegate {
public:
    explicit GXAddLessonView(GXAddLessonViewDelegate& delegate);
    const char* className() const override { return "GXAddLessonView"; }

    void setThemes();

    void openAddMode();
    void openEditMode(GXLessonData& lesson);
    /// Does nothing outside the two modes; stays with an alert without a name. Saves.
    void save();
    /// Writes nothing; leaves whichever mode there is.
    void cancel();

    /// Indices into the colours on offer; below 0 the subject's own. The selected cells follow.
    void setSubjectColorByIndex_andFontColor(NSInteger color, NSInteger fontColor);

    void shouldReturn(UITextInput& field) override;

private:
    void open(const std::string& name, const std::string& professor, const LessonRooms& rooms);
    void endTyping() override;
    void layOut(double covered) override;

    void colorButtonDidPush();
    void roomButtonDidPush(std::size_t place);
    void deleteRoomButtonDidPush();
    void showNewRoomView();
    void addRoom(const std::string& room);
    /// Shows the rooms on their buttons, and lets newly toggled slots take the selected one.
    void roomsChanged();

    LessonEntry entry();
    bool nameIsMissing(const char* buttonKey);
    void saveNewLesson();
    void saveEditedLesson();
    void finish(const char* notification, GXLessonData& lesson);
    void leaveMode();

    GXAddLessonViewDelegate& delegate_;  // the main screen, which owns this
    GXLessonData* selectedlesson_ = nullptr;
    NSInteger colorIndex_ = 0;
    NSInteger fontColorIndex_ = 0;
    LessonRooms rooms_;
    LessonForm form_;
    RoomRow roomRow_;
    NotificationToken closeAll_;
};

}  // namespace gexlo
