// Paints the view tree as it stands, without a display.
#pragma once

#include <QImage>
#include <filesystem>

#include "hosts/drawing/canvas.h"

namespace gexlo {

class UIWindow;

/// Keeps what it has read and found out from one picture to the next. For one device
/// and one thread.
class ViewPainter {
public:
    /// With the images of that directory.
    explicit ViewPainter(std::filesystem::path images);

    /// The view with all under it, at that many pixels a point, transparent where nothing lies.
    /// Null when there is no memory for as large a picture.
    QImage paint(const UIView& view, double scale);
    /// The view without those upon it.
    QImage paintAlone(const UIView& view, double scale);
    /// The screen: the window, and over it the topmost alert.
    QImage paintScreen(const UIWindow& window, double scale);

private:
    QImage emptyImage(const UIView& view, double scale) const;
    void paintTree(Canvas& canvas, const UIView& view, CGPoint origin);
    void paintLooks(Canvas& canvas, const UIView& view, const CGRect& frame);
    void paintOpaque(Canvas& canvas, const UIView& view, const CGRect& frame);
    void paintSubviews(Canvas& canvas, const UIView& view, const CGRect& frame);

    DrawingResources resources_;
};

}  // namespace gexlo
