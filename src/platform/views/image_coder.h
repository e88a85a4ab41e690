// What the host does with images: codes and decodes them, and paints views into them.
#pragma once

#include <cstdint>
#include <span>

#include "platform/foundation/types.h"
#include "platform/views/geometry.h"
#include "platform/views/image.h"

namespace gexlo {

/// Gives a bitmap without pixels where there can be none.
class ImageCoder {
public:
    /// No larger image is made.
    static constexpr std::int64_t kMostPixels = 1 << 25;

    virtual ~ImageCoder() = default;
    /// Of a PNG or a JPEG, as it is to be seen; none for bytes that are neither, or broken.
    virtual Bitmap decode(std::span<const std::uint8_t> data) = 0;
    virtual NSData png(const Bitmap& bitmap) = 0;
    virtual NSData jpeg(const Bitmap& bitmap, double quality) = 0;
    /// As `UIImage::imageOfView_size_scale` tells.
    virtual Bitmap render(const UIView& view, CGSize size, double scale) = 0;
};

}  // namespace gexlo
