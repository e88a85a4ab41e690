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

CGSize ImageStore::sizeOf(const std::string& name) {
    const QSvgRenderer* found = renderer(name);
    if (!found) return {};
    const QSize size = found->defaultSize();
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

QImage ImageStore::image(const std::string& name, QSize pixels, const UIColor& tint) {
    QSvgRenderer* found = renderer(name);
    if (!found || pixels.isEmpty()) return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    found->render(&painter, QRectF(QPointF(), pixels));
    if (tint.alpha > 0) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), qtColor(tint));
    }
    return image;
}

}  // namespace gexlo
