// Keeps the keychain's items as one secret of the desktop's secret service.
#pragma once

#include <QEventLoop>
#include <QString>

#include <chrono>
#include <filesystem>

#include "platform/services/key_store.h"

namespace gexlo {

class DesktopKeyStore final : public KeyStore {
public:
    static constexpr std::chrono::milliseconds kPatience{2000};

    /// Reads the data directory's secret. Runs an event loop until that is done, at most for
    /// `patience`, so it is made before the launch; does not wait where no service answers.
    explicit DesktopKeyStore(const std::filesystem::path& root,
                             std::chrono::milliseconds patience = kPatience);

    std::optional<std::string> load() override { return secret_; }
    void save(const std::string& text, std::function<void()> kept) override;

private:
    void askService(std::size_t index);
    void read();

    QString key_;
    std::optional<std::string> secret_;  // nothing until the service has answered
    QEventLoop answers_;                 // owns what is under way, and waits for it at the start
};

}  // namespace gexlo
