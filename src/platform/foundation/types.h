// The platform's plain number and byte types.
#pragma once

#include <cstdint>
#include <vector>

namespace gexlo {

using NSInteger = std::int64_t;
using NSTimeInterval = double;  ///< seconds
using NSData = std::vector<std::uint8_t>;

}  // namespace gexlo
