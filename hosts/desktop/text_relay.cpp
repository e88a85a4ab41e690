#include "hosts/desktop/text_relay.h"

#include "hosts/drawing/qt_values.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

TextRelay::TextRelay(QQuickItem& item, UITextInput& input, const TextActions& actions)
    : QObject(&item),
      item_(item),
      input_(std::static_pointer_cast<UITextInput>(input.shared_from_this())),
      actions_(actions) {
    // The signals are those of the item's own type, which only their names tell.
    connect(&item, SIGNAL(edited(QString)), this, SLOT(edited(QString)));
    connect(&item, SIGNAL(returned()), this, SLOT(returned()));
    connect(&item, SIGNAL(focused()), this, SLOT(focused()));
}

void TextRelay::followReach() {
    const auto field = input();
    UIWindow* window = field ? field->window() : nullptr;
    item_.setEnabled(window && field->isEnabled() && window->canReach(*field));
}

void TextRelay::edited(const QString& text) {
    const auto field = input();
    if (!field) return;
    actions_.edit(*field, text);
    // What the field's delegate did not let in goes again.
    const QString taken = qtText(field->text());
    if (taken != text) item_.setProperty("text", taken);
}

void TextRelay::returned() {
    if (const auto field = input()) actions_.returnKey(*field);
}

void TextRelay::focused() {
    if (const auto field = input()) actions_.focus(*field);
}

}  // namespace gexlo
