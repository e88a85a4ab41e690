// What drops over the top menu: a title, a title with OK and cancel, or the three buttons of a
// subject's notes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "presentation/screen_facts.h"

namespace gexlo {

class GXTitleView final : public UIView {
public:
    static constexpr double kHeight = ScreenFacts::kTopMenuHeight;
    static constexpr double kDuration = 0.35;

    GXTitleView(double width, double topSpace);
    const char* className() const override { return "GXTitleView"; }

    void setThemes();

    /// The plain face; the font by the length of the text unless given.
    void show(const std::string& title);
    void show_fontSize_animationDuration(const std::string& title, float fontSize,
                                         double duration = kDuration);
    void showWithButtons(const std::string& title);
    /// The face with memo, homework and exam, one of them selected: 0, 1 or 2.
    void showWithNotes(NSInteger index);
    void setNoteIndex(NSInteger index);
    void close();
    void closeAnimated(bool animated);
    /// While on, the three buttons do nothing.
    void scheduleLock(bool locked) { scheduleLock_ = locked; }
    /// Does nothing while the buttons are not active.
    void cancelButtonHidden(bool hidden);

    void beginAddLessonMode();
    void beginEditLessonMode();

private:
    UIButton& addFaceButton(const char* identifier, CGRect frame);
    void addNoteButtons();
    void observe();
    void drop(double duration);
    void setTitle(const std::string& title, float fontSize);
    void hideButtons();
    void removeTitle();

    double topSpace_;
    bool buttonEnabled_ = false;
    bool scheduleLock_ = false;
    unsigned generation_ = 0;  // of what is shown, so that a late end does not clear a newer one
    UILabel& lblTitle_;
    UIButton& btnOK_;
    UIButton& btnCancel_;
    std::array<UIButton*, 3> noteButtons_{};  // subviews: memo, homework, exam
    std::vector<NotificationToken> tokens_;
};

}  // namespace gexlo
