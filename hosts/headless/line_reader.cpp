#include "hosts/headless/line_reader.h"

#include <istream>

#include "hosts/headless/driver.h"

namespace gexlo {

bool readDriverLine(std::istream& in, std::string& line) {
    line.clear();
    std::streambuf& buffer = *in.rdbuf();
    for (int c = buffer.sbumpc(); c != std::char_traits<char>::eof(); c = buffer.sbumpc()) {
        if (c == '\n') return true;
        if (line.size() <= Driver::kLongestLine) line += static_cast<char>(c);
    }
    return !line.empty();
}

}  // namespace gexlo
