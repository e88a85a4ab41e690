// What a person asks to open, as the URL that the system receives.
#pragma once

#include <filesystem>
#include <string>

namespace gexlo {

/// The absolute URL of a file. Every byte of its path is escaped that would mean something else
/// in a URL or is none of its characters, so that any name that a file can have comes through.
std::string fileUrl(const std::filesystem::path& file);

/// What an argument of the command line asks for: the URL of a file that is told by its path or
/// its URL, any other URL as it stands, "" for "". A file that is there comes before a URL.
std::string urlFromArgument(const std::string& argument);

}  // namespace gexlo
