// The platform's values as the toolkit's.
#pragma once

#include <QColor>
#include <algorithm>

#include "hosts/drawing/qt_text.h"
#include "platform/views/color.h"

namespace gexlo {

/// Components outside 0 to 1, as a store may hold them, are cut to it.
inline QColor qtColor(const UIColor& color) {
    const auto part = [](float value) { return value > 0 ? std::min(value, 1.0F) : 0.0F; };
    return QColor::fromRgbF(part(color.red), part(color.green), part(color.blue),
                            part(color.alpha));
}

}  // namespace gexlo
