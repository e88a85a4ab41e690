// Measures texts with the fonts that paint them.
#pragma once

#include "platform/views/text_measure.h"

namespace gexlo {

class QtTextMeasure final : public TextMeasure {
public:
    /// In whole points, so that a frame of that size holds the text.
    CGSize sizeOfText(std::string_view text, const UIFont& font, double width) const override;
};

}  // namespace gexlo
