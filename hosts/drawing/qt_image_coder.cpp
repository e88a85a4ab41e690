#include "hosts/drawing/qt_image_coder.h"

#include <fcntl.h>
#include <unistd.h>

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "hosts/drawing/gui_application.h"
#include "hosts/drawing/qt_values.h"

namespace gexlo {

namespace {

/// How the files of a format begin. Nothing else is read, however much the toolkit could.
struct Format {
    const char* name;
    QByteArray start;
};

QByteArray formatOf(const QByteArray& bytes) {
    static const Format kFormats[] = {{"png", QByteArray::fromHex("89504e470d0a1a0a")},
                                      {"jpeg", QByteArray::fromHex("ffd8ff")}};
    for (const Format& format : kFormats) {
        if (bytes.startsWith(format.start)) return format.name;
    }
    return {};
}

/// The libraries write there themselves what is wrong with a file; it is for faults of the system.
class QuietStandardError {
public:
    QuietStandardError() : former_(::dup(STDERR_FILENO)) {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(nowhere, STDERR_FILENO);
        ::close(nowhere);
    }
    ~QuietStandardError() {
        ::dup2(former_, STDERR_FILENO);
        ::close(former_);
    }
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;

private:
    int former_;
};

bool isTooLarge(QSize size) {
    return std::int64_t{size.width()} * size.height() > ImageCoder::kMostPixels;
}

/// The image lives as long as somebody shares its pixels.
Bitmap bitmapOf(QImage image) {
    if (image.isNull()) return {};
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    const auto held = std::make_shared<const QImage>(std::move(image));
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(held->constBits());
    return {held->width(), held->height(), static_cast<int>(held->bytesPerLine() / 4),
            std::shared_ptr<const std::uint32_t>(held, pixels)};
}

NSData coded(const QImage& image, const char* format, int quality) {
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image)) return {};
    return {buffer.data().begin(), buffer.data().end()};
}

}  // namespace

Bitmap QtImageCoder::decode(std::span<const std::uint8_t> data) {
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data.data()),
                                               static_cast<qsizetype>(data.size()));
    const QByteArray format = formatOf(bytes);
    if (format.isEmpty()) return {};
    needGuiApplication();
    const QuietStandardError quiet;
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    if (!reader.size().isValid() || isTooLarge(reader.size())) return {};
    return bitmapOf(reader.read());
}

NSData QtImageCoder::png(const Bitmap& bitmap) {
    return coded(qtImage(bitmap), "png", -1);
}

NSData QtImageCoder::jpeg(const Bitmap& bitmap, double quality) {
    QImage image(bitmap.width, bitmap.height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(0, 0, qtImage(bitmap));
    return coded(image, "jpeg", static_cast<int>(std::lround(std::clamp(quality, 0.0, 1.0) * 100)));
}

Bitmap QtImageCoder::render(const UIView& view, CGSize size, double scale) {
    if (!painter_) painter_.emplace(images_);
    return bitmapOf(painter_->paintContent(view, size, scale));
}

}  // namespace gexlo
