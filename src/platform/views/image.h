// An image as the system refers to it: by the name of a resource, or drawn in one colour.
#pragma once

#include <string>

#include "platform/views/color.h"
#include "platform/views/geometry.h"

namespace gexlo {

struct UIImage {
    std::string name;  ///< of the resource; "" for one that was drawn
    UIColor fill;      ///< of the one that was drawn
    CGSize size;       ///< of the one that was drawn; a resource has its own

    static UIImage imageNamed(std::string name) { return {std::move(name), {}, {}}; }
    static UIImage filled(UIColor color, CGSize size) { return {"", color, size}; }

    bool isNone() const { return name.empty() && size == CGSize{}; }
    bool operator==(const UIImage&) const = default;
};

}  // namespace gexlo
