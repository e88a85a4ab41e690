#include "platform/views/image.h"

#include <cmath>

#include "platform/foundation/device.h"
#include "platform/foundation/file_manager.h"
#include "platform/views/image_coder.h"

namespace gexlo {

namespace {

ImageCoder* coder() {
    return Device::current().services().imageCoder.get();
}

}  // namespace

const UIImage::Content& UIImage::content() const {
    static const Content none;
    return content_ ? *content_ : none;
}

UIImage UIImage::imageNamed(std::string_view name) {
    if (name.empty()) return {};
    Content content;
    content.name = name;
    return UIImage(std::move(content));
}

UIImage UIImage::filled(UIColor color, CGSize size) {
    if (size == CGSize{}) return {};
    Content content;
    content.fill = color;
    content.size = size;
    return UIImage(std::move(content));
}

UIImage UIImage::imageWithBitmap_scale(Bitmap bitmap, double scale) {
    if (!bitmap.pixels) return {};
    Content content;
    content.bitmap = std::move(bitmap);
    content.scale = scale > 0 ? scale : 1;
    return UIImage(std::move(content));
}

UIImage UIImage::imageWithData_scale(std::span<const std::uint8_t> data, double scale) {
    return imageWithBitmap_scale(coder() ? coder()->decode(data) : Bitmap{}, scale);
}

UIImage UIImage::imageWithContentsOfFile_scale(const NSURL& path, double scale) {
    const auto file = contentsOfFile(path);
    if (!file) return {};
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(file->data()), file->size());
    const UIImage image = imageWithData_scale(bytes, scale);
    if (image.isNone()) return {};
    Content content = image.content();
    content.name = path.filename().string();
    return UIImage(std::move(content));
}

UIImage UIImage::imageOfView_size_scale(const UIView& view, CGSize size, double scale) {
    return imageWithBitmap_scale(coder() ? coder()->render(view, size, scale) : Bitmap{}, scale);
}

UIImage UIImage::stretchableImageWithLeftCapWidth_topCapHeight(double width, double height) const {
    if (isNone()) return {};
    Content content = this->content();
    content.caps = {width, height};
    return UIImage(std::move(content));
}

UIImage UIImage::tiled() const {
    if (isNone()) return {};
    Content content = this->content();
    content.tiled = true;
    return UIImage(std::move(content));
}

CGSize UIImage::size() const {
    const Content& content = this->content();
    if (!content.bitmap.pixels) return content.size;
    return {content.bitmap.width / content.scale, content.bitmap.height / content.scale};
}

bool UIImage::operator==(const UIImage& other) const {
    return content_ == other.content_ ||
           (content_ && other.content_ && *content_ == *other.content_);
}

NSData UIImagePNGRepresentation(const UIImage& image) {
    return coder() && image.bitmap().pixels ? coder()->png(image.bitmap()) : NSData{};
}

NSData UIImageJPEGRepresentation(const UIImage& image, double quality) {
    return coder() && image.bitmap().pixels ? coder()->jpeg(image.bitmap(), quality) : NSData{};
}

UIImage CGImageCreateWithImageInRect(const UIImage& image, CGRect rect) {
    const Bitmap& whole = image.bitmap();
    const CGRect part = rect.intersection(
        {0, 0, static_cast<double>(whole.width), static_cast<double>(whole.height)});
    if (!(part.width > 0) || !(part.height > 0)) return {};
    const int x = static_cast<int>(std::floor(part.x));
    const int y = static_cast<int>(std::floor(part.y));
    Bitmap bitmap = whole;
    bitmap.width = static_cast<int>(std::ceil(part.maxX())) - x;
    bitmap.height = static_cast<int>(std::ceil(part.maxY())) - y;
    bitmap.pixels = {whole.pixels,
                     whole.pixels.get() + static_cast<std::ptrdiff_t>(y) * whole.stride + x};
    return UIImage::imageWithBitmap_scale(std::move(bitmap), image.scale());
}

}  // namespace gexlo
