// Where a URL of the file scheme points.
#pragma once

#include <optional>
#include <string_view>

#include "platform/foundation/file_manager.h"

namespace gexlo {

/// The path, percent escapes resolved, without query and fragment. Nothing for another scheme,
/// another machine than this, or a name that holds a zero. As SQLite reads such a name:
/// https://www.sqlite.org/uri.html
std::optional<NSURL> pathOfFileURL(std::string_view url);

}  // namespace gexlo
