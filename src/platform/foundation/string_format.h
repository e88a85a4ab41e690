// The platform's format texts: "%@", "%ld", "%.01f", "%02d", "%1$@" and their like.
#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "platform/foundation/types.h"

namespace gexlo {

/// One argument of a format text: a number, or anything that "%@" prints as text.
using FormatArgument = std::variant<NSInteger, double, std::string_view>;

/// Fills `format` with `arguments`. Never fails: an argument that is not there, or
/// is of a kind the directive cannot print, gives an empty text; an unknown
/// directive stands as it is written; widths and precisions end at 512.
std::string formatArguments(std::string_view format, std::span<const FormatArgument> arguments);

namespace detail {

template <typename T>
FormatArgument formatArgument(const T& value) {
    if constexpr (std::is_enum_v<T> || std::integral<T>) {
        return static_cast<NSInteger>(value);
    } else if constexpr (std::floating_point<T>) {
        return static_cast<double>(value);
    } else {
        return std::string_view(value);
    }
}

}  // namespace detail

template <typename... Arguments>
std::string stringWithFormat(std::string_view format, const Arguments&... arguments) {
    if constexpr (sizeof...(arguments) == 0) {
        return formatArguments(format, {});
    } else {
        const FormatArgument list[] = {detail::formatArgument(arguments)...};
        return formatArguments(format, list);
    }
}

}  // namespace gexlo
