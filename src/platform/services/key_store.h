// Where a host keeps secrets better than a file does, as a desktop's secret service.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace gexlo {

/// Holds one text, all that the keychain has. Called from one thread at a time; never waits.
class KeyStore {
public:
    virtual ~KeyStore() = default;

    /// The text, "" where none is found; nothing while the store cannot be asked. A locked store
    /// may answer "" as well.
    virtual std::optional<std::string> load() = 0;
    /// Puts the text in place of the former, and calls `kept` in the host's thread once that is
    /// done for certain, or never. Texts are kept in the order in which they come.
    virtual void save(const std::string& text, std::function<void()> kept) = 0;
};

}  // namespace gexlo
