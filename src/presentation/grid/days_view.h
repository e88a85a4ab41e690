// The strip of days beside a week's grid.
#pragma once

#include <memory>
#include <string>

#include "platform/views/label.h"
#include "presentation/grid/geometry.h"

namespace gexlo {

/// The text of a weekday, 0 Sunday to 6 Saturday: its name, or with numbers the number alone
/// where six days or more are shown, else the word for day with it. Sunday is number 7.
std::string dayToString(int day, bool daysToNumbers, NSInteger numDays);

class GXDayCellView final : public UIView {
public:
    /// Tag by which the strip finds its cells.
    static constexpr NSInteger kTag = 200;

    GXDayCellView(CGRect frame, int weekday);
    const char* className() const override { return "GXDayCellView"; }

    int weekday() const { return weekday_; }
    UILabel& label() { return *label_; }
    void setToday(bool isToday) { mask_->setHidden(!isToday); }

private:
    int weekday_;
    std::shared_ptr<UILabel> label_;
    std::shared_ptr<UIView> mask_;
};

class GXDaysView final : public UIView {
public:
    struct Looks {
        UIColor background;
        UIColor font;
        UIColor border;
        bool daysToNumbers = false;
    };

    explicit GXDaysView(int week) : week_(week) {}
    const char* className() const override { return "GXDaysView"; }

    void update(const GridGeometry& grid, const Looks& looks);
    /// Marks the cells of a weekday, 0 Sunday to 6 Saturday.
    void markToday(int weekday);

private:
    int week_;
};

}  // namespace gexlo
