// Paints the view tree as it stands, without a display; what is on its way has come to its end.
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
    /// Null for one that is too large.
    QImage paint(const UIView& view, double scale);
    /// The same in a picture of that size, in the coordinates of what is upon the view: a scroll
    /// view stands where its offset is.
    QImage paintContent(const UIView& view, CGSize size, double scale);
    /// The view without those upon it, as it is seen at a moment, coarser where it would be too
    /// large.
    QImage paintAlone(const UIView& view, double scale, NSDate moment);
    /// The screen: the window, and over it the topmost alert.
    QImage paintScreen(const UIWindow& window, double scale);

private:
    QImage paintAt(const UIView& view, CGSize size, double scale, CGPoint origin);
    void paintTree(Canvas& canvas, const UIView& view, CGPoint origin);
    void paintLooks(Canvas& canvas, const UIView& view, const CGRect& frame,
                    const UIColor& background);
    void paintOpaque(Canvas& canvas, const UIView& view, const CGRect& frame);
    void paintSubviews(Canvas& canvas, const UIView& view, const CGRect& frame);

    DrawingResources resources_;
};

}  // namespace gexlo
