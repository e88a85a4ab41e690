#include "platform/services/keychain.h"

#include <algorithm>

#include "platform/foundation/device.h"
#include "platform/foundation/property_list.h"

namespace gexlo {

namespace {

bool matches(const NSDictionary& item, const NSDictionary& query) {
    return std::all_of(query.begin(), query.end(), [&](const auto& wanted) {
        const auto found = item.find(wanted.first);
        return found != item.end() && found->second == wanted.second;
    });
}

/// The items as one private file.
class Keychain {
public:
    Keychain() {
        const NSDictionary file = dictionaryFromFile(Device::current().facts().keychainFile());
        const auto list = file.find("items");
        const NSArray* entries = list == file.end() ? nullptr : list->second.as<NSArray>();
        if (!entries) return;
        for (const Object& entry : *entries) {
            if (const auto* item = entry.as<NSDictionary>()) items_.push_back(*item);
        }
    }

    const std::vector<NSDictionary>& items() const { return items_; }

    /// Takes the new items if they can be kept.
    OSStatus replace(std::vector<NSDictionary> items) {
        const NSArray list(items.begin(), items.end());
        if (!writeDictionary({{"items", list}}, Device::current().facts().keychainFile())) {
            return OSStatus::errSecIO;
        }
        items_ = std::move(items);
        return OSStatus::errSecSuccess;
    }

private:
    std::vector<NSDictionary> items_;
};

Keychain& keychain() {
    return Device::current().singleton<Keychain>();
}

}  // namespace

OSStatus SecItemCopyMatching(const NSDictionary& query, NSDictionary& item) {
    for (const NSDictionary& candidate : keychain().items()) {
        if (!matches(candidate, query)) continue;
        item = candidate;
        return OSStatus::errSecSuccess;
    }
    item.clear();
    return OSStatus::errSecItemNotFound;
}

OSStatus SecItemAdd(const NSDictionary& item) {
    if (!item.contains(kSecClass)) return OSStatus::errSecParam;
    NSDictionary attributes = item;
    attributes.erase(kSecValueData);
    std::vector<NSDictionary> items = keychain().items();
    const bool stands = std::any_of(items.begin(), items.end(), [&](const NSDictionary& other) {
        return matches(other, attributes);
    });
    if (stands) return OSStatus::errSecDuplicateItem;
    items.push_back(item);
    return keychain().replace(std::move(items));
}

OSStatus SecItemUpdate(const NSDictionary& query, const NSDictionary& changes) {
    std::vector<NSDictionary> items = keychain().items();
    bool found = false;
    for (NSDictionary& item : items) {
        if (!matches(item, query)) continue;
        found = true;
        for (const auto& [key, value] : changes)
            item.insert_or_assign(key, value);
    }
    return found ? keychain().replace(std::move(items)) : OSStatus::errSecItemNotFound;
}

OSStatus SecItemDelete(const NSDictionary& query) {
    std::vector<NSDictionary> items = keychain().items();
    const auto removed =
        std::erase_if(items, [&](const NSDictionary& item) { return matches(item, query); });
    return removed > 0 ? keychain().replace(std::move(items)) : OSStatus::errSecItemNotFound;
}

std::vector<NSDictionary> keychainItems() {
    return keychain().items();
}

}  // namespace gexlo
