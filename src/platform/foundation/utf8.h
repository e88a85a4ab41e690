// Checks on texts that come from outside.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace gexlo {

bool isValidUtf8(std::string_view text);
/// The text with every ill-formed sequence replaced by U+FFFD.
std::string repairedUtf8(std::string_view text);
/// Length as the platform counts it: UTF-16 units.
std::size_t utf16Length(std::string_view text);

/// The code points of a well-formed text, each as a part of it.
std::vector<std::string_view> charactersOf(std::string_view text);

}  // namespace gexlo
