// The strip of periods beside a week's grid.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/views/label.h"
#include "presentation/grid/geometry.h"

namespace gexlo {

class GXPeriod;
class GXPeriodsController;

/// One row of the period list. A touch shows its hours in the bubble.
class GXPeriodCellView final : public UIView {
public:
    GXPeriodCellView(CGRect frame, const GXPeriod& period, bool daysOnLeft);
    const char* className() const override { return "GXPeriodCellView"; }

    /// Tenths of the number: 5 a half period, 1 and 6 breaks.
    int periodUnit() const { return periodUnit_; }
    void setCellColor(UIColor color) { setBackgroundColor(color); }
    void setTextColor(UIColor color);
    /// Makes room for the times; the texts of half periods and breaks fade.
    void setBeginningTime_endTime(const std::string& begin, const std::string& end);
    /// What the bubble says.
    void setClasshour(std::string classhour) { classhour_ = std::move(classhour); }

    void touchesBegan(CGPoint inWindow) override;
    void touchesEnded(CGPoint inWindow) override;
    void touchesCancelled() override;

private:
    bool isMinor() const { return periodUnit_ == 5 || periodUnit_ == 1 || periodUnit_ == 6; }
    std::shared_ptr<UILabel> newTimeLabel(const char* identifier, UIColor color);

    int periodUnit_;
    bool daysOnLeft_;
    std::string name_;
    std::string classhour_;
    NSDate touchBegan_;
    std::shared_ptr<UILabel> labelName_;
    std::shared_ptr<UILabel> labelTime_;
    std::shared_ptr<UILabel> labelEndTime_;
};

class GXPeriodsView final : public UIView {
public:
    /// How the strip looks beside its sizes.
    struct Looks {
        UIColor background;
        UIColor font;
        UIColor border;
        bool showClasshours = false;
        bool useSameClasshours = false;
    };

    explicit GXPeriodsView(int week) : week_(week) { setUserInteractionEnabled(true); }
    const char* className() const override { return "GXPeriodsView"; }

    void update(const GridGeometry& grid, const GXPeriodsController& periods, const Looks& looks);

private:
    int week_;
};

}  // namespace gexlo
