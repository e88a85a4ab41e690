// A text of the platform as the toolkit's.
#pragma once

#include <QString>
#include <string_view>

namespace gexlo {

inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace gexlo
