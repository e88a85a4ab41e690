// The keyboard, and controls that are moved to a value.
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

UITextInput& focusedInput() {
    UIWindow& window = UIWindow::keyWindow();
    if (!window.alerts().empty()) throw CommandError("an alert is up");
    UITextInput* input = window.firstResponder();
    if (!input) throw CommandError("no field has the focus");
    return *input;
}

/// In a turn of its own; a field may leave the screen by what it is told.
template <typename Act>
json withFocus(Act act) {
    UITextInput& input = focusedInput();
    const auto held = input.shared_from_this();
    Device::current().perform([&] { act(input); });
    return {{"text", input.text()}};
}

/// What was typed can move the focus on, as between the fields of a time: the rest goes to
/// the field that has it then.
json type(const json& fields) {
    const std::string text = textField(fields, "text");
    focusedInput();
    for (const std::string_view character : charactersOf(text)) {
        if (!UIWindow::keyWindow().firstResponder()) break;
        withFocus([&](UITextInput& input) {
            if (character == "\n") {
                input.returnKey();
            } else {
                input.insertText(character);
            }
        });
    }
    return nothing();
}

json paste(const json& fields) {
    const std::string text = textField(fields, "text");
    return withFocus([&](UITextInput& input) { input.insertText(text); });
}

json clear(const json&) {
    return withFocus([](UITextInput& input) { input.deleteAll(); });
}

json returnKey(const json&) {
    return withFocus([](UITextInput& input) { input.returnKey(); });
}

json set(const json& fields) {
    UIView& view = theView(fields);
    auto* slider = dynamic_cast<UISlider*>(&view);
    if (!slider) throw CommandError("that view has no value to set");
    const double value = numberField(fields, "value");
    if (!slider->isEnabled() || !UIWindow::keyWindow().canReach(view)) {
        throw CommandError("that view cannot be reached");
    }
    Device::current().perform([&] {
        slider->setValue(static_cast<float>(value));
        slider->sendActions(UIControlEvent::valueChanged);
    });
    return {{"value", slider->value()}};
}

}  // namespace

std::span<const DriverCommand> typingCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"type", type}, {"paste", paste}, {"clear", clear}, {"return", returnKey}, {"set", set},
    };
    return kCommands;
}

}  // namespace gexlo
