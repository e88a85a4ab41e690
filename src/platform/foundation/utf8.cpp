#include "platform/foundation/utf8.h"

#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace gexlo {

namespace {

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Walks the code points; an ill-formed sequence comes as a negative one.
template <typename Visit>
void forEachCodePoint(std::string_view text, Visit visit) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t at = 0; at < length;) {
        UChar32 point;
        U8_NEXT(bytes, at, length, point);
        visit(point);
    }
}

}  // namespace

bool isValidUtf8(std::string_view text) {
    if (isAscii(text)) return true;
    bool valid = true;
    forEachCodePoint(text, [&](UChar32 point) { valid &= point >= 0; });
    return valid;
}

std::string repairedUtf8(std::string_view text) {
    if (isValidUtf8(text)) return std::string(text);
    std::string repaired;
    forEachCodePoint(text, [&](UChar32 point) {
        icu::UnicodeString(point < 0 ? UChar32{0xFFFD} : point).toUTF8String(repaired);
    });
    return repaired;
}

std::size_t utf16Length(std::string_view text) {
    if (isAscii(text)) return text.size();
    std::size_t units = 0;
    forEachCodePoint(text, [&](UChar32 point) { units += point > 0xFFFF ? 2 : 1; });
    return units;
}

std::vector<std::string_view> charactersOf(std::string_view text) {
    const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
    std::vector<std::string_view> characters;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin + 1;
        while (end < text.size() && isContinuation(text[end]))
            ++end;
        characters.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return characters;
}

}  // namespace gexlo
