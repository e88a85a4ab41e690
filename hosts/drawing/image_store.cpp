#include "hosts/drawing/image_store.h"

#include <QPainter>
#include <QSvgRenderer>

#include "hosts/drawing/qt_values.h"

namespace gexlo {

ImageStore::ImageStore(std::filesystem::path directory) : directory_(std::move(directory)) {}
ImageStore::~ImageStore() = default;

QSvgRenderer* ImageStore::renderer(const std::string& name) {
    const auto [found, isNew] = renderers_.try_emplace(name);
    if (isNew) {
        const std::filesystem::path file = directory_ / (name + ".svg");
        std::error_code error;
        if (std::filesystem::is_regular_file(file, error)) {
            found->second = std::make_unique<QSvgRenderer>(qtText(file.string()));
        }
    }
    const auto& renderer = found->second;
    return renderer && renderer->isValid() ? renderer.get() : nullptr;
}

CGSize ImageStore::sizeOf(const UIImage& image) {
    const QSvgRenderer* found = image.name().empty() ? nullptr : renderer(image.name());
    if (image.bitmap().pixels || !found) return image.size();
    const QSize size = found->defaultSize();
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

QImage ImageStore::drawResource(const std::string& name, QSize pixels) {
    QSvgRenderer* found = renderer(name);
    if (!found || pixels.isEmpty()) return {};
    QImage drawn(pixels, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    found->render(&painter, QRectF(QPointF(), pixels));
    return drawn;
}

QImage ImageStore::draw(const UIImage& image, QSize pixels, const UIColor& tint) {
    QImage drawn;
    if (!image.bitmap().pixels) {
        drawn = drawResource(image.name(), pixels);
    } else {
        drawn = qtImage(image.bitmap());
        // Smaller by so much that the painter would leave pixels out.
        const QSize size = drawn.size().boundedTo(pixels);
        if (size != drawn.size())
            drawn = drawn.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    if (tint.alpha > 0 && !drawn.isNull()) {
        QPainter painter(&drawn);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(drawn.rect(), qtColor(tint));
    }
    return drawn;
}

}  // namespace gexlo
