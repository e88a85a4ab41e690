// A text broken into lines and shaped: what is measured is what is painted.
#pragma once

#include <QGlyphRun>
#include <QList>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "platform/views/font.h"
#include "platform/views/geometry.h"

namespace gexlo {

/// What a text must keep to.
struct TextBounds {
    double width = 0;
    int lines = 0;             ///< 0 for as many as the height allows
    double smallestScale = 1;  ///< down to which the text shrinks, as a label's does
    bool elides = true;        ///< whether what is left out shows as an ellipsis
    double height = std::numeric_limits<double>::infinity();
};

class TextLayout {
public:
    struct Line {
        double width = 0;         ///< in points
        QList<QGlyphRun> glyphs;  ///< at the reference size, from the start of the baseline
    };

    TextLayout(std::string_view text, const UIFont& font, const TextBounds& bounds);

    /// Of the font, after shrinking.
    double fontSize() const { return fontSize_; }
    double lineHeight() const { return lineHeightOf(fontSize_); }
    /// From a line's top to its baseline.
    double baseline() const;
    std::span<const Line> lines() const { return lines_; }
    CGSize size() const;

    static double lineHeightOf(double fontSize);
    /// At least one.
    static int linesThatFit(double height, double fontSize);

private:
    std::vector<Line> lines_;
    double fontSize_;
};

}  // namespace gexlo
