// The lines that a strip of days or of periods draws around its cells.
#pragma once

#include <vector>

#include "platform/views/view.h"

namespace gexlo {

/// A strip of `count` cells of `cellSize` points each, `depth` points deep.
struct AxisStrip {
    bool horizontal = true;
    int count = 0;
    int cellSize = 0;
    int depth = 0;
};

std::vector<Stroke> axisStrokes(const AxisStrip& strip, UIColor color);

}  // namespace gexlo
