// The keyboard, and controls that are moved to a value.
#include <functional>

#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"
#include "hosts/headless/view_search.h"
#include "platform/foundation/calendar.h"
#include "platform/foundation/utf8.h"
#include "platform/views/date_picker.h"
#include "platform/views/slider.h"
#include "platform/views/switch.h"
#include "platform/views/text_input.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// What the keyboard writes to: a field of the topmost alert, else the one that has the focus.
class WrittenField {
public:
    WrittenField(const DriverContext& context, const json& fields)
        : device_(context.device),
          window_(context.window()),
          place_(placeOf(fields)),
          isOfAlert_(!window_.alerts().empty()) {
        const bool isThere = WrittenField::isThere(context, fields);
        if (isOfAlert_ && !isThere) throw CommandError("the alert has no such field");
        if (!isThere) throw CommandError("no field has the focus");
        // It may leave the screen by what it is told.
        if (!isOfAlert_) {
            input_ =
                std::static_pointer_cast<UITextInput>(window_.firstResponder()->shared_from_this());
        }
    }
    static bool isThere(const DriverContext& context, const json& fields) {
        const UIWindow& window = context.window();
        if (window.alerts().empty()) return window.firstResponder() && !window.isCovered();
        return placeOf(fields) < window.alerts().back().fields.size();
    }

    const std::string& text() const {
        return isOfAlert_ ? window_.alerts().back().fields[place_].text : input_->text();
    }
    void insert(std::string_view text) {
        if (isOfAlert_) return write(this->text() + onOneLine(text));
        device_.perform([&] { input_->insertText(text); });
    }
    void clear() {
        if (isOfAlert_) return write("");
        device_.perform([&] { input_->deleteAll(); });
    }
    /// A field of an alert has no return action.
    void pressReturn() {
        if (!isOfAlert_) device_.perform([&] { input_->returnKey(); });
    }

private:
    static std::size_t placeOf(const json& fields) {
        return optionalIndex(fields, "field").value_or(0);
    }
    void write(const std::string& text) {
        device_.perform([&] { window_.setAlertText(place_, text); });
    }

    Device& device_;
    UIWindow& window_;
    std::size_t place_;
    bool isOfAlert_;
    std::shared_ptr<UITextInput> input_;
};

/// What was typed can move the focus on, as between the fields of a time: the rest goes to
/// the field that has it then.
json type(const DriverContext& context, const json& fields) {
    const std::string text = textField(fields, "text");
    WrittenField first(context, fields);
    for (const std::string_view character : charactersOf(text)) {
        if (!WrittenField::isThere(context, fields)) break;
        WrittenField field(context, fields);
        if (character == "\n") {
            field.pressReturn();
        } else {
            field.insert(character);
        }
    }
    return nothing();
}

json paste(const DriverContext& context, const json& fields) {
    const std::string text = textField(fields, "text");
    WrittenField field(context, fields);
    field.insert(text);
    return {{"text", field.text()}};
}

json clear(const DriverContext& context, const json& fields) {
    WrittenField field(context, fields);
    field.clear();
    return {{"text", field.text()}};
}

json returnKey(const DriverContext& context, const json& fields) {
    WrittenField field(context, fields);
    field.pressReturn();
    return {{"text", field.text()}};
}

/// Reads the value that a kind of control takes; throws for what takes none.
class ValueReader final : public MutableViewVisitor {
public:
    explicit ValueReader(const json& fields) : fields_(fields) {}

    bool isEnabled = true;
    /// As a finger does, with all whom it tells.
    std::function<void()> change;
    /// What the control holds, for the answer.
    std::function<json()> held;

    void visit(UIView&) override { refuse(); }
    void visit(UILabel&) override { refuse(); }
    void visit(UIImageView&) override { refuse(); }
    void visit(UIActivityIndicatorView&) override { refuse(); }
    void visit(UIScrollView&) override { refuse(); }
    void visit(UITableView&) override { refuse(); }
    void visit(UITableViewCell&) override { refuse(); }
    void visit(UIControl&) override { refuse(); }
    void visit(UIButton&) override { refuse(); }
    void visit(UISlider& slider) override {
        const auto value = static_cast<float>(numberField(fields_, "value"));
        isEnabled = slider.isEnabled();
        change = [&slider, value] {
            slider.setValue(value);
            slider.sendActions(UIControlEvent::valueChanged);
        };
        held = [&slider] { return slider.value(); };
    }
    void visit(UISwitch& control) override {
        const bool value = flagField(fields_, "value");
        isEnabled = control.isEnabled();
        change = [&control, value] { control.throwTo(value); };
        held = [&control] { return control.isOn(); };
    }
    void visit(UIPickerView& picker) override {
        const NSInteger component = numberOf("component");
        UIPickerWheel* wheel = picker.wheel(component);
        if (!wheel) throw CommandError("there is no such wheel");
        visit(*wheel);
        // Whoever is told may take the wheel off.
        held = [&picker, component] { return picker.selectedRowInComponent(component); };
    }
    void visit(UIPickerWheel& wheel) override {
        const NSInteger row = numberOf("row");
        if (row >= wheel.numberOfRows()) throw CommandError("there is no such row");
        change = [&wheel, row] { wheel.turnToRow(row); };
        held = [&wheel] { return wheel.selectedRow(); };
    }
    void visit(UIDatePicker& picker) override {
        const std::string text = textField(fields_, "value");
        const auto date = dateFor(text, picker);
        if (!date) throw CommandError("\"value\" is no local time");
        isEnabled = picker.isEnabled();
        change = [&picker, date] { picker.turnToDate(*date); };
        held = [&picker] { return picker.date().timeIntervalSince1970(); };
    }
    void visit(UITextField&) override { refuse(); }
    void visit(UITextView&) override { refuse(); }

private:
    NSInteger numberOf(const char* field) const {
        return static_cast<NSInteger>(indexField(fields_, field));
    }
    /// A time of day is one of the day that the picker holds.
    static std::optional<NSDate> dateFor(const std::string& text, const UIDatePicker& picker) {
        const NSCalendar calendar = NSCalendar::currentCalendar();
        constexpr std::string_view kTimeOnly = "HH:MM";
        const bool isTime = picker.datePickerMode() == UIDatePickerMode::time;
        if (!isTime || text.size() != kTimeOnly.size()) return dateFromLocalTime(text, calendar);
        return dateFromLocalTime("2000-01-01T" + text + ":00", calendar);
    }
    [[noreturn]] static void refuse() { throw CommandError("that view has no value to set"); }
    const json& fields_;
};

/// Moves what has a value as a finger would.
json set(const DriverContext& context, const json& fields) {
    ViewSearch search(context, fields);
    ValueReader refuser(fields);
    search.theView().accept(refuser);
    if (!refuser.isEnabled) throw CommandError("that view is disabled");
    search.bringWithinReach();
    ValueReader reader(fields);
    UIView& view = search.theView();
    const auto held = view.shared_from_this();
    view.accept(reader);
    context.device.perform(reader.change);
    return {{"value", reader.held()}};
}

}  // namespace

std::span<const DriverCommand> typingCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"type", type}, {"paste", paste}, {"clear", clear}, {"return", returnKey}, {"set", set},
    };
    return kCommands;
}

}  // namespace gexlo
