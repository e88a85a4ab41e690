// A picture under way: what views are made of, drawn in points of the screen.
#pragma once

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "hosts/drawing/image_store.h"
#include "hosts/drawing/text_layout.h"
#include "platform/views/image.h"
#include "platform/views/label.h"
#include "platform/views/view.h"

namespace gexlo {

/// Where the lines of a text stand in their box.
enum class TextPlacement { middle, top };

/// What pictures share: images, and fonts at the sizes in which they are drawn.
class DrawingResources {
public:
    explicit DrawingResources(std::filesystem::path images) : images_(std::move(images)) {}

    ImageStore& images() { return images_; }
    const QRawFont& font(const QRawFont& reference, double pixels);
    /// Until the next call. A grid says the same in many cells, so layouts are kept.
    const TextLayout& layout(std::string_view text, const UIFont& font, const TextBounds& bounds);

private:
    using LayoutKey =
        std::tuple<std::string, std::string_view, float, bool, double, int, double, bool, double>;

    ImageStore images_;
    std::map<LayoutKey, TextLayout> layouts_;
    QHash<std::pair<QRawFont, int>, QRawFont> fonts_;
};

/// Edges along the screen's axes fall on whole pixels, so they are sharp at any scale; what has
/// a size has at least a pixel of it.
class Canvas {
public:
    Canvas(QImage& image, double scale, DrawingResources& resources);

    /// Whether nothing of it lies on the picture, or in what it is clipped to.
    bool isOutside(const CGRect& rect) const { return !pixels(rect).intersects(visible_); }

    void fill(const CGRect& rect, const UIColor& color, double cornerRadius = 0);
    /// Within the rectangle, along its edges.
    void border(const CGRect& rect, double width, const UIColor& color, double cornerRadius);
    void line(CGPoint from, CGPoint to, double width, const UIColor& color);
    /// Fills the rectangle: the image's caps keep their size, and a tiled one is repeated.
    void image(const UIImage& image, const CGRect& rect, const UIColor& tint);
    CGSize sizeOf(const UIImage& image);
    /// For `text`; good until the next call.
    const TextLayout& layout(std::string_view text, const UIFont& font, const TextBounds& bounds) {
        return resources_.layout(text, font, bounds);
    }
    void text(const TextLayout& layout, const CGRect& box, NSTextAlignment alignment,
              const UIColor& color, TextPlacement placement = TextPlacement::middle);

    /// Paints what stands out of the rectangle only within it.
    template <typename Paint>
    void clipped(const CGRect& rect, double cornerRadius, Paint paint);
    /// Paints what lies in the rectangle as one thing at that alpha.
    template <typename Paint>
    void faded(const CGRect& rect, double alpha, Paint paint);

private:
    Canvas(QImage& image, const Canvas& under, QPoint origin);
    QRectF exactPixels(const CGRect& rect) const;
    QRect pixels(const CGRect& rect) const;
    QPainterPath rounded(const QRectF& rect, double radius) const;
    void beginClip(const CGRect& rect, double cornerRadius);
    void lines(const TextLayout& layout, const CGRect& box, NSTextAlignment alignment,
               const UIColor& color, TextPlacement placement);
    void stretch(const UIImage& image, const QRect& target, const UIColor& tint);
    QBrush brush(const UIColor& color, QPoint origin);
    QBrush pattern(const UIImage& image, QPoint origin, const UIColor& tint = {});
    void fillPixels(const QRect& target, const QBrush& paint);

    double scale_;
    DrawingResources& resources_;
    QPoint origin_;  // of the picture, in pixels of the screen
    QPainter painter_;
    QRect visible_;
};

template <typename Paint>
void Canvas::clipped(const CGRect& rect, double cornerRadius, Paint paint) {
    const QRect former = visible_;
    painter_.save();
    beginClip(rect, cornerRadius);
    if (!visible_.isEmpty()) paint(*this);
    painter_.restore();
    visible_ = former;
}

template <typename Paint>
void Canvas::faded(const CGRect& rect, double alpha, Paint paint) {
    const QRect area = pixels(rect) & visible_;
    if (area.isEmpty()) return;
    QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    {
        Canvas canvas(layer, *this, origin_ + area.topLeft());
        paint(canvas);
    }
    painter_.setOpacity(alpha);
    painter_.drawImage(area.topLeft(), layer);
    painter_.setOpacity(1);
}

}  // namespace gexlo
