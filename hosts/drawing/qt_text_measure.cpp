#include "hosts/drawing/qt_text_measure.h"

#include <cmath>

#include "hosts/drawing/text_layout.h"

namespace gexlo {

namespace {

/// What a layout exceeds a width by, in points, when it still fits.
constexpr double kRounding = 0.02;

}  // namespace

CGSize QtTextMeasure::sizeOfText(std::string_view text, const UIFont& font, double width) const {
    const CGSize size = TextLayout(text, font, {.width = width}).size();
    return {std::ceil(size.width - kRounding), size.height};
}

}  // namespace gexlo
