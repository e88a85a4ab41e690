#include "exchange/file_url.h"

#include <charconv>
#include <string>

namespace gexlo {

namespace {

/// The byte that an escape such as "%2F" stands for, or nothing.
std::optional<char> escapedByte(std::string_view escape) {
    unsigned byte = 0;
    const char* end = escape.data() + escape.size();
    const auto [last, error] = std::from_chars(escape.data() + 1, end, byte, 16);
    if (escape.size() < 3 || error != std::errc() || last != end) return std::nullopt;
    return static_cast<char>(byte);
}

}  // namespace

std::optional<NSURL> pathOfFileURL(std::string_view url) {
    constexpr std::string_view scheme = "file://";
    if (!url.starts_with(scheme)) return std::nullopt;
    url.remove_prefix(scheme.size());
    const std::string_view host = url.substr(0, url.find('/'));
    if (!host.empty() && host != "localhost") return std::nullopt;
    url.remove_prefix(host.size());
    url = url.substr(0, url.find_first_of("?#"));
    std::string path;
    for (std::size_t i = 0; i < url.size(); ++i) {
        // A percent sign that escapes nothing stands for itself.
        const auto byte = url[i] == '%' ? escapedByte(url.substr(i, 3)) : std::nullopt;
        if (byte == '\0') return std::nullopt;
        path += byte.value_or(url[i]);
        if (byte) i += 2;
    }
    if (path.empty()) return std::nullopt;
    return NSURL(path);
}

}  // namespace gexlo
