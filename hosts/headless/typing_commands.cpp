// The keyboard, and controls that are moved to a value.
#include <functional>

#include "hosts/headless/driver_command.h"
#include "hosts/headless/view_search.h"
#include "platform/foundation/device.h"
#include "platform/foundation/utf8.h"
#include "platform/views/slider.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

using nlohmann::json;

namespace {

/// What the keyboard writes to: a field of the topmost alert, else the one that has the focus.
class WrittenField {
public:
    explicit WrittenField(const json& fields)
        : place_(placeOf(fields)), isOfAlert_(!window().alerts().empty()) {
        if (isOfAlert_ && !isThere(fields)) throw CommandError("the alert has no such field");
        if (!isThere(fields)) throw CommandError("no field has the focus");
        // It may leave the screen by what it is told.
        if (!isOfAlert_) {
            input_ = std::static_pointer_cast<UITextInput>(
                window().firstResponder()->shared_from_this());
        }
    }
    static bool isThere(const json& fields) {
        if (window().alerts().empty()) return window().firstResponder() && !window().isCovered();
        return placeOf(fields) < window().alerts().back().fields.size();
    }

    const std::string& text() const {
        return isOfAlert_ ? window().alerts().back().fields[place_].text : input_->text();
    }
    void insert(std::string_view text) {
        if (isOfAlert_) return write(this->text() + onOneLine(text));
        Device::current().perform([&] { input_->insertText(text); });
    }
    void clear() {
        if (isOfAlert_) return write("");
        Device::current().perform([&] { input_->deleteAll(); });
    }
    /// A field of an alert has no return action.
    void pressReturn() {
        if (!isOfAlert_) Device::current().perform([&] { input_->returnKey(); });
    }

private:
    static UIWindow& window() { return UIWindow::keyWindow(); }
    static std::size_t placeOf(const json& fields) {
        return optionalIndex(fields, "field").value_or(0);
    }
    void write(const std::string& text) {
        Device::current().perform([&] { window().setAlertText(place_, text); });
    }

    std::size_t place_;
    bool isOfAlert_;
    std::shared_ptr<UITextInput> input_;
};

/// What was typed can move the focus on, as between the fields of a time: the rest goes to
/// the field that has it then.
json type(const json& fields) {
    const std::string text = textField(fields, "text");
    WrittenField first(fields);
    for (const std::string_view character : charactersOf(text)) {
        if (!WrittenField::isThere(fields)) break;
        WrittenField field(fields);
        if (character == "\n") {
            field.pressReturn();
        } else {
            field.insert(character);
        }
    }
    return nothing();
}

json paste(const json& fields) {
    const std::string text = textField(fields, "text");
    WrittenField field(fields);
    field.insert(text);
    return {{"text", field.text()}};
}

json clear(const json& fields) {
    WrittenField field(fields);
    field.clear();
    return {{"text", field.text()}};
}

json returnKey(const json& fields) {
    WrittenField field(fields);
    field.pressReturn();
    return {{"text", field.text()}};
}

/// Moves what has a value as a finger would.
class ValueSetter final : public MutableViewVisitor {
public:
    explicit ValueSetter(const json& fields) : fields_(fields) {}
    /// Of the command.
    json answer;

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
        const double value = numberField(fields_, "value");
        move(slider, [&] { slider.setValue(static_cast<float>(value)); });
        answer = {{"value", slider.value()}};
    }
    void visit(UITextField&) override { refuse(); }
    void visit(UITextView&) override { refuse(); }

private:
    [[noreturn]] static void refuse() { throw CommandError("that view has no value to set"); }
    static void move(UIControl& control, const std::function<void()>& change) {
        if (!control.isEnabled() || !UIWindow::keyWindow().canReach(control)) {
            throw CommandError("that view cannot be reached");
        }
        Device::current().perform([&] {
            change();
            control.sendActions(UIControlEvent::valueChanged);
        });
    }

    const json& fields_;
};

json set(const json& fields) {
    ValueSetter setter(fields);
    theView(fields).accept(setter);
    return setter.answer;
}

}  // namespace

std::span<const DriverCommand> typingCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"type", type}, {"paste", paste}, {"clear", clear}, {"return", returnKey}, {"set", set},
    };
    return kCommands;
}

}  // namespace gexlo
