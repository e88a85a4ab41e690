#include "platform/foundation/file_manager.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "platform/foundation/device.h"

namespace gexlo {

namespace {

std::string systemError(const char* what, const NSURL& path) {
    return std::string(what) + " " + path.string() + ": " + std::strerror(errno);
}

/// An open file that closes itself.
class Descriptor {
public:
    Descriptor(const NSURL& path, int flags, mode_t mode = 0)
        : number_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ >= 0; }
    bool write(std::string_view contents) const {
        while (!contents.empty()) {
            const ssize_t written = ::write(number_, contents.data(), contents.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            contents.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    bool readAll(std::string& contents) const {
        std::array<char, 65536> buffer;
        for (;;) {
            const ssize_t some = ::read(number_, buffer.data(), buffer.size());
            if (some < 0 && errno == EINTR) continue;
            if (some <= 0) return some == 0;
            contents.append(buffer.data(), static_cast<std::size_t>(some));
        }
    }
    bool sync() const { return ::fsync(number_) == 0; }

private:
    int number_;
};

}  // namespace

NSFileManager& NSFileManager::defaultManager() {
    return Device::current().singleton<NSFileManager>();
}

bool NSFileManager::fileExistsAtPath(const NSURL& path) const {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

bool NSFileManager::isDeletableFileAtPath(const NSURL& path) const {
    return fileExistsAtPath(path) && ::access(path.parent_path().c_str(), W_OK) == 0;
}

std::optional<std::string> NSFileManager::removeItemAtPath(const NSURL& path) const {
    std::error_code error;
    std::filesystem::remove_all(path, error);
    if (!error) return std::nullopt;
    return "Cannot remove " + path.string() + ": " + error.message();
}

NSURL NSFileManager::documentDirectory() const {
    return Device::current().facts().documentsDirectory();
}

bool NSFileManager::offersGroupContainers() const {
    return Device::current().facts().offersGroupContainer;
}

std::optional<NSURL> NSFileManager::containerURLForSecurityApplicationGroupIdentifier(
    std::string_view) const {
    // One application, so one group: the directory needs no identifier in its name.
    if (!offersGroupContainers()) return std::nullopt;
    return Device::current().facts().groupDirectory();
}

std::optional<std::string> contentsOfFile(const NSURL& path) {
    const Descriptor file(path, O_RDONLY);
    std::string contents;
    if (!file.isOpen() || !file.readAll(contents)) return std::nullopt;
    return contents;
}

std::optional<std::string> writeFileAtomically(const NSURL& path, std::string_view contents) {
    NSURL partial = path;
    partial += ".partial";
    {
        const Descriptor file(partial, O_WRONLY | O_CREAT | O_TRUNC, S_IRUSR | S_IWUSR);
        if (!file.isOpen() || !file.write(contents) || !file.sync()) {
            std::string error = systemError("Cannot write", partial);
            ::unlink(partial.c_str());
            return error;
        }
    }
    if (::rename(partial.c_str(), path.c_str()) != 0) {
        std::string error = systemError("Cannot replace", path);
        ::unlink(partial.c_str());
        return error;
    }
    const Descriptor directory(path.parent_path(), O_RDONLY | O_DIRECTORY);
    if (directory.isOpen()) (void)directory.sync();  // some file systems refuse; the file is whole
    return std::nullopt;
}

}  // namespace gexlo
