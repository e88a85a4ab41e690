// The log: one stream of free-form lines, for development only.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/string_format.h"

namespace gexlo {

class Log {
public:
    /// Lines kept for a reader; the oldest go first.
    static constexpr std::size_t kKeptLines = 10'000;

    void write(std::string line);
    /// The lines since the last call, oldest first.
    std::vector<std::string> take();
    /// Sees every line as it is written.
    void setSink(std::function<void(const std::string&)> sink) { sink_ = std::move(sink); }

private:
    std::deque<std::string> lines_;
    std::function<void(const std::string&)> sink_;
};

void logLine(std::string line);

template <typename... Arguments>
void NSLog(std::string_view format, const Arguments&... arguments) {
    logLine(stringWithFormat(format, arguments...));
}

/// Writes the line to the log and to standard error, then aborts the process.
[[noreturn]] void fatal(std::string line);

}  // namespace gexlo
