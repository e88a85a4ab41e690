// Codes, decodes and paints images with the toolkit.
#pragma once

#include <filesystem>
#include <optional>

#include "hosts/drawing/view_painter.h"
#include "platform/views/image_coder.h"

namespace gexlo {

/// For one thread.
class QtImageCoder final : public ImageCoder {
public:
    /// Paints views with the images of that directory.
    explicit QtImageCoder(std::filesystem::path images) : images_(std::move(images)) {}

    Bitmap decode(std::span<const std::uint8_t> data) override;
    NSData png(const Bitmap& bitmap) override;
    NSData jpeg(const Bitmap& bitmap, double quality) override;
    Bitmap render(const UIView& view, CGSize size, double scale) override;

private:
    std::filesystem::path images_;
    std::optional<ViewPainter> painter_;  // made when it is first needed
};

}  // namespace gexlo
