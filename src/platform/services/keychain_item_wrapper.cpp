#include "platform/services/keychain_item_wrapper.h"

#include "platform/foundation/log.h"
#include "platform/services/keychain.h"

namespace gexlo {

KeychainItemWrapper::KeychainItemWrapper(std::string identifier)
    : identifier_(std::move(identifier)) {
    if (SecItemCopyMatching(query(), item_) != OSStatus::errSecSuccess) setEmptyTexts();
}

NSDictionary KeychainItemWrapper::query() const {
    return {{kSecClass, kSecClassGenericPassword}, {kSecAttrGeneric, identifier_}};
}

void KeychainItemWrapper::setEmptyTexts() {
    item_ = query();
    for (const char* key : {kSecAttrAccount, kSecAttrLabel, kSecAttrDescription, kSecValueData})
        item_.insert_or_assign(key, "");
}

Object KeychainItemWrapper::objectForKey(const std::string& key) const {
    const auto found = item_.find(key);
    return found == item_.end() ? Object() : found->second;
}

void KeychainItemWrapper::setObject_forKey(const Object& value, const std::string& key) {
    if (value.isAbsent() || objectForKey(key) == value) return;
    item_.insert_or_assign(key, value);
    writeToKeychain();
}

void KeychainItemWrapper::writeToKeychain() {
    NSDictionary found;
    const bool stands = SecItemCopyMatching(query(), found) == OSStatus::errSecSuccess;
    const OSStatus status = stands ? SecItemUpdate(query(), item_) : SecItemAdd(item_);
    if (status != OSStatus::errSecSuccess) {
        NSLog("The keychain did not take \"%@\" (%d)", identifier_, static_cast<int>(status));
    }
}

void KeychainItemWrapper::resetKeychainItem() {
    // Where it was not there, nothing is to be done.
    static_cast<void>(SecItemDelete(query()));
    setEmptyTexts();
}

}  // namespace gexlo
