// The panel at the foot in which a subject is entered while its slots are toggled in the grid.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/text_input.h"
#include "presentation/panels/lesson_rooms.h"

namespace gexlo {

class GXDayNPeriodData;
class GXLessonData;

/// Whom the panel asks for the picker of colours.
class GXAddLessonViewDelegate {
public:
    virtual ~GXAddLessonViewDelegate() = default;
    virtual void showColorSelectViewWithColorIndex_andFontColorIndex(NSInteger color,
                                                                     NSInteger fontColor) = 0;
};

/// Serves adding and editing; the state of the UI manager says which. The slots that were
/// chosen are the manager's, and `save` writes them to the store.
class GXAddLessonView final : public UIView, public UITextInputDelegate {
public:
    explicit GXAddLessonView(GXAddLessonViewDelegate& delegate);
    const char* className() const override { return "GXAddLessonView"; }

    void setThemes();
    bool isOpened() const { return isOpened_; }

    void openAddMode();
    void openEditMode(GXLessonData& lesson);
    /// Does nothing outside the two modes; stays with an alert without a name. Saves.
    void save();
    /// Writes nothing; leaves whichever mode there is.
    void cancel();
    /// Puts the panel away.
    void clearView();

    /// Indices into the colours on offer; below 0 the subject's own. The selected cells follow.
    void setSubjectColorByIndex_andFontColor(NSInteger color, NSInteger fontColor);

    void shouldReturn(UITextInput& field) override;

private:
    UILabel& addTitle(const char* textKey, CGRect frame);
    UITextField& addField(const char* identifier, const char* textKey, CGRect frame);
    void addColorButton(CGRect frame);
    void addRoomButtons(double y);

    void open();
    void moveTo(double y);
    double openY() const;
    double closedY() const;
    void endTyping();
    void keyboardWillShow(double height);
    void keyboardWillHide();

    void colorButtonDidPush();
    void roomButtonDidPush(std::size_t place);
    void deleteRoomButtonDidPush();
    void showNewRoomView();
    void addRoom(const std::string& room);
    /// Shows the rooms on their buttons, and lets newly toggled slots take the selected one.
    void roomsChanged();

    void saveNewLesson();
    void saveEditedLesson();
    void writeFields(GXLessonData& lesson, std::string colorName, std::string fontColorName);
    bool nameIsMissing(const char* buttonKey);
    std::vector<GXDayNPeriodData*> newPlacements();
    void finish(const char* notification, GXLessonData& lesson);
    void leaveMode();

    GXAddLessonViewDelegate& delegate_;  // the main screen, which owns this
    bool isOpened_ = false;
    bool keyboardOn_ = false;  // the panel has moved for the keyboard
    GXLessonData* selectedlesson_ = nullptr;
    NSInteger colorIndex_ = 0;
    NSInteger fontColorIndex_ = 0;
    LessonRooms rooms_;

    std::vector<UILabel*> titles_;  // subviews, as all below
    UITextField* tfName_ = nullptr;
    UITextField* tfProfessor_ = nullptr;
    UIButton* btnColor_ = nullptr;
    UIView* colorSample_ = nullptr;
    UILabel* fontSample_ = nullptr;
    std::array<UIButton*, LessonRooms::kMost> btnRooms_{};
    UIButton* btnDelLessonRoom_ = nullptr;
    NotificationToken closeAll_;
    std::vector<NotificationToken> keyboard_;  // while the panel is open
};

}  // namespace gexlo
