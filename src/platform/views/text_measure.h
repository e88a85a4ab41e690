// How wide and high a text is; the host knows, because it draws.
#pragma once

#include <string_view>

#include "platform/views/font.h"
#include "platform/views/geometry.h"

namespace gexlo {

class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    /// The device's.
    static const TextMeasure& current();
    /// Points that the text takes, broken into lines of at most `width`.
    virtual CGSize sizeOfText(std::string_view text, const UIFont& font, double width) const = 0;
};

/// The rule of a device whose host draws nothing: a character is half as wide as the font is
/// high, a character of the wide scripts as wide as that, and a line is 1.2 times as high.
class PlainTextMeasure final : public TextMeasure {
public:
    CGSize sizeOfText(std::string_view text, const UIFont& font, double width) const override;
};

}  // namespace gexlo
