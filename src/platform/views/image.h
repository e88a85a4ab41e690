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
    CGSize caps;       ///< of the edges that keep their size where the rest is stretched

    static UIImage imageNamed(std::string name) { return {std::move(name), {}, {}, {}}; }
    static UIImage filled(UIColor color, CGSize size) { return {"", color, size, {}}; }

    UIImage stretchableImageWithLeftCapWidth_topCapHeight(double width, double height) const {
        UIImage image = *this;
        image.caps = {width, height};
        return image;
    }

    bool isNone() const { return name.empty() && size == CGSize{}; }
    bool operator==(const UIImage&) const = default;
};

}  // namespace gexlo
