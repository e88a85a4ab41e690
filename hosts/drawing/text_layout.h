// A text broken into lines and shaped: what is measured is what is painted.
#pragma once

#include <QGlyphRun>
#include <QList>
#include <span>
#include <string_view>
#include <vector>

#include "platform/views/font.h"
#include "platform/views/geometry.h"

namespace gexlo {

/// What a text must keep to.
struct TextBounds {
    double width = 0;
    int lines = 0;             ///< 0 for as many as it takes
    double smallestScale = 1;  ///< down to which a single line, or a word of many, shrinks
    bool elides = true;        ///< whether what is left out shows as an ellipsis
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

private:
    std::vector<Line> lines_;
    double fontSize_;
};

}  // namespace gexlo
