#include "platform/services/keychain.h"

#include <algorithm>

#include "platform/foundation/device.h"
#include "platform/foundation/property_list.h"
#include "platform/services/key_store.h"

namespace gexlo {

namespace {

bool matches(const NSDictionary& item, const NSDictionary& query) {
    return std::all_of(query.begin(), query.end(), [&](const auto& wanted) {
        const auto found = item.find(wanted.first);
        return found != item.end() && found->second == wanted.second;
    });
}

/// Whether an item with all attributes of this one is there.
bool stands(const std::vector<NSDictionary>& items, const NSDictionary& item) {
    NSDictionary attributes = item;
    attributes.erase(kSecValueData);
    return std::any_of(items.begin(), items.end(),
                       [&](const NSDictionary& other) { return matches(other, attributes); });
}

NSDictionary dictionaryOf(const std::vector<NSDictionary>& items) {
    return {{"items", NSArray(items.begin(), items.end())}};
}

std::vector<NSDictionary> itemsOf(const NSDictionary& dictionary) {
    const auto list = dictionary.find("items");
    const NSArray* entries = list == dictionary.end() ? nullptr : list->second.as<NSArray>();
    std::vector<NSDictionary> items;
    if (!entries) return items;
    for (const Object& entry : *entries) {
        if (const auto* item = entry.as<NSDictionary>()) items.push_back(*item);
    }
    return items;
}

// What the file says of the key store, under `keyStore`; without it the file does not know.
constexpr const char* kKeyStore = "keyStore";
constexpr const char* kHasOlder = "older";  // the file has all items, and newer
constexpr const char* kHasMore = "more";    // the file has only what is newer

/// The items in a private file and, where the device has one, in its key store. Every change
/// goes to the file first and leaves it when the key store has kept it, so that whoever stops
/// in between, the program or the key store, nothing is lost.
///
/// The file is the newer of the two. Where it has all items, they replace the key store's. Where
/// it has not, because they were added while the key store could not be asked, the key store's
/// join them, those of the same attributes left out. A key store that could not be read in this
/// run is not written either: it may hold what the file has not.
class Keychain {
public:
    Keychain() {
        const NSDictionary file = dictionaryFromFile(Device::current().facts().keychainFile());
        items_ = itemsOf(file);
        const auto said = file.find(kKeyStore);
        if (said != file.end()) keyStoreHas_ = said->second.stringValue();
        const auto kept = readKeyStore();
        if (!kept) return;
        keyStore_ = Device::current().services().keyStore;
        const bool isMoved = keyStoreHas_ == kHasMore && items_.empty();
        if (keyStoreHas_ != kHasOlder) join(*kept);
        // A failure is in the log, and changes nothing of where the items are.
        if (!isMoved && !(file.empty() && kept->empty())) (void)replace(items_);
    }

    const std::vector<NSDictionary>& items() const { return items_; }

    /// Takes the new items if they can be kept.
    OSStatus replace(std::vector<NSDictionary> items) {
        const std::string keyStoreHas = keyStore_ ? kHasOlder : keyStoreHas_;
        if (!write(items, keyStoreHas)) return OSStatus::errSecIO;
        items_ = std::move(items);
        keyStoreHas_ = keyStoreHas;
        if (keyStore_) move();
        return OSStatus::errSecSuccess;
    }

private:
    /// The key store's items; nothing where it cannot be read. One that has lost items that it
    /// had kept is taken for a locked one.
    std::optional<std::vector<NSDictionary>> readKeyStore() const {
        const auto& keyStore = Device::current().services().keyStore;
        const auto text = keyStore ? keyStore->load() : std::nullopt;
        if (!text || (text->empty() && keyStoreHas_ == kHasMore)) return std::nullopt;
        if (text->empty()) return std::vector<NSDictionary>{};
        const auto value = propertyListFromText(*text);
        const auto* dictionary = value ? value->as<NSDictionary>() : nullptr;
        if (dictionary) return itemsOf(*dictionary);
        NSLog("The key store's items cannot be read, and stay as they are");
        return std::nullopt;
    }

    /// Behind the newer items, so that a search meets these first.
    void join(const std::vector<NSDictionary>& older) {
        const std::vector<NSDictionary> newer = items_;
        for (const NSDictionary& item : older) {
            if (!stands(newer, item)) items_.push_back(item);
        }
    }

    /// Hands all items to the key store, and empties the file once just these are kept there.
    void move() {
        keyStore_->save(xmlPropertyList(dictionaryOf(items_)),
                        [self = std::weak_ptr(self_), save = ++lastSave_] {
                            const auto keychain = self.lock();
                            if (!keychain) return;
                            const std::scoped_lock held(Device::current().lock());
                            if ((*keychain)->lastSave_ == save) (*keychain)->emptyFile();
                        });
    }

    void emptyFile() {
        if (write({}, kHasMore)) keyStoreHas_ = kHasMore;
    }

    static bool write(const std::vector<NSDictionary>& items, const std::string& keyStoreHas) {
        NSDictionary file = dictionaryOf(items);
        if (!keyStoreHas.empty()) file.emplace(kKeyStore, keyStoreHas);
        return writeDictionary(file, Device::current().facts().keychainFile());
    }

    std::vector<NSDictionary> items_;
    std::string keyStoreHas_;             // as the file says it
    std::shared_ptr<KeyStore> keyStore_;  // shared with the device; null where it was not read
    NSInteger lastSave_ = 0;
    // Ends with this, so that a late answer of the key store is told from one in time.
    std::shared_ptr<Keychain*> self_ = std::make_shared<Keychain*>(this);
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
    std::vector<NSDictionary> items = keychain().items();
    if (stands(items, item)) return OSStatus::errSecDuplicateItem;
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
