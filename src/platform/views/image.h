// A picture, shared by all that show it: a resource's name, pixels, or a plain colour.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/foundation/file_manager.h"
#include "platform/foundation/types.h"
#include "platform/views/color.h"
#include "platform/views/geometry.h"

namespace gexlo {

class UIView;

/// Rows of pixels, each 0xAARRGGBB with the colours multiplied by alpha. Nobody changes them.
struct Bitmap {
    int width = 0;
    int height = 0;
    int stride = 0;                               ///< pixels from one row to the next
    std::shared_ptr<const std::uint32_t> pixels;  ///< whoever shows a part of them shares them

    bool operator==(const Bitmap&) const = default;
};

/// Never changes, so a copy is the same image.
class UIImage {
public:
    /// None at all.
    UIImage() = default;
    static UIImage imageNamed(std::string_view name);
    static UIImage filled(UIColor color, CGSize size);
    /// With that many pixels a point. None without pixels.
    static UIImage imageWithBitmap_scale(Bitmap bitmap, double scale);
    /// Of a coded image; none for what the host cannot decode.
    static UIImage imageWithData_scale(std::span<const std::uint8_t> data, double scale);
    /// The same, named as the file.
    static UIImage imageWithContentsOfFile_scale(const NSURL& path, double scale);
    /// What a view shows with all upon it, in an image of `size` points of the coordinates in
    /// which its subviews lie: a scroll view's content stands in its place, as far as it is seen.
    static UIImage imageOfView_size_scale(const UIView& view, CGSize size, double scale);

    /// The same with edges that keep their size where the rest is stretched.
    UIImage stretchableImageWithLeftCapWidth_topCapHeight(double width, double height) const;
    /// The same, repeated in its own size from the corner of what it fills.
    UIImage tiled() const;

    bool isNone() const { return !content_; }
    bool isFilled() const { return content_ && content_->size != CGSize{}; }
    /// Of the resource or the file; "" for another.
    const std::string& name() const { return content().name; }
    const UIColor& fill() const { return content().fill; }
    const Bitmap& bitmap() const { return content().bitmap; }
    double scale() const { return content().scale; }
    /// In points. Of size 0 for a resource, which the host measures.
    CGSize size() const;
    const CGSize& caps() const { return content().caps; }
    bool isTiled() const { return content().tiled; }

    bool operator==(const UIImage& other) const;

private:
    struct Content {
        std::string name;
        UIColor fill;
        CGSize size;  // of what is filled
        Bitmap bitmap;
        double scale = 1;
        CGSize caps;
        bool tiled = false;
        bool operator==(const Content&) const = default;
    };
    explicit UIImage(Content content)
        : content_(std::make_shared<const Content>(std::move(content))) {}
    const Content& content() const;

    std::shared_ptr<const Content> content_;
};

// Of an image with pixels; empty for another, and where the host codes none.
NSData UIImagePNGRepresentation(const UIImage& image);
/// `quality` from 0 to 1. What is transparent comes out white.
NSData UIImageJPEGRepresentation(const UIImage& image, double quality);
/// The part in that rectangle of pixels, widened to whole ones; none where it is outside.
UIImage CGImageCreateWithImageInRect(const UIImage& image, CGRect rect);

}  // namespace gexlo
