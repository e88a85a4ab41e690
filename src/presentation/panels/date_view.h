// Today's date in the top menu, or the absences of the subject whose panel is open.
#pragma once

#include <memory>
#include <string>

#include "platform/foundation/notification_center.h"
#include "platform/views/button.h"
#include "platform/views/label.h"

namespace gexlo {

class GXLessonData;

class GXDateView final : public UIView {
public:
    static constexpr double kWidth = 84;

    explicit GXDateView(CGRect frame);
    const char* className() const override { return "GXDateView"; }

    void setThemes();
    /// Writes today's date.
    void setDate();
    /// The face with the date.
    void openDateView();
    /// The face with the counts of a subject, where counting is in use.
    void openAbsenceView(GXLessonData* lesson);
    void setUseAbsenceCount(bool use) { useAbsenceCount_ = use; }
    void setIsLocked(bool locked) { isLocked_ = locked; }

    void show();
    void hide();

    void setAbsenceCount(NSInteger count);
    void setLatenessCount(NSInteger count);
    /// Change the subject's count, never below 0; save.
    void absenceCountUp();
    void absenceCountDown();

private:
    void observe();
    void changeAbsenceCount(NSInteger by);
    void absenceButtonAction();

    UIView& dateFace_;
    UILabel& lblDate_;
    UILabel& lblWeekday_;
    UIView& absenceFace_;
    UILabel& lblAbsence_;
    UILabel& lblLateness_;
    UILabel& lblAbsenceCaption_;
    UILabel& lblLatenessCaption_;
    UIButton& btnAbsence_;
    GXLessonData* lesson_ = nullptr;
    bool useAbsenceCount_ = false;
    bool isLocked_ = false;
    std::vector<NotificationToken> tokens_;
};

}  // namespace gexlo
