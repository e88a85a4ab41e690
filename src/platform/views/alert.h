// An alert or a sheet of choices: it lies over everything until a button is pressed.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace gexlo {

class UIView;

/// Serves what the system knows as alert view, action sheet and alert controller alike.
struct UIAlert {
    enum class Kind { alert, sheet };
    struct Button {
        std::string title;
        enum class Style { normal, cancel, destructive } style = Style::normal;
    };
    struct Field {
        std::string placeholder;
        std::string text;
        bool secure = false;
    };

    Kind kind = Kind::alert;
    std::string title;
    std::string message;
    std::vector<Button> buttons;
    std::vector<Field> fields;
    /// Called with the index of the button once the alert has gone, and with the fields as
    /// they were filled in; absent where nothing follows.
    std::function<void(std::size_t button, const std::vector<Field>& fields)> dismissed;
    /// With this view, or one above it, the alert goes too, and nothing follows.
    std::weak_ptr<UIView> owner;

    /// An alert of one button after which nothing follows.
    static UIAlert notice(std::string title, std::string message, std::string button);

    std::optional<std::size_t> firstButton(Button::Style style) const;
    /// What a keyboard's return key stands for: the last button that neither cancels nor
    /// destroys, else the one that cancels. A sheet of several choices has none.
    std::optional<std::size_t> defaultButton() const;
    /// One without a button only waits.
    bool isBusy() const { return buttons.empty(); }

    /// Puts it over the key window, above those that are up.
    void show() &&;
    /// The same for as long as that view stays.
    void showFor(UIView& view) &&;
};

}  // namespace gexlo
