#include "platform/foundation/installation_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace gexlo {

InstallationLock::InstallationLock(const std::filesystem::path& root) {
    std::error_code error;
    std::filesystem::create_directories(root, error);
    descriptor_ = ::open((root / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor_ < 0) {
        refusal_ = "Cannot use " + root.string() + ": " + std::strerror(errno);
    } else if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        refusal_ = "Another run is using " + root.string();
        isTaken_ = true;
    }
}

InstallationLock::~InstallationLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace gexlo
