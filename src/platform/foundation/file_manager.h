// Files and directories of the device.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace gexlo {

/// A file or directory by its path.
using NSURL = std::filesystem::path;

class NSFileManager {
public:
    static NSFileManager& defaultManager();

    bool fileExistsAtPath(const NSURL& path) const;
    /// Whether the file exists and its directory lets go of it.
    bool isDeletableFileAtPath(const NSURL& path) const;
    /// What went wrong, or nothing.
    [[nodiscard]] std::optional<std::string> removeItemAtPath(const NSURL& path) const;

    /// The user's documents; the platform's search for them gives just this one.
    NSURL documentDirectory() const;
    /// Nothing on a system that does not offer group containers.
    std::optional<NSURL> containerURLForSecurityApplicationGroupIdentifier(
        std::string_view identifier) const;
    bool offersGroupContainers() const;
};

/// The whole file, or nothing when it is missing or cannot be read.
std::optional<std::string> contentsOfFile(const NSURL& path);
/// Writes the file whole or not at all, down to the disk. What went wrong, or nothing.
[[nodiscard]] std::optional<std::string> writeFileAtomically(const NSURL& path,
                                                             std::string_view contents);

}  // namespace gexlo
