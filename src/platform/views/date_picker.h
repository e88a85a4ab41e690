// A control that holds a date, or a time of day, set by wheels in the user's own order.
#pragma once

#include <memory>

#include "platform/views/control.h"
#include "platform/views/date_wheels.h"
#include "platform/views/picker_view.h"

namespace gexlo {

class UIDatePicker final : public UIControl {
public:
    /// Shows the present moment.
    explicit UIDatePicker(CGRect frame);
    ~UIDatePicker() override;

    const char* className() const override { return "UIDatePicker"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    UIDatePickerMode datePickerMode() const { return mode_; }
    void setDatePickerMode(UIDatePickerMode mode);
    NSDate date() const { return date_; }
    /// Tells nobody; the date stays as it is given.
    void setDate_animated(NSDate date, bool animated);
    /// As a finger does, to the minute: takes of it what the mode shows, and tells.
    void turnToDate(NSDate date);

    const UIPickerView& wheels() const { return *picker_; }

    void setEnabled(bool enabled) override;
    void setFrame(CGRect frame) override;
    // What lies beside the wheels takes touches and does nothing.
    void touchesBegan(CGPoint) override {}
    void touchesMoved(CGPoint) override {}
    void touchesEnded(CGPoint) override {}
    void touchesCancelled() override {}

private:
    class Wheels;

    void makeWheels();
    void showDate(bool animated);
    void take(NSDate date);

    UIDatePickerMode mode_ = UIDatePickerMode::dateAndTime;
    NSDate date_;
    NSDate origin_;  // the day around which the wheel of whole days goes
    std::vector<DateWheel> fields_;
    std::shared_ptr<Wheels> wheels_;
    std::shared_ptr<UIPickerView> picker_;
};

}  // namespace gexlo
