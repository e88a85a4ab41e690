#include "hosts/drawing/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "hosts/drawing/qt_values.h"
#include "hosts/drawing/typeface.h"

namespace gexlo {

namespace {

/// Sizes that shrinking texts ask for are without number.
constexpr qsizetype kMostFonts = 64;
constexpr std::size_t kMostLayouts = 1024;

/// Beyond it, in pixels, no picture reaches; keeps odd frames out of integers.
constexpr double kFarthest = 1e6;

/// Areas are filled in strips of that many pixels: higher ones the toolkit shares out among
/// threads, which takes three times as long for a cell.
constexpr int kStrip = 64;

int pixelAt(double value) {
    // Written so that what is no number comes out as one.
    return static_cast<int>(
        std::lround(value > -kFarthest ? std::min(value, kFarthest) : -kFarthest));
}

/// The ends of three parts of a stretched image along an axis.
std::array<int, 4> capped(int start, int length, int cap) {
    const int kept = std::min(cap, length / 2);
    return {start, start + kept, start + length - kept, start + length};
}

}  // namespace

const QRawFont& DrawingResources::font(const QRawFont& reference, double pixels) {
    const std::pair key(reference, static_cast<int>(std::lround(pixels * 64)));
    if (const auto found = fonts_.constFind(key); found != fonts_.constEnd()) return *found;
    if (fonts_.size() == kMostFonts) fonts_.clear();
    QRawFont font = reference;
    font.setPixelSize(pixels);
    return *fonts_.insert(key, font);
}

const TextLayout& DrawingResources::layout(std::string_view text, const UIFont& font,
                                           const TextBounds& bounds) {
    LayoutKey key(text, font.family, font.size, font.bold, bounds.width, bounds.lines,
                  bounds.smallestScale, bounds.elides, bounds.height);
    const auto found = layouts_.find(key);
    if (found != layouts_.end()) return found->second;
    if (layouts_.size() == kMostLayouts) layouts_.clear();
    return layouts_.emplace(std::move(key), TextLayout(text, font, bounds)).first->second;
}

Canvas::Canvas(QImage& image, double scale, DrawingResources& resources)
    : scale_(scale), resources_(resources), painter_(&image), visible_(image.rect()) {
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

Canvas::Canvas(QImage& image, const Canvas& under, QPoint origin)
    : Canvas(image, under.scale_, under.resources_) {
    origin_ = origin;
}

QRectF Canvas::exactPixels(const CGRect& rect) const {
    return QRectF(rect.x * scale_, rect.y * scale_, rect.width * scale_, rect.height * scale_)
        .translated(-origin_);
}

QRect Canvas::pixels(const CGRect& rect) const {
    if (!(rect.width > 0) || !(rect.height > 0)) return {};
    const QPoint start(pixelAt(rect.x * scale_), pixelAt(rect.y * scale_));
    const QSize size(std::max(1, pixelAt(rect.maxX() * scale_) - start.x()),
                     std::max(1, pixelAt(rect.maxY() * scale_) - start.y()));
    return QRect(start - origin_, size);
}

QPainterPath Canvas::rounded(const QRectF& rect, double radius) const {
    const double most = std::min(rect.width(), rect.height()) / 2;
    const double inPixels = std::clamp(radius * scale_, 0.0, most);
    QPainterPath path;
    path.addRoundedRect(rect, inPixels, inPixels);
    return path;
}

QBrush Canvas::pattern(const UIImage& image, QPoint origin, const UIColor& tint) {
    const CGSize size = sizeOf(image);
    const QSize pixels(std::max(1, pixelAt(size.width * scale_)),
                       std::max(1, pixelAt(size.height * scale_)));
    const QImage tile = resources_.images().draw(image, pixels, tint);
    if (tile.isNull()) return {};
    painter_.setBrushOrigin(origin);
    QBrush brush(tile);
    brush.setTransform(QTransform::fromScale(pixels.width() / static_cast<double>(tile.width()),
                                             pixels.height() / static_cast<double>(tile.height())));
    return brush;
}

QBrush Canvas::brush(const UIColor& color, QPoint origin) {
    return color.patternImage ? pattern(UIImage::imageNamed(color.patternImage), origin)
                              : qtColor(color);
}

void Canvas::fillPixels(const QRect& target, const QBrush& paint) {
    const QRect seen = target & visible_;
    for (int y = seen.top(); y <= seen.bottom(); y += kStrip)
        painter_.fillRect(QRect(seen.x(), y, seen.width(), kStrip) & seen, paint);
}

void Canvas::fill(const CGRect& rect, const UIColor& color, double cornerRadius) {
    const QRect target = pixels(rect);
    if (color.alpha <= 0 || !target.intersects(visible_)) return;
    const QBrush paint = brush(color, target.topLeft());
    if (cornerRadius > 0) {
        painter_.fillPath(rounded(target, cornerRadius), paint);
    } else {
        fillPixels(target, paint);
    }
}

void Canvas::border(const CGRect& rect, double width, const UIColor& color, double cornerRadius) {
    const QRect outer = pixels(rect);
    if (color.alpha <= 0 || !(width > 0) || !outer.intersects(visible_)) return;
    const int inset = std::max(1, pixelAt(width * scale_));
    const QRect inner = outer.adjusted(inset, inset, -inset, -inset);
    QPainterPath path = rounded(outer, cornerRadius);
    if (inner.isValid()) {
        path = path.subtracted(rounded(inner, cornerRadius - static_cast<double>(inset) / scale_));
    }
    painter_.fillPath(path, brush(color, outer.topLeft()));
}

void Canvas::line(CGPoint from, CGPoint to, double width, const UIColor& color) {
    if (from.x == to.x || from.y == to.y) {
        const double across = from.x == to.x ? width : 0;
        const double along = width - across;
        return fill({std::min(from.x, to.x) - across / 2, std::min(from.y, to.y) - along / 2,
                     std::abs(to.x - from.x) + across, std::abs(to.y - from.y) + along},
                    color);
    }
    painter_.setPen(QPen(qtColor(color), width * scale_, Qt::SolidLine, Qt::FlatCap));
    painter_.drawLine(exactPixels({from.x, from.y, 0, 0}).topLeft(),
                      exactPixels({to.x, to.y, 0, 0}).topLeft());
}

CGSize Canvas::sizeOf(const UIImage& image) {
    return resources_.images().sizeOf(image);
}

void Canvas::image(const UIImage& image, const CGRect& rect, const UIColor& tint) {
    if (image.isNone()) return;
    if (image.isFilled()) return fill(rect, tint.alpha > 0 ? tint : image.fill());
    const QRect target = pixels(rect);
    if (!target.intersects(visible_)) return;
    if (image.isTiled()) {
        fillPixels(target, pattern(image, target.topLeft(), tint));
    } else if (image.caps() == CGSize{}) {
        painter_.drawImage(target, resources_.images().draw(image, target.size(), tint));
    } else {
        stretch(image, target, tint);
    }
}

void Canvas::stretch(const UIImage& image, const QRect& target, const UIColor& tint) {
    const CGSize size = sizeOf(image);
    // An axis without caps is drawn at its length at once.
    const CGSize caps = image.caps();
    const QSize pixels(caps.width > 0 ? pixelAt(size.width * scale_) : target.width(),
                       caps.height > 0 ? pixelAt(size.height * scale_) : target.height());
    QImage source = resources_.images().draw(image, pixels, tint);
    if (source.isNull()) return;
    if (source.size() != pixels)
        source = source.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const int capX = pixelAt(caps.width * scale_);
    const int capY = pixelAt(caps.height * scale_);
    const auto fromX = capped(0, source.width(), capX);
    const auto fromY = capped(0, source.height(), capY);
    const auto toX = capped(target.x(), target.width(), fromX[1]);
    const auto toY = capped(target.y(), target.height(), fromY[1]);
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const QRect to(QPoint(toX[column], toY[row]),
                           QPoint(toX[column + 1] - 1, toY[row + 1] - 1));
            const QRect from(QPoint(fromX[column], fromY[row]),
                             QPoint(fromX[column + 1] - 1, fromY[row + 1] - 1));
            if (to.isValid() && from.isValid()) painter_.drawImage(to, source, from);
        }
    }
}

