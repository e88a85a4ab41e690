// Holds back property lists that would cost more to read than they weigh: nested so
// deep that a recursive reader runs out of stack, or sharing parts so that reading
// them unfolds without end.
#pragma once

#include <string_view>

namespace gexlo {

/// Whether `text`, in either format, nests and unfolds within sane bounds. It may still
/// be ill-formed in any other way.
bool isBoundedPropertyList(std::string_view text);
bool isBinaryPropertyList(std::string_view text);

}  // namespace gexlo
