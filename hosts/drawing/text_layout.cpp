#include "hosts/drawing/text_layout.h"

#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "hosts/drawing/qt_values.h"
#include "hosts/drawing/typeface.h"

namespace gexlo {

namespace {

/// Parts of the font's size: a line's height, and the middle of its characters above the
/// baseline. Both hold for every script, so that a line is as high whatever it says.
constexpr double kLineHeight = 1.2;
constexpr double kMiddle = 0.38;
/// Points that letters may stand out of their frame.
constexpr double kOverhang = 0.5;
/// By which a text of several lines shrinks at a time.
constexpr double kScaleStep = 0.01;
constexpr double kSmallestScale = 0.01;

/// At the reference size: beyond the first a width is none, the second is lost in rounding.
constexpr double kWidest = 1e6;
constexpr double kRounding = 0.03;

constexpr QChar kEllipsis = QChar(0x2026);

/// What becomes of a text that is broken into lines, from the best on.
enum class Fit : std::uint8_t {
    whole,     ///< lines end between words
    broken,    ///< a word goes on in the next line
    straggle,  ///< one letter of a longer word has a line of its own
    cut,       ///< there is more than the lines hold
};

/// Breaks texts into lines, all at the reference size.
class LineBreaker {
public:
    explicit LineBreaker(const UIFont& font) : face_(typefaceOf(font)) {}

    std::vector<TextLayout::Line> lines(const QString& text, double width, int count, bool elides);
    double widthOfLine(const QString& text);
    /// `most` counts the lines that there may be.
    Fit fit(const QString& text, double width, int most) const;

private:
    void prepare(QTextLayout& layout, QTextOption::WrapMode mode) const;
    TextLayout::Line placed(const QTextLine& line) const;
    TextLayout::Line elided(const QString& text, double width);

    QFont face_;
};

void LineBreaker::prepare(QTextLayout& layout, QTextOption::WrapMode mode) const {
    QTextOption option;
    option.setWrapMode(mode);
    option.setUseDesignMetrics(true);
    layout.setFont(face_);
    layout.setTextOption(option);
}

TextLayout::Line LineBreaker::placed(const QTextLine& line) const {
    TextLayout::Line result{line.naturalTextWidth(), line.glyphRuns()};
    const QPointF baseline = line.position() + QPointF(0, line.ascent());
    for (QGlyphRun& run : result.glyphs) {
        QList<QPointF> positions = run.positions();
        for (QPointF& position : positions)
            position -= baseline;
        run.setPositions(positions);
    }
    return result;
}

double LineBreaker::widthOfLine(const QString& text) {
    return lines(text, kWidest, 1, false).front().width;
}

Fit LineBreaker::fit(const QString& text, double width, int most) const {
    Fit result = Fit::whole;
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
    QTextLayout layout(text);
    prepare(layout, QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::min(width, kWidest));
        const qsizetype start = line.textStart();
        const qsizetype end = start + line.textLength();
        if (line.naturalTextWidth() > width || (--most == 0 && end < text.size())) {
            result = Fit::cut;
            break;
        }
        qsizetype inkEnd = end;
        while (inkEnd > start && text[inkEnd - 1].isSpace())
            --inkEnd;
        const bool goesOn = inkEnd == end && end < text.size();
        const bool isGoingOn = start > 0 && !text[start - 1].isSpace();
        const bool isOneLetter = layout.nextCursorPosition(static_cast<int>(start)) >= inkEnd;
        breaks.setPosition(end);
        if (inkEnd > start && isOneLetter && (goesOn || isGoingOn)) {
            result = Fit::straggle;
        } else if (goesOn && !breaks.isAtBoundary()) {
            result = std::max(result, Fit::broken);
        }
    }
    layout.endLayout();
    return result;
}

/// As much of the text's first line as fits with an ellipsis behind it.
TextLayout::Line LineBreaker::elided(const QString& text, double width) {
    QString shown = text.section(QChar::LineSeparator, 0, 0);
    const double room = width - widthOfLine(kEllipsis);
    QTextLayout layout(shown);
    prepare(layout, QTextOption::NoWrap);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    int end = line.xToCursor(room);
    while (end > 0 && line.cursorToX(end) > room)
        end = layout.previousCursorPosition(end);
    shown.truncate(end);
    while (!shown.isEmpty() && shown.back().isSpace())
        shown.chop(1);
    return lines(shown + kEllipsis, kWidest, 1, false).front();
}

std::vector<TextLayout::Line> LineBreaker::lines(const QString& text, double width, int count,
                                                 bool elides) {
    std::vector<TextLayout::Line> result;
    QTextLayout layout(text);
    prepare(layout, count == 1 ? QTextOption::NoWrap : QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::min(width, kWidest));
        const bool isLast = static_cast<int>(result.size()) + 1 == count;
        const bool isCut =
            line.textStart() + line.textLength() < text.size() || line.naturalTextWidth() > width;
        if (isLast && isCut && elides) {
            result.push_back(elided(text.mid(line.textStart()), width));
        } else {
            result.push_back(placed(line));
        }
        if (isLast) break;
    }
    layout.endLayout();
    // A break at the end opens a line that nothing stands on yet.
    const bool hasRoom = count == 0 || static_cast<int>(result.size()) < count;
    if (text.endsWith(QChar::LineSeparator) && hasRoom) result.emplace_back();
    return result;
}

