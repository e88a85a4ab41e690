#include "platform/foundation/property_list_guard.h"

#include <cstdint>
#include <optional>

namespace gexlo {

namespace {

constexpr int kDeepest = 64;
constexpr std::uint64_t kMostNodes = 4'000'000;
constexpr std::uint64_t kMostBytes = 256U << 20;  // of texts and data, as often as they are met

/// Walks the binary format as published: eight bytes of magic, objects, a table of their
/// offsets, and a trailer of 32 bytes. Every visit of an object counts, so that parts
/// which many others share are counted as often as a reader would unfold them.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {}

    bool isReadable() {
        constexpr std::size_t trailer = 32;
        if (bytes_.size() < trailer) return false;
        const std::size_t at = bytes_.size() - trailer;
        offsetSize_ = *number(at + 6, 1);
        referenceSize_ = *number(at + 7, 1);
        objects_ = *number(at + 8, 8);
        const std::uint64_t top = *number(at + 16, 8);
        table_ = *number(at + 24, 8);
        const bool sane = offsetSize_ >= 1 && offsetSize_ <= 8 && referenceSize_ >= 1 &&
                          referenceSize_ <= 8 && objects_ <= bytes_.size();
        return sane && visit(top, 0);
    }

private:
    std::optional<std::uint64_t> number(std::uint64_t at, std::uint64_t size) const {
        if (size > 8 || at > bytes_.size() || bytes_.size() - at < size) return std::nullopt;
        std::uint64_t value = 0;
        for (std::uint64_t i = 0; i < size; ++i) {
            value = value << 8 | static_cast<std::uint8_t>(bytes_[at + i]);
        }
        return value;
    }

    /// The marker's low half, or the integer object behind it; moves `at` past both.
    std::optional<std::uint64_t> count(std::uint64_t marker, std::uint64_t& at) const {
        std::uint64_t count = marker & 0xF;
        if (count != 0xF) return count;
        const auto sizeMarker = number(at, 1);
        const std::uint64_t size = sizeMarker ? std::uint64_t{1} << (*sizeMarker & 0x3) : 0;
        const auto told = sizeMarker ? number(at + 1, size) : std::nullopt;
        at += 1 + size;
        return told && *told <= bytes_.size() ? told : std::nullopt;
    }

    bool isTextWithoutZeros(std::uint64_t at, std::uint64_t length, std::uint64_t unit) const {
        for (std::uint64_t i = 0; i < length; ++i) {
            const auto character = number(at + i * unit, unit);
            if (!character || *character == 0) return false;
        }
        return true;
    }

    bool visit(std::uint64_t object, int depth) {
        if (object >= objects_ || depth > kDeepest || ++visited_ > kMostNodes) return false;
        const auto entry = number(table_ + object * offsetSize_, offsetSize_);
        const auto marker = entry ? number(*entry, 1) : std::nullopt;
        if (!marker) return false;
        constexpr std::uint64_t data = 0x4, bytes = 0x5, units = 0x6;
        constexpr std::uint64_t array = 0xA, set = 0xC, dictionary = 0xD;
        const std::uint64_t kind = *marker >> 4;
        const bool isText = kind == bytes || kind == units;
        const bool isContainer = kind == array || kind == set || kind == dictionary;
        if (!isText && !isContainer && kind != data) return true;

        std::uint64_t at = *entry + 1;
        const auto told = this->count(*marker, at);
        if (!told) return false;
        if (!isContainer) {
            unfolded_ += *told * (kind == units ? 3 : 1);  // the most that UTF-8 makes of a unit
            if (unfolded_ > kMostBytes) return false;
            return kind == data || isTextWithoutZeros(at, *told, kind == bytes ? 1 : 2);
        }
        std::uint64_t count = *told;
        if (kind == dictionary) count *= 2;
        for (std::uint64_t i = 0; i < count; ++i) {
            const auto reference = number(at + i * referenceSize_, referenceSize_);
            if (!reference || !visit(*reference, depth + 1)) return false;
        }
        return true;
    }

    std::string_view bytes_;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t objects_ = 0;
    std::uint64_t table_ = 0;
    std::uint64_t visited_ = 0;
    std::uint64_t unfolded_ = 0;
};

/// Whether a numeric reference such as "&#0;" or "&#x00;" stands for zero.
bool hasReferenceToZero(std::string_view text) {
    for (std::size_t at = text.find("&#"); at != std::string_view::npos;
         at = text.find("&#", at + 1)) {
        std::string_view digits = text.substr(at + 2, 32);
        if (digits.starts_with('x')) digits.remove_prefix(1);
        const std::size_t first = digits.find_first_not_of('0');
        if (first == std::string_view::npos || digits[first] == ';') return true;
    }
    return false;
}

/// What closes a construct that holds no elements; "" for a tag.
std::string_view endOfOpaque(std::string_view markup) {
    if (markup.starts_with("<!--")) return "-->";
    if (markup.starts_with("<![CDATA[")) return "]]>";
    return markup.starts_with("<?") ? "?>" : "";
}

bool isContainer(std::string_view name) {
    return name.starts_with("array") || name.starts_with("dict");
}

bool isReadableXml(std::string_view text) {
    if (text.find('\0') != std::string_view::npos || hasReferenceToZero(text)) return false;
    int depth = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at)) {
        const std::string_view markup = text.substr(at);
        const std::string_view opaque = endOfOpaque(markup);
        const std::string_view close = opaque.empty() ? ">" : opaque;
        const std::size_t end = markup.find(close);
        if (end == std::string_view::npos) return false;
        at += end + close.size();
        if (!opaque.empty()) continue;
        if (markup[1] == '/') {
            if (isContainer(markup.substr(2))) --depth;
        } else if (isContainer(markup.substr(1)) && markup[end - 1] != '/') {
            if (++depth > kDeepest) return false;
        }
    }
    return true;
}

}  // namespace

bool isBinaryPropertyList(std::string_view text) {
    return text.starts_with("bplist00");
}

bool isReadablePropertyList(std::string_view text) {
    return isBinaryPropertyList(text) ? BinaryWalk(text).isReadable() : isReadableXml(text);
}

}  // namespace gexlo
