#include "platform/views/date_picker.h"

#include <algorithm>

#include "platform/foundation/calendar.h"
#include "platform/foundation/date_formatter.h"

namespace gexlo {

namespace {

constexpr double kWholeDayWidth = 150;
constexpr double kWordWidth = 120;
constexpr double kNumberWidth = 56;

double widthOf(DateField field) {
    if (field == DateField::wholeDay) return kWholeDayWidth;
    return field == DateField::month || field == DateField::year ? kWordWidth : kNumberWidth;
}

}  // namespace

/// Answers the picker within for the date.
class UIDatePicker::Wheels final : public UIPickerViewDataSource, public UIPickerViewDelegate {
public:
    explicit Wheels(UIDatePicker& owner) : owner_(owner) {}

    NSInteger numberOfComponents(UIPickerView&) override { return std::ssize(owner_.fields_); }
    NSInteger numberOfRowsInComponent(UIPickerView&, NSInteger component) override {
        return numberOfRows(wheel(component).field, owner_.date_);
    }
    std::string titleForRow_forComponent(UIPickerView&, NSInteger row,
                                         NSInteger component) override {
        NSDateFormatter formatter;
        formatter.setDateFormat(wheel(component).pattern);
        return formatter.stringFromDate(dateAt(row, component));
    }
    double widthForComponent(UIPickerView&, NSInteger component) override {
        return widthOf(wheel(component).field);
    }
    void didSelectRow_inComponent(UIPickerView&, NSInteger row, NSInteger component) override {
        owner_.take(dateAt(row, component));
    }

private:
    const DateWheel& wheel(NSInteger component) const {
        return owner_.fields_[static_cast<std::size_t>(component)];
    }
    NSDate dateAt(NSInteger row, NSInteger component) const {
        return dateForRow(wheel(component).field, owner_.date_, owner_.origin_, row);
    }

    UIDatePicker& owner_;
};

UIDatePicker::UIDatePicker(CGRect frame)
    : UIControl(frame),
      date_(NSDate::date()),
      origin_(date_),
      wheels_(std::make_shared<Wheels>(*this)),
      picker_(std::make_shared<UIPickerView>(bounds())) {
    picker_->setDataSource(wheels_);
    picker_->setDelegate(wheels_);
    addSubview(picker_);
    makeWheels();
}

UIDatePicker::~UIDatePicker() = default;

void UIDatePicker::makeWheels() {
    fields_ = dateWheels(mode_, NSLocale::currentLocale());
    picker_->reloadAllComponents();
    showDate(false);
}

void UIDatePicker::setDatePickerMode(UIDatePickerMode mode) {
    if (mode == mode_) return;
    change(mode_, mode);
    makeWheels();
}

void UIDatePicker::setDate_animated(NSDate date, bool animated) {
    change(date_, date);
    showDate(animated);
}

/// A wheel of whole days that has come far from its middle goes on around the present day.
void UIDatePicker::showDate(bool animated) {
    const NSInteger days = numberOfRows(DateField::wholeDay, date_);
    const NSInteger row = rowForDate(DateField::wholeDay, date_, origin_);
    if (row < days / 4 || row > days - days / 4) origin_ = date_;
    for (NSInteger component = 0; component < picker_->numberOfComponents(); ++component) {
        const DateField field = fields_[static_cast<std::size_t>(component)].field;
        picker_->reloadComponent(component);
        picker_->selectRow_inComponent_animated(rowForDate(field, date_, origin_), component,
                                                animated);
    }
}

void UIDatePicker::take(NSDate date) {
    change(date_, date);
    showDate(true);
    sendActions(UIControlEvent::valueChanged);
}

void UIDatePicker::turnToDate(NSDate date) {
    const NSCalendar calendar = NSCalendar::currentCalendar();
    NSDateComponents taken = calendar.componentsFromDate(date_);
    const NSDateComponents given = calendar.componentsFromDate(date);
    if (mode_ != UIDatePickerMode::time) {
        taken.year = given.year;
        taken.month = given.month;
        taken.day = given.day;
    }
    if (mode_ != UIDatePickerMode::date) {
        taken.hour = given.hour;
        taken.minute = given.minute;
    }
    taken.second = 0;
    take(calendar.dateFromComponents(taken));
}

void UIDatePicker::setEnabled(bool enabled) {
    static constexpr double kDimmed = 0.4;
    UIControl::setEnabled(enabled);
    picker_->setUserInteractionEnabled(enabled);
    picker_->setAlpha(enabled ? 1 : kDimmed);
}

void UIDatePicker::setFrame(CGRect frame) {
    UIControl::setFrame(frame);
    picker_->setFrame(bounds());
}

}  // namespace gexlo
