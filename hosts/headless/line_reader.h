// Lines of commands from a stream.
#pragma once

#include <iosfwd>
#include <string>

namespace gexlo {

/// Reads a line of at most the driver's length; of a longer one the rest is passed over, and
/// what is given is just too long. False at the end.
bool readDriverLine(std::istream& in, std::string& line);

}  // namespace gexlo
