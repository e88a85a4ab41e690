#include "hosts/drawing/text_layout.h"

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

/// At the reference size: beyond the first a width is none, the second is lost in rounding.
constexpr double kWidest = 1e6;
constexpr double kRounding = 0.03;

constexpr QChar kEllipsis = QChar(0x2026);

/// Breaks texts into lines, all at the reference size.
class LineBreaker {
public:
    explicit LineBreaker(const UIFont& font) : face_(typefaceOf(font)) {}

    std::vector<TextLayout::Line> lines(const QString& text, double width, int count, bool elides);
    double widthOfLine(const QString& text);
    /// Of the widest line when lines break between words alone.
    double widthOfWords(const QString& text, double width) const;

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

double LineBreaker::widthOfWords(const QString& text, double width) const {
    double widest = 0;
    QTextLayout layout(text);
    prepare(layout, QTextOption::WordWrap);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::min(width, kWidest));
        widest = std::max(widest, line.naturalTextWidth());
    }
    layout.endLayout();
    return widest;
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

}  // namespace

TextLayout::TextLayout(std::string_view text, const UIFont& font, const TextBounds& bounds)
    : fontSize_(font.size) {
    if (text.empty() || !(font.size > 0)) return;
    QString source = qtText(text);
    source.replace('\n', QChar::LineSeparator);
    LineBreaker breaker(font);
    const auto reference = [&](double points) {
        return std::max(0.0, points) / fontSize_ * kReferenceSize;
    };
    if (bounds.smallestScale < 1) {
        const double width = reference(bounds.width);
        const double needed =
            bounds.lines == 1 ? breaker.widthOfLine(source) : breaker.widthOfWords(source, width);
        const double scale = width / std::max(needed, kRounding);
        fontSize_ *= std::clamp(scale, std::max(bounds.smallestScale, 0.01), 1.0);
    }
    lines_ =
        breaker.lines(source, reference(bounds.width) + kRounding, bounds.lines, bounds.elides);
    for (Line& line : lines_)
        line.width *= fontSize_ / kReferenceSize;
}

double TextLayout::lineHeightOf(double fontSize) {
    return std::ceil(fontSize * kLineHeight);
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
