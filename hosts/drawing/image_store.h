// The images of the resources, by name and at any size.
#pragma once

#include <QImage>
#include <QSize>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "platform/views/color.h"
#include "platform/views/geometry.h"

class QSvgRenderer;

namespace gexlo {

class ImageStore {
public:
    /// Of a directory of SVG files.
    explicit ImageStore(std::filesystem::path directory);
    ~ImageStore();

    /// In points; nothing for a name that has no image.
    CGSize sizeOf(const std::string& name);
    /// Drawn at that many pixels, in the tint unless it is clear; null for a name that has no
    /// image.
    QImage image(const std::string& name, QSize pixels, const UIColor& tint = {});

private:
    QSvgRenderer* renderer(const std::string& name);

    std::filesystem::path directory_;
    std::map<std::string, std::unique_ptr<QSvgRenderer>, std::less<>> renderers_;
};

}  // namespace gexlo
