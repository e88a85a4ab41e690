#include "platform/foundation/property_list_guard.h"

#include <cstdint>
#include <optional>

namespace gexlo {

namespace {

constexpr int kDeepest = 64;
constexpr std::uint64_t kMostNodes = 4'000'000;

/// Walks the binary format as published: eight bytes of magic, objects, a table of their
/// offsets, and a trailer of 32 bytes. Every visit of an object counts, so that parts
/// which many others share are counted as often as a reader would unfold them.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {}

    bool isBounded() {
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

    bool visit(std::uint64_t object, int depth) {
        if (object >= objects_ || depth > kDeepest || ++visited_ > kMostNodes) return false;
        const auto entry = number(table_ + object * offsetSize_, offsetSize_);
        const auto marker = entry ? number(*entry, 1) : std::nullopt;
        if (!marker) return false;
        const std::uint64_t kind = *marker >> 4;
        constexpr std::uint64_t array = 0xA, set = 0xC, dictionary = 0xD;
        if (kind != array && kind != set && kind != dictionary) return true;

        std::uint64_t at = *entry + 1;
        std::uint64_t count = *marker & 0xF;
        if (count == 0xF) {  // the count follows as an integer object
            const auto sizeMarker = number(at, 1);
            const std::uint64_t size = sizeMarker ? std::uint64_t{1} << (*sizeMarker & 0x3) : 0;
            const auto told = sizeMarker ? number(at + 1, size) : std::nullopt;
            if (!told) return false;
            count = *told;
            at += 1 + size;
        }
        if (count > bytes_.size()) return false;
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
};

bool isBoundedXml(std::string_view text) {
    int depth = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos;
         at = text.find('<', at + 1)) {
        const std::string_view tag = text.substr(at + 1, 6);
        if (tag.starts_with("array") || tag.starts_with("dict")) {
            if (++depth > kDeepest) return false;
        } else if (tag.starts_with("/array") || tag.starts_with("/dict")) {
            --depth;
        }
    }
    return true;
}

}  // namespace

bool isBinaryPropertyList(std::string_view text) {
    return text.starts_with("bplist00");
}

bool isBoundedPropertyList(std::string_view text) {
    return isBinaryPropertyList(text) ? BinaryWalk(text).isBounded() : isBoundedXml(text);
}

}  // namespace gexlo
