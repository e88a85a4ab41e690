// A font as the system names it.
#pragma once

#include <string_view>

namespace gexlo {

struct UIFont {
    /// A literal, so that a font is copied as it stands; "" is the system font.
    std::string_view family;
    float size = 0;  ///< points
    bool bold = false;

    static constexpr UIFont fontWithName_size(std::string_view literal, float size) {
        return {literal, size, false};
    }
    static constexpr UIFont systemFontOfSize(float size) { return {"", size, false}; }
    static constexpr UIFont boldSystemFontOfSize(float size) { return {"", size, true}; }

    bool operator==(const UIFont&) const = default;
};

}  // namespace gexlo