/// The largest scale at which a text of several lines fits best. One that is cut at the smallest is
/// cut at all, and shows most there.
template <typename FitAt>
double largestOfBest(double smallest, FitAt fitAt) {
    double best = 1;
    Fit bestFit = fitAt(best);
    if (bestFit == Fit::whole) return best;
    if (fitAt(smallest) == Fit::cut) return smallest;
    for (double scale = best; bestFit != Fit::whole && scale > smallest;) {
        scale = std::max(scale - kScaleStep, smallest);
        const Fit fit = fitAt(scale);
        if (fit < bestFit) {
            best = scale;
            bestFit = fit;
        }
    }
    return best;
}

}  // namespace

TextLayout::TextLayout(std::string_view text, const UIFont& font, const TextBounds& bounds)
    : fontSize_(font.size) {
    if (text.empty() || !(font.size > 0)) return;
    QString source = qtText(text);
    source.replace('\n', QChar::LineSeparator);
    LineBreaker breaker(font);
    const auto width = [&](double scale) {
        return std::max(0.0, bounds.width) / (font.size * scale) * kReferenceSize + kRounding;
    };
    const auto most = [&](double scale) {
        const int fitting = linesThatFit(bounds.height, font.size * scale);
        return bounds.lines > 0 ? std::min(bounds.lines, fitting) : fitting;
    };
    const auto fit = [&](double scale) { return breaker.fit(source, width(scale), most(scale)); };
    const double smallest = std::clamp(bounds.smallestScale, kSmallestScale, 1.0);
    double scale = 1;
    if (smallest < 1) {
        scale = bounds.lines == 1
                    ? std::clamp(width(1) / breaker.widthOfLine(source), smallest, 1.0)
                    : largestOfBest(smallest, fit);
    }
    fontSize_ *= scale;
    lines_ = breaker.lines(source, width(scale), most(scale), bounds.elides);
    for (Line& line : lines_)
        line.width *= fontSize_ / kReferenceSize;
}

double TextLayout::lineHeightOf(double fontSize) {
    return std::ceil(fontSize * kLineHeight);
}

int TextLayout::linesThatFit(double height, double fontSize) {
    const double further = (height + kOverhang - fontSize) / lineHeightOf(fontSize);
    return 1 + static_cast<int>(std::clamp(further, 0.0, 1e6));
}

double TextLayout::baseline() const {
    return lineHeight() / 2 + fontSize_ * kMiddle;
}

CGSize TextLayout::size() const {
    double widest = 0;
    for (const Line& line : lines_)
        widest = std::max(widest, line.width);
    return {widest, static_cast<double>(lines_.size()) * lineHeight()};
}

}  // namespace gexlo
