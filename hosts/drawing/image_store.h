// Images as they are drawn, those of the resources by their names.
#pragma once

#include <QImage>
#include <QSize>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "platform/views/image.h"

class QSvgRenderer;

namespace gexlo {

class ImageStore {
public:
    /// Of a directory of SVG files.
    explicit ImageStore(std::filesystem::path directory);
    ~ImageStore();

    /// In points; nothing for a name that has no image.
    CGSize sizeOf(const UIImage& image);
    /// At that many pixels, in the tint unless it is clear; null for a name that has no image.
    /// One that has fewer pixels of its own comes as it is.
    QImage draw(const UIImage& image, QSize pixels, const UIColor& tint = {});

private:
    QSvgRenderer* renderer(const std::string& name);
    QImage drawResource(const std::string& name, QSize pixels);

    std::filesystem::path directory_;
    std::map<std::string, std::unique_ptr<QSvgRenderer>, std::less<>> renderers_;
};

}  // namespace gexlo
