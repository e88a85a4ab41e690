#include "presentation/grid/axis_strip.h"

namespace gexlo {

std::vector<Stroke> axisStrokes(const AxisStrip& strip, UIColor color) {
    std::vector<Stroke> strokes;
    // Along the strip and across it, whichever way it lies.
    const auto line = [&](CGPoint from, CGPoint to, double width) {
        if (!strip.horizontal) {
            std::swap(from.x, from.y);
            std::swap(to.x, to.y);
        }
        strokes.push_back({from, to, width, color});
    };
    const double length = strip.count * strip.cellSize;
    const double depth = strip.depth;
    line({0, 1}, {length, 1}, 2);
    line({0, depth - 1}, {length, depth - 1}, 2);
    for (int k = 1; k < strip.count; ++k) {
        const double at = k * strip.cellSize - 0.5;
        line({at, 2}, {at, depth - 2}, 1);
    }
    line({length, 0}, {length, depth}, 2);
    return strokes;
}

}  // namespace gexlo
