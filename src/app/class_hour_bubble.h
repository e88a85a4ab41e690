// The bubble over the title that tells the hours of a period while a finger is on it.
#pragma once

#include "platform/foundation/date.h"
#include "platform/views/label.h"
#include "presentation/flows/class_hour_flow.h"

namespace gexlo {

class GXDateView;
class GXTitleView;

class ClassHourBubble final : public ClassHourFlow {
public:
    /// On top of what the screen has so far. While it stands it hides what lies beside it.
    ClassHourBubble(UIView& screen, GXTitleView& titleView, GXDateView& dateView);

    void setThemes();

    void showClassHour_periodName(const std::string& classHour,
                                  const std::string& periodName) override;
    void hideClassHour() override;

private:
    GXTitleView& titleView_;
    GXDateView& dateView_;
    NSDate classhourBeginTime_;

    // Subviews of the screen, as long as that.
    UIView& classhourBaseView_;
    UILabel& lblPeriodName_;
    UILabel& lblClasshour_;
};

}  // namespace gexlo
