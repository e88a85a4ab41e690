// A font as the system names it.
#pragma once

#include <string>

namespace gexlo {

struct UIFont {
    std::string family;  ///< "" is the system font
    double size = 0;     ///< points
    bool bold = false;

    static UIFont fontWithName_size(std::string name, double size) {
        return {std::move(name), size, false};
    }
    static UIFont systemFontOfSize(double size) { return {"", size, false}; }
    static UIFont boldSystemFontOfSize(double size) { return {"", size, true}; }

    bool operator==(const UIFont&) const = default;
};

}  // namespace gexlo