void Canvas::text(const TextLayout& layout, const CGRect& box, NSTextAlignment alignment,
                  const UIColor& color, TextPlacement placement) {
    if (color.alpha <= 0 || isOutside(box)) return;
    const CGSize size = layout.size();
    if (size.width > box.width || size.height > box.height) {
        return clipped(box, 0, [&](Canvas& canvas) {
            canvas.lines(layout, box, alignment, color, placement);
        });
    }
    lines(layout, box, alignment, color, placement);
}

void Canvas::lines(const TextLayout& layout, const CGRect& box, NSTextAlignment alignment,
                   const UIColor& color, TextPlacement placement) {
    // How much of the room beside a line stands before it.
    static constexpr double kShares[] = {0, 0.5, 1};
    const double share = kShares[static_cast<std::size_t>(alignment)];
    const double pixelSize = layout.fontSize() * scale_;
    const double toPixels = pixelSize / kReferenceSize;
    double top = box.y;
    if (placement == TextPlacement::middle) top += (box.height - layout.size().height) / 2;
    painter_.setPen(qtColor(color));
    std::vector<QPointF> positions;
    for (const TextLayout::Line& line : layout.lines()) {
        const double x = box.x + (box.width - line.width) * share;
        const QPointF start(x * scale_ - origin_.x(),
                            std::round((top + layout.baseline()) * scale_) - origin_.y());
        for (const QGlyphRun& run : line.glyphs) {
            const QList<quint32> glyphs = run.glyphIndexes();
            positions.clear();
            for (const QPointF& position : run.positions())
                positions.push_back(position * toPixels);
            QGlyphRun drawn;
            drawn.setRawFont(resources_.font(run.rawFont(), pixelSize));
            drawn.setRawData(glyphs.constData(), positions.data(),
                             static_cast<int>(positions.size()));
            painter_.drawGlyphRun(start, drawn);
        }
        top += layout.lineHeight();
    }
}

void Canvas::beginClip(const CGRect& rect, double cornerRadius) {
    const QRect area = pixels(rect);
    visible_ &= area;
    if (cornerRadius > 0) {
        painter_.setClipPath(rounded(area, cornerRadius), Qt::IntersectClip);
    } else {
        painter_.setClipRect(area, Qt::IntersectClip);
    }
}

}  // namespace gexlo
