#include "platform/foundation/object.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace gexlo {

namespace {

std::string_view withoutLeadingBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

NSInteger truncated(double value) {
    if (std::isnan(value)) return 0;
    if (value >= 9223372036854775808.0) return std::numeric_limits<NSInteger>::max();
    if (value <= -9223372036854775808.0) return std::numeric_limits<NSInteger>::min();
    return static_cast<NSInteger>(value);
}

double leadingNumber(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

bool NSSet::operator==(const NSSet& other) const {
    return members.size() == other.members.size() &&
           std::is_permutation(members.begin(), members.end(), other.members.begin());
}

NSInteger integerValueOf(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (text.starts_with("+-")) return 0;
    if (text.starts_with('+')) text.remove_prefix(1);
    NSInteger number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range) {
        return text.starts_with('-') ? std::numeric_limits<NSInteger>::min()
                                     : std::numeric_limits<NSInteger>::max();
    }
    return number;
}

NSInteger Object::integerValue() const {
    if (const auto* number = as<NSInteger>()) return *number;
    if (const auto* number = as<double>()) return truncated(*number);
    if (const auto* flag = as<bool>()) return *flag ? 1 : 0;
    if (const auto* text = as<std::string>()) return integerValueOf(*text);
    return 0;
}

double Object::doubleValue() const {
    if (const auto* number = as<double>()) return *number;
    if (const auto* text = as<std::string>()) return leadingNumber(*text);
    return static_cast<double>(integerValue());
}

std::string Object::stringValue() const {
    const auto* text = as<std::string>();
    return text ? *text : std::string();
}

}  // namespace gexlo
