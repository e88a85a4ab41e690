// Lets a start on a data directory in use hand its request to the run that uses it.
#pragma once

#include <QLocalServer>

#include <filesystem>
#include <functional>
#include <string>

class QLocalSocket;

namespace gexlo {

/// Listens for later starts on the directory, from construction to end. Made by whoever holds
/// the directory's `InstallationLock`: so a socket that is found there is a dead run's.
class SingleInstance {
public:
    /// Called with a URL, or "" where the application is just to show.
    using Receive = std::function<void(const std::string& request)>;
    static constexpr std::size_t kLongestRequest = 65536;

    SingleInstance(const std::filesystem::path& root, Receive receive);

    /// Whether the run that uses the directory has taken the request. Waits for that run at
    /// most two seconds; refuses what is too long or no text.
    [[nodiscard]] static bool handOver(const std::filesystem::path& root,
                                       const std::string& request);

private:
    void accept();
    void read(QLocalSocket& socket);

    QLocalServer server_;
    Receive receive_;
};

}  // namespace gexlo
