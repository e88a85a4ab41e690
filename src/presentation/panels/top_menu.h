// The bar at the top: the date, the name of the timetable, and the way to others.
#pragma once

#include <string_view>

#include "platform/views/button.h"
#include "platform/views/label.h"
#include "presentation/panels/date_view.h"
#include "presentation/screen_facts.h"

namespace gexlo {

class TopMenu final : public UIView {
public:
    static constexpr double kHeight = ScreenFacts::kTopMenuHeight;

    TopMenu(double width, double topSpace);
    const char* className() const override { return "TopMenu"; }

    void setThemes();
    void setTimetableName(std::string_view name);
    GXDateView& dateView() { return dateView_; }

    /// Its own flag: locking the menu does not touch it.
    bool isLocked() const { return isLocked_; }
    void setIsLocked(bool locked) { isLocked_ = locked; }
    /// Stored; nothing sets or reads it.
    bool tessalyUsable() const { return tessalyUsable_; }

    /// Writes what is scheduled to ring to the log, for development.
    void notiTest() const;

private:
    UIButton& addMenuButton(const char* identifier, const char* image, const char* spokenKey,
                            double width, void (TopMenu::*action)());
    void timetableListAction();
    void tessalyAction();
    void addSubjectAction();
    void subjectListAction();
    void moreAction();
    void layOut();

    // Three actions stand on the bottom menu, so their buttons are hidden and take no room.
    double addSubjectWidth_ = 0;
    double subjectListWidth_ = 0;
    double moreMenuWidth_ = 0;
    double addSubjectSpace_ = 0;
    double subjectListSpace_ = 0;
    double tessalySpace_ = 0;
    double moreSpace_ = 12;
    double titleSpaceLeft_ = GXDateView::kWidth;
    double titleSpaceRight_ = 8;
    double tessalyWidth_ = 44;
    bool isLocked_ = false;
    bool tessalyUsable_ = false;

    GXDateView& dateView_;
    UILabel& titleLabel_;
    UIButton& btnTimetableList_;
    UIButton& btnTessaly_;
    UIButton& btnAddSubject_;
    UIButton& btnSubjectList_;
    UIButton& btnMore_;
};

}  // namespace gexlo
