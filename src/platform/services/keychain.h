// The keychain: small secrets with attributes by which they are found.
#pragma once

#include <vector>

#include "platform/foundation/object.h"

namespace gexlo {

inline constexpr const char* kSecClass = "kSecClass";
inline constexpr const char* kSecClassGenericPassword = "kSecClassGenericPassword";
inline constexpr const char* kSecAttrGeneric = "kSecAttrGeneric";
inline constexpr const char* kSecAttrAccount = "kSecAttrAccount";
inline constexpr const char* kSecAttrService = "kSecAttrService";
inline constexpr const char* kSecAttrLabel = "kSecAttrLabel";
inline constexpr const char* kSecAttrDescription = "kSecAttrDescription";
inline constexpr const char* kSecValueData = "kSecValueData";

/// The platform's result codes.
enum class OSStatus : int {
    errSecSuccess = 0,
    errSecParam = -50,
    errSecIO = -61,
    errSecDuplicateItem = -25299,
    errSecItemNotFound = -25300,
};

/// Attributes and, under `kSecValueData`, the secret of the first item that has every
/// attribute of the query; empty and `errSecItemNotFound` without one.
[[nodiscard]] OSStatus SecItemCopyMatching(const NSDictionary& query, NSDictionary& item);
/// Refuses an item without a class, and one whose attributes all stand already.
[[nodiscard]] OSStatus SecItemAdd(const NSDictionary& item);
/// Changes every item that matches.
[[nodiscard]] OSStatus SecItemUpdate(const NSDictionary& query, const NSDictionary& changes);
[[nodiscard]] OSStatus SecItemDelete(const NSDictionary& query);

/// Everything in the keychain, in the order of addition.
std::vector<NSDictionary> keychainItems();

}  // namespace gexlo
