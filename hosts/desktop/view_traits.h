// What the window makes of a view by its kind.
#pragma once

#include <QAccessible>
#include <string_view>

#include "platform/views/view.h"

namespace gexlo {

struct ViewTraits {
    enum class Item { plain, touchable, textField, textView };

    Item item = Item::plain;
    bool scrolls = false;
    /// That the view shows and is spoken by, as long as it keeps it.
    std::string_view text;
    QAccessible::Role role = QAccessible::Button;  // of one that is touchable
    bool isEnabled = true;
    bool isOn = false;
    /// Of the row that a wheel has chosen, and of its last; arrow keys step between them.
    int step = 0;
    int lastStep = 0;
};

ViewTraits traitsOf(const UIView& view);

}  // namespace gexlo
