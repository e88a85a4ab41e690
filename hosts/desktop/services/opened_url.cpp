#include "hosts/desktop/services/opened_url.h"

#include <QUrl>

#include <algorithm>
#include <string_view>

namespace gexlo {

namespace {

/// "" for what is no URL but a path.
std::string_view schemeOf(std::string_view argument) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto isOfScheme = [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
    };
    const std::string_view scheme = argument.substr(0, argument.find(':'));
    const bool isScheme = scheme.size() < argument.size() && !scheme.empty() &&
                          isLetter(scheme.front()) && std::ranges::all_of(scheme, isOfScheme);
    return isScheme ? scheme : std::string_view();
}

}  // namespace

std::string fileUrl(const std::filesystem::path& file) {
    std::error_code error;
    // Dots stay: behind a symbolic link ".." is not what its text says.
    const auto path = QByteArray::fromStdString(std::filesystem::absolute(file, error).string());
    return "file://" + path.toPercentEncoding("/").toStdString();
}

std::string urlFromArgument(const std::string& argument) {
    if (argument.empty()) return "";
    std::error_code error;
    const std::string_view scheme = schemeOf(argument);
    if (scheme.empty() || std::filesystem::exists(argument, error)) return fileUrl(argument);
    const QUrl url(QString::fromStdString(argument));
    // Files are named in several ways, as "file:/home" and with bare blanks.
    return url.isLocalFile() ? url.toEncoded().toStdString() : argument;
}

}  // namespace gexlo
