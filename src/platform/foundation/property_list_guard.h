// Holds back property lists that the library cannot take: nested so deep that its recursive
// reader runs out of stack, sharing parts so that reading them unfolds without end, or with
// a zero in a text, over which it ends the process.
#pragma once

#include <string_view>

namespace gexlo {

/// Whether `text`, in either format, has none of these faults. It may have any other.
bool isReadablePropertyList(std::string_view text);
bool isBinaryPropertyList(std::string_view text);

}  // namespace gexlo
