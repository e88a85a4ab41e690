#include "presentation/style/color_manager.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <span>

#include "platform/foundation/utf8.h"
#include "presentation/style/color_tables.h"

namespace gexlo {

namespace {

using namespace color_tables;
using Table = std::span<const NamedColor>;

constexpr UIColor kNoColor = UIColor::colorWithWhite(0.3F);
constexpr UIColor kNoFontColor = UIColor::blackColor();
constexpr float kBrightFrom = 0.7F;

NSInteger count(Table table) {
    return static_cast<NSInteger>(table.size());
}

const NamedColor* at(Table table, NSInteger index) {
    return index < 0 || index >= count(table) ? nullptr : &table[static_cast<std::size_t>(index)];
}

UIColor colorAtOr(Table table, NSInteger index, UIColor fallback) {
    const NamedColor* found = at(table, index);
    return found ? found->color : fallback;
}

std::string nameAt(Table table, NSInteger index) {
    const NamedColor* found = at(table, index);
    return found ? found->name : "";
}

const NamedColor* named(Table table, std::string_view name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const NamedColor& entry) { return entry.name == name; });
    return found == table.end() ? nullptr : &*found;
}

NSInteger indexOf(Table table, std::string_view name) {
    const NamedColor* found = named(table, name);
    return found ? found - table.data() : -1;
}

UIColor colorOf(Table old, Table present, std::string_view name) {
    if (name.starts_with('#') && utf16Length(name) > 3) {
        return GXColorManager::colorManager().colorFromString(name);
    }
    if (const NamedColor* found = named(old, name)) return found->color;
    return present.front().color;
}

int digitOf(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    return -1;
}

/// The leading hexadecimal number as the platform scans it: blanks and "0x" may stand before
/// it, and one too large is the largest.
std::uint32_t scannedHex(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())))
        text.remove_prefix(1);
    if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
    constexpr std::uint64_t largest = 0xFFFFFFFF;
    std::uint64_t number = 0;
    for (const char character : text) {
        const int digit = digitOf(character);
        if (digit < 0) break;
        number = std::min(number * 16 + static_cast<std::uint64_t>(digit), largest);
    }
    return static_cast<std::uint32_t>(number);
}

}  // namespace

const GXColorManager& GXColorManager::colorManager() {
    static const GXColorManager manager;
    return manager;
}

UIColor GXColorManager::colorAt(NSInteger index) const {
    return colorAtOr(kSubjectColors, index, kNoColor);
}
UIColor GXColorManager::tableColorAt(NSInteger index) const {
    return colorAtOr(kTimetableColors, index, kNoColor);
}
UIColor GXColorManager::tableColorAt_alpha(NSInteger index, float alpha) const {
    return tableColorAt(index).colorWithAlphaComponent(alpha);
}
UIColor GXColorManager::fontColorAt(NSInteger index) const {
    return colorAtOr(kTextColors, index, kNoFontColor);
}
UIColor GXColorManager::backgroundColorAt(NSInteger index) const {
    return colorAtOr(kBackgroundColors, index, kNoFontColor);
}

std::string GXColorManager::colorNameAt(NSInteger index) const {
    return nameAt(kSubjectColors, index);
}
std::string GXColorManager::tableColorNameAt(NSInteger index) const {
    return nameAt(kTimetableColors, index);
}
std::string GXColorManager::fontColorNameAt(NSInteger index) const {
    return nameAt(kTextColors, index);
}
std::string GXColorManager::backgroundColorNameAt(NSInteger index) const {
    return nameAt(kBackgroundColors, index);
}

NSInteger GXColorManager::numOfColors() const {
    return count(kSubjectColors);
}
NSInteger GXColorManager::numOfTableColors() const {
    return count(kTimetableColors);
}
NSInteger GXColorManager::numOfFontColors() const {
    return count(kTextColors);
}

UIColor GXColorManager::colorWithName(std::string_view name) const {
    return colorOf(kOldSubjectColors, kSubjectColors, name);
}
UIColor GXColorManager::tableColorWithName(std::string_view name) const {
    return colorOf(kOldTimetableColors, kTimetableColors, name);
}
UIColor GXColorManager::tableColorWithName_alpha(std::string_view name, float alpha) const {
    return tableColorWithName(name).colorWithAlphaComponent(alpha);
}
UIColor GXColorManager::fontColorWithName(std::string_view name) const {
    return colorOf(kOldTextColors, kTextColors, name);
}

NSInteger GXColorManager::indexWithName(std::string_view name) const {
    return indexOf(kSubjectColors, name);
}
NSInteger GXColorManager::indexWithTableColorName(std::string_view name) const {
    return indexOf(kTimetableColors, name);
}
NSInteger GXColorManager::indexWithFontColorName(std::string_view name) const {
    return indexOf(kTextColors, name);
}

std::optional<UIColor> GXColorManager::backgroundColorWithName(std::string_view name) const {
    if (const NamedColor* found = named(kBackgroundColors, name)) return found->color;
    if (name.starts_with('#') && utf16Length(name) >= 7) return colorFromString(name);
    return std::nullopt;
}

UIColor GXColorManager::colorFromString(std::string_view text) const {
    std::string digits;
    for (const char character : text) {
        if (character != '#') digits += character;
    }
    if (digits.size() == 3) {
        digits = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
    }
    if (digits.size() == 6) digits += "ff";
    const std::uint32_t number = scannedHex(digits);
    const auto component = [&](int shift) {
        return static_cast<float>((number >> shift) & 0xFF) / 255;
    };
    return UIColor::colorWithRed_green_blue(component(24), component(16), component(8));
}

float GXColorManager::brightnessWithColor(UIColor color) const {
    return color.patternImage ? 1 : std::max({color.red, color.green, color.blue});
}

NSInteger GXColorManager::fontColorIndexFromSubjectColorIndex(NSInteger index) const {
    return brightnessWithColor(colorAt(index)) > kBrightFrom ? 0 : 1;
}

UIImage GXColorManager::imageWithColor_width_height(UIColor color, double width,
                                                    double height) const {
    return UIImage::filled(color, {width, height});
}

}  // namespace gexlo
