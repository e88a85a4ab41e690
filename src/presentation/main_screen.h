// The root screen as the rest of the system sees it.
#pragma once

#include <memory>
#include <string>

namespace gexlo {

class GXLessonData;
class UIView;

class MainScreen {
public:
    virtual ~MainScreen() = default;

    /// Puts a panel on top of all others; it removes itself.
    virtual void addPanel(std::shared_ptr<UIView> panel) = 0;
    /// Locks or frees the bottom menu and the date view.
    virtual void lockMenu(bool locked) = 0;
    /// Loads the current timetable.
    virtual void setCurrentTimetableFromCoreData() = 0;

    // The panel in which a subject is entered.
    virtual void openAddMode() = 0;
    virtual void openEditMode(GXLessonData& lesson) = 0;
    virtual void saveLesson() = 0;
    virtual void cancelLessonEditing() = 0;

    // The bubble that tells the hours of a period.
    virtual void showClassHour_periodName(const std::string& classHour,
                                          const std::string& periodName) = 0;
    virtual void hideClassHour() = 0;

    virtual void openMoreMenu() = 0;
    /// A list of alarms is not defined: nothing happens.
    virtual void openAlarmListView() {}

    // What follows has no panel or composer yet, so nothing happens.
    virtual void sendEmail() {}
    virtual void sendTwitter() {}
    virtual void sendFacebook() {}
    virtual void saveAlbum() {}
    virtual void titleViewMemoAction() {}
    virtual void titleViewHomeworkAction() {}
    virtual void titleViewExamAction() {}
    virtual void closeScheduleView() {}

    // Counts of the open subject.
    virtual void dateViewAbsence(int count) = 0;
    virtual void dateViewLateness(int count) = 0;
};

}  // namespace gexlo
