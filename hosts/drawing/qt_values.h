// The platform's values as the toolkit's.
#pragma once

#include <QColor>
#include <QImage>
#include <algorithm>
#include <memory>

#include "hosts/drawing/qt_text.h"
#include "platform/views/color.h"
#include "platform/views/image.h"

namespace gexlo {

/// Components outside 0 to 1, as a store may hold them, are cut to it.
inline QColor qtColor(const UIColor& color) {
    const auto part = [](float value) { return value > 0 ? std::min(value, 1.0F) : 0.0F; };
    return QColor::fromRgbF(part(color.red), part(color.green), part(color.blue),
                            part(color.alpha));
}

/// Shares the pixels.
inline QImage qtImage(const Bitmap& bitmap) {
    using Pixels = std::shared_ptr<const std::uint32_t>;
    if (!bitmap.pixels) return {};
    const auto release = [](void* held) { delete static_cast<Pixels*>(held); };
    return QImage(reinterpret_cast<const uchar*>(bitmap.pixels.get()), bitmap.width, bitmap.height,
                  qsizetype{4} * bitmap.stride, QImage::Format_ARGB32_Premultiplied, release,
                  new Pixels(bitmap.pixels));
}

}  // namespace gexlo
