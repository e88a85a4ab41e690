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

    // The panel in which a subject is entered.
    virtual void openAddMode() = 0;
    virtual void openEditMode(GXLessonData& lesson) = 0;

    // The bubble that tells the hours of a period.
    virtual void showClassHour_periodName(const std::string& classHour,
                                          const std::string& periodName) = 0;
    virtual void hideClassHour() = 0;
};

}  // namespace gexlo
