// Keeps a second run off the files of an installation.
#pragma once

#include <filesystem>
#include <string>

namespace gexlo {

/// Held from construction to end, and let go by the system when the process dies.
class InstallationLock {
public:
    /// Makes the directory when it is missing, and takes its lock if it can.
    explicit InstallationLock(const std::filesystem::path& root);
    ~InstallationLock();
    InstallationLock(const InstallationLock&) = delete;
    InstallationLock& operator=(const InstallationLock&) = delete;

    bool isHeld() const { return refusal_.empty(); }
    /// Whether another run holds it; otherwise the directory cannot be used at all.
    bool isTaken() const { return isTaken_; }
    /// Why it is not held, in a sentence.
    const std::string& refusal() const { return refusal_; }

private:
    int descriptor_ = -1;
    std::string refusal_;
    bool isTaken_ = false;
};

}  // namespace gexlo
