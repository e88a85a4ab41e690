#include "platform/views/text_measure.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/foundation/device.h"

namespace gexlo {

namespace {

bool isWide(UChar32 character) {
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

bool isMark(UChar32 character) {
    return (U_MASK(u_charType(character)) & (U_GC_M_MASK | U_GC_CF_MASK)) != 0;
}

}  // namespace

const TextMeasure& TextMeasure::current() {
    static const PlainTextMeasure plain;
    const auto& ofHost = Device::current().services().textMeasure;
    return ofHost ? *ofHost : plain;
}

CGSize PlainTextMeasure::sizeOfText(std::string_view text, const UIFont& font, double width) const {
    const auto characters = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    double line = 0;
    double widest = 0;
    int lines = text.empty() ? 0 : 1;
    for (std::int32_t at = 0; at < characters.length(); at = characters.moveIndex32(at, 1)) {
        const UChar32 character = characters.char32At(at);
        const double advance = isMark(character)   ? 0
                               : isWide(character) ? font.size
                                                   : font.size / 2;
        if (character == '\n' || (line > 0 && line + advance > width)) {
            ++lines;
            line = 0;
        }
        if (character != '\n') line += advance;
        widest = std::max(widest, line);
    }
    return {widest, lines * std::ceil(font.size * 1.2)};
}

}  // namespace gexlo
