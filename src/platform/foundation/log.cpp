#include "platform/foundation/log.h"

#include <cstdio>
#include <cstdlib>

#include "platform/foundation/device.h"

namespace gexlo {

void Log::write(std::string line) {
    if (sink_) sink_(line);
    lines_.push_back(std::move(line));
    if (lines_.size() > kKeptLines) lines_.pop_front();
}

std::vector<std::string> Log::take() {
    std::vector<std::string> taken(std::make_move_iterator(lines_.begin()),
                                   std::make_move_iterator(lines_.end()));
    lines_.clear();
    return taken;
}

void logLine(std::string line) {
    Device::current().log().write(std::move(line));
}

void fatal(std::string line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    std::fflush(stderr);
    logLine(std::move(line));
    std::abort();
}

}  // namespace gexlo
