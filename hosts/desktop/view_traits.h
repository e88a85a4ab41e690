// What the window makes of a view by its kind.
#pragma once

#include <string_view>

#include "platform/views/view.h"

namespace gexlo {

struct ViewTraits {
    enum class Item { plain, touchable, textField, textView };

    Item item = Item::plain;
    bool scrolls = false;
    /// That the view shows and is spoken by, as long as it keeps it.
    std::string_view text;
    bool isEnabled = true;
    bool isOn = false;
};

ViewTraits traitsOf(const UIView& view);

}  // namespace gexlo
