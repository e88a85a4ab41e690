// Alerts and sheets, and answering them.
#include "hosts/headless/driver_command.h"
#include "hosts/headless/driver_context.h"

namespace gexlo {

using nlohmann::json;

namespace {

json placeOf(std::optional<std::size_t> button) {
    return button ? json(*button) : json();
}

json jsonFromAlert(const UIAlert& alert) {
    using Style = UIAlert::Button::Style;
    json buttons = json::array();
    for (const UIAlert::Button& button : alert.buttons)
        buttons.push_back(button.title);
    json fields = json::array();
    for (const UIAlert::Field& field : alert.fields) {
        fields.push_back(
            {{"placeholder", field.placeholder}, {"text", field.text}, {"secure", field.secure}});
    }
    return {{"kind", alert.kind == UIAlert::Kind::sheet ? "sheet" : "alert"},
            {"title", alert.title},
            {"message", alert.message},
            {"buttons", std::move(buttons)},
            {"destructive", placeOf(alert.firstButton(Style::destructive))},
            {"cancel", placeOf(alert.firstButton(Style::cancel))},
            {"fields", std::move(fields)},
            {"busy", alert.isBusy()}};
}

json alert(const DriverContext& context, const json&) {
    json stack = json::array();
    for (const UIAlert& shown : context.window().alerts())
        stack.push_back(jsonFromAlert(shown));
    json top = stack.empty() ? json() : stack.back();
    return {{"alert", std::move(top)}, {"stack", std::move(stack)}};
}

std::size_t buttonOf(const json& fields, const UIAlert& shown) {
    const auto button = fields.find("button");
    if (button != fields.end() && button->is_string()) {
        for (std::size_t i = 0; i < shown.buttons.size(); ++i) {
            if (shown.buttons[i].title == button->get_ref<const std::string&>()) return i;
        }
        throw CommandError("there is no such button");
    }
    const std::size_t index = indexField(fields, "button");
    if (index >= shown.buttons.size()) throw CommandError("there is no such button");
    return index;
}

json answer(const DriverContext& context, const json& fields) {
    UIWindow& window = context.window();
    if (window.alerts().empty()) throw CommandError("no alert is up");
    const std::size_t button = buttonOf(fields, window.alerts().back());
    std::vector<std::string> texts;
    if (const auto given = fields.find("texts"); given != fields.end()) {
        if (!given->is_array()) throw CommandError("\"texts\" is no list");
        for (const json& text : *given) {
            if (!text.is_string()) throw CommandError("\"texts\" holds what is no text");
            texts.push_back(text.get<std::string>());
        }
    }
    if (texts.size() > window.alerts().back().fields.size()) {
        throw CommandError("the alert has fewer fields");
    }
    context.device.perform([&] { window.answer(button, texts); });
    return nothing();
}

}  // namespace

std::span<const DriverCommand> alertCommands() {
    static constexpr DriverCommand kCommands[] = {
        {"alert", alert},
        {"answer", answer},
    };
    return kCommands;
}

}  // namespace gexlo
