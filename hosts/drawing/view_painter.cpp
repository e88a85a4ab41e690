#include "hosts/drawing/view_painter.h"

#include <cmath>

#include "hosts/drawing/alert_view.h"
#include "hosts/drawing/gui_application.h"
#include "hosts/drawing/view_kinds.h"
#include "platform/views/image_coder.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// All that a view covers with those upon it.
CGRect extent(const UIView& view, const CGRect& frame) {
    CGRect covered = frame;
    if (view.clipsToBounds()) return covered;
    const CGPoint offset = view.contentOffset();
    for (const auto& child : view.subviews()) {
        const CGPoint origin{frame.x - offset.x, frame.y - offset.y};
        covered = covered.united(extent(*child, child->frame().offsetBy(origin)));
    }
    return covered;
}

/// What no picture has more of.
constexpr double kMostPixels = ImageCoder::kMostPixels;

QImage emptyImage(CGSize size, double scale) {
    const double width = std::round(size.width * scale);
    const double height = std::round(size.height * scale);
    const auto isLength = [](double length) { return length >= 0 && length <= kMostPixels; };
    if (!isLength(width) || !isLength(height) || width * height > kMostPixels) return {};
    QImage image(static_cast<int>(width), static_cast<int>(height),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

}  // namespace

ViewPainter::ViewPainter(std::filesystem::path images) : resources_(std::move(images)) {
    needGuiApplication();
}

QImage ViewPainter::paint(const UIView& view, double scale) {
    const CGRect& frame = view.frame();
    return paintAt(view, frame.size(), scale, {-frame.x, -frame.y});
}

QImage ViewPainter::paintContent(const UIView& view, CGSize size, double scale) {
    const CGPoint offset = view.contentOffset();
    return paintAt(view, size, scale, {offset.x - view.frame().x, offset.y - view.frame().y});
}

QImage ViewPainter::paintAt(const UIView& view, CGSize size, double scale, CGPoint origin) {
    QImage image = emptyImage(size, scale);
    if (image.isNull()) return image;
    Canvas canvas(image, scale, resources_);
    paintTree(canvas, view, origin);
    return image;
}

QImage ViewPainter::paintAlone(const UIView& view, double scale, NSDate moment) {
    const CGSize size = view.frameAt(moment).size();
    const double most = std::sqrt(kMostPixels / (size.width * size.height));
    // A margin keeps the rounded size within the bounds.
    if (scale > most) scale = most * 0.99;
    QImage image = emptyImage(size, scale);
    if (image.isNull()) return image;
    Canvas canvas(image, scale, resources_);
    const CGRect frame{0, 0, size.width, size.height};
    paintLooks(canvas, view, frame, view.backgroundColorAt(moment));
    canvas.border(frame, view.borderWidth(), view.borderColor(), view.cornerRadius());
    return image;
}

QImage ViewPainter::paintScreen(const UIWindow& window, double scale) {
    QImage image = paint(window, scale);
    if (image.isNull() || window.alerts().empty()) return image;
    Canvas canvas(image, scale, resources_);
    paintTree(canvas, *alertView(window.alerts().back(), window.frame().size()).view, {});
    return image;
}

void ViewPainter::paintTree(Canvas& canvas, const UIView& view, CGPoint origin) {
    if (view.isHidden() || !(view.alpha() > 0)) return;
    const CGRect frame = view.frame().offsetBy(origin);
    if (view.alpha() >= 1) return paintOpaque(canvas, view, frame);
    canvas.faded(extent(view, frame), view.alpha(),
                 [&](Canvas& layer) { paintOpaque(layer, view, frame); });
}

/// What lies below the views upon it.
void ViewPainter::paintLooks(Canvas& canvas, const UIView& view, const CGRect& frame,
                             const UIColor& background) {
    canvas.fill(frame, background, view.cornerRadius());
    for (const Stroke& stroke : view.strokes()) {
        const auto placed = [&](CGPoint point) {
            return CGPoint{point.x + frame.x, point.y + frame.y};
        };
        canvas.line(placed(stroke.from), placed(stroke.to), stroke.width, stroke.color);
    }
    if (const ViewContents contents = contentsOf(view)) contents(canvas, view, frame);
}

void ViewPainter::paintOpaque(Canvas& canvas, const UIView& view, const CGRect& frame) {
    paintLooks(canvas, view, frame, view.backgroundColor());
    if (view.clipsToBounds() && !view.subviews().empty()) {
        canvas.clipped(frame, view.cornerRadius(),
                       [&](Canvas& within) { paintSubviews(within, view, frame); });
    } else {
        paintSubviews(canvas, view, frame);
    }
    canvas.border(frame, view.borderWidth(), view.borderColor(), view.cornerRadius());
}

void ViewPainter::paintSubviews(Canvas& canvas, const UIView& view, const CGRect& frame) {
    const CGPoint offset = view.contentOffset();
    for (const auto& child : view.subviews())
        paintTree(canvas, *child, {frame.x - offset.x, frame.y - offset.y});
}

}  // namespace gexlo
