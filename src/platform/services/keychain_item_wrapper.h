// One generic password of the keychain, found by its identifier.
#pragma once

#include <string>

#include "platform/foundation/object.h"

namespace gexlo {

/// Its texts are empty where the keychain has no such item.
class KeychainItemWrapper {
public:
    /// Without an access group.
    explicit KeychainItemWrapper(std::string identifier);

    /// Absent for a key that the item has not.
    Object objectForKey(const std::string& key) const;
    /// Writes to the keychain where the value differs; an absent one is ignored.
    void setObject_forKey(const Object& value, const std::string& key);
    /// Takes the item out of the keychain.
    void resetKeychainItem();

private:
    NSDictionary query() const;
    void setEmptyTexts();
    void writeToKeychain();

    std::string identifier_;
    NSDictionary item_;
};

}  // namespace gexlo
