#include "platform/services/keychain.h"

#include <gtest/gtest.h>

#include "platform/services/key_store.h"
#include "platform/services/keychain_item_wrapper.h"
#include "presentation/style/theme_manager.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

NSDictionary account(const char* name) {
    return {{kSecClass, kSecClassGenericPassword}, {kSecAttrAccount, name}};
}

NSDictionary item(const char* name, const NSData& secret) {
    NSDictionary item = account(name);
    item[kSecValueData] = secret;
    return item;
}

/// The secret of the first item that matches; nothing without one.
std::optional<NSData> secret(const NSDictionary& query) {
    NSDictionary found{{"of a former search", 1}};
    const OSStatus status = SecItemCopyMatching(query, found);
    EXPECT_EQ(found.empty(), status == OSStatus::errSecItemNotFound);
    if (found.empty()) return std::nullopt;
    return *found.at(kSecValueData).as<NSData>();
}

class Keychain : public testing::Test {
protected:
    Keychain() {
        EXPECT_EQ(SecItemAdd(item("ann", {0, 1, 255})), OSStatus::errSecSuccess);
        EXPECT_EQ(SecItemAdd(item("ben", {})), OSStatus::errSecSuccess);
    }
    Phone phone;
    const std::filesystem::path file = phone.facts.keychainFile();
};

TEST_F(Keychain, an_item_stands_once_and_is_found_by_what_the_query_names) {
    NSDictionary other = item("ann", {9});
    EXPECT_EQ(SecItemAdd(other), OSStatus::errSecDuplicateItem);
    EXPECT_EQ(SecItemAdd({{kSecAttrAccount, "carl"}}), OSStatus::errSecParam);
    other[kSecAttrService] = "other";
    EXPECT_EQ(SecItemAdd(other), OSStatus::errSecSuccess);
    EXPECT_EQ(secret(account("ann")), (NSData{0, 1, 255}));
    EXPECT_EQ(secret({{kSecAttrAccount, "ben"}}), NSData{});
    EXPECT_EQ(secret({{kSecAttrAccount, "ann"}, {kSecAttrService, "other"}}), NSData{9});
    EXPECT_EQ(secret({{kSecAttrAccount, "ben"}, {kSecAttrService, "other"}}), std::nullopt);
}

TEST_F(Keychain, changes_reach_the_items_that_match_and_survive_a_restart) {
    const NSDictionary changes{{kSecValueData, NSData{7}}};
    EXPECT_EQ(SecItemUpdate(account("ben"), changes), OSStatus::errSecSuccess);
    EXPECT_EQ(SecItemUpdate(account("carl"), changes), OSStatus::errSecItemNotFound);
    EXPECT_EQ(SecItemDelete(account("ann")), OSStatus::errSecSuccess);
    EXPECT_EQ(SecItemDelete(account("ann")), OSStatus::errSecItemNotFound);
    phone.restart();
    EXPECT_EQ(keychainItems(), std::vector{item("ben", {7})});
}

TEST_F(Keychain, its_file_is_private_and_what_it_cannot_keep_is_not_taken) {
    using std::filesystem::perms;
    std::filesystem::permissions(file, perms::all);
    EXPECT_EQ(SecItemUpdate(account("ben"), {{kSecAttrLabel, "x"}}), OSStatus::errSecSuccess);
    EXPECT_EQ(std::filesystem::status(file).permissions(), perms::owner_read | perms::owner_write);
    std::filesystem::create_directory(file.string() + ".partial");
    phone.expectLog("Cannot write");
    EXPECT_EQ(SecItemAdd(item("carl", {1})), OSStatus::errSecIO);
    EXPECT_EQ(SecItemDelete(account("ann")), OSStatus::errSecIO);
    EXPECT_EQ(keychainItems().size(), 2);
}

/// A secret service whose answers to what it is to keep wait until they are let go.
class SlowKeyStore final : public KeyStore {
public:
    std::optional<std::string> load() override {
        return isLocked ? std::optional<std::string>("") : secret;
    }
    void save(const std::string& text, std::function<void()> kept) override {
        waiting.push_back([this, text, kept] {
            secret = text;
            kept();
        });
    }
    void keep() {
        for (const auto& save : std::exchange(waiting, {}))
            save();
    }

    std::optional<std::string> secret = "";
    bool isLocked = false;
    std::vector<std::function<void()>> waiting;
};

class KeychainWithKeyStore : public Keychain {
protected:
    void restartWith(std::shared_ptr<KeyStore> keyStore) {
        phone.services.keyStore = std::move(keyStore);
        phone.restart();
    }
    /// Ann and Ben stand in the key store, and the file says so.
    void moveAll() {
        restartWith(store);
        EXPECT_EQ(names(), "ann ben ");
        store->keep();
    }
    static std::string names() {
        std::string names;
        for (const NSDictionary& item : keychainItems())
            names += item.at(kSecAttrAccount).stringValue() + " ";
        return names;
    }
    bool fileHas(const std::string& name) const {
        return readFile(file).find(name) != std::string::npos;
    }
    static void set(const char* name, const NSData& secret) {
        const NSDictionary changes{{kSecValueData, secret}};
        if (SecItemUpdate(account(name), changes) == OSStatus::errSecSuccess) return;
        EXPECT_EQ(SecItemAdd(item(name, secret)), OSStatus::errSecSuccess);
    }
    const std::shared_ptr<SlowKeyStore> store = std::make_shared<SlowKeyStore>();
};

TEST_F(KeychainWithKeyStore, items_leave_the_file_only_once_these_very_ones_are_kept) {
    restartWith(store);
    EXPECT_EQ(names(), "ann ben ");
    const auto former = std::exchange(store->waiting, {});
    set("carl", {3});
    for (const auto& save : former)
        save();
    EXPECT_TRUE(fileHas("ann") && fileHas("carl")) << "only the former ones were kept";
    store->keep();
    EXPECT_FALSE(fileHas("ann") || fileHas("carl"));
    phone.restart();
    EXPECT_EQ(names(), "ann ben carl ");
    EXPECT_TRUE(store->waiting.empty()) << "nothing is new";
    set("dora", {4});
    phone.quit();
    store->keep();  // later than anyone waits for it
    phone.restart();
    EXPECT_EQ(names(), "ann ben carl dora ");
}

TEST_F(KeychainWithKeyStore, a_change_that_it_did_not_keep_stands_in_the_file_and_wins) {
    moveAll();
    EXPECT_EQ(SecItemDelete(account("ann")), OSStatus::errSecSuccess);
    set("ben", {7});
    store->waiting.clear();  // gone for the rest of the run, and for the next
    restartWith(nullptr);
    EXPECT_EQ(names(), "ben ");
    set("carl", {3});
    restartWith(store);
    EXPECT_EQ(names(), "ben carl ");
    EXPECT_EQ(secret(account("ben")), NSData{7});
    store->keep();
    EXPECT_FALSE(fileHas("ben"));
}

class UnreadableKeyStore : public KeychainWithKeyStore,
                           public testing::WithParamInterface<const char*> {};

TEST_P(UnreadableKeyStore, holds_on_to_its_items_and_is_joined_by_those_added_meanwhile) {
    moveAll();
    const std::string kept = *store->secret;
    const std::string fault = GetParam();
    store->isLocked = fault == "locked";
    if (fault == "away") store->secret.reset();
    if (fault == "damaged") {
        store->secret = "no property list";
        phone.expectLog("The key store's items cannot be read");
    }
    phone.restart();
    EXPECT_EQ(names(), "");
    set("ben", {8});
    set("carl", {3});
    EXPECT_TRUE(store->waiting.empty()) << "what could not be read would be overwritten";
    store->isLocked = false;
    store->secret = kept;
    phone.restart();
    EXPECT_EQ(names(), "ben carl ann ");
    EXPECT_EQ(secret(account("ben")), NSData{8});
    EXPECT_EQ(secret(account("ann")), (NSData{0, 1, 255}));
    store->keep();
    EXPECT_FALSE(fileHas("carl"));
}
INSTANTIATE_TEST_SUITE_P(Keychain, UnreadableKeyStore,
                         testing::Values("locked", "damaged", "away"));

TEST(KeychainItem, the_chosen_theme_is_kept_and_forgotten_at_the_next_start) {
    Phone phone;
    phone.launch();
    const UIColor menu = GXThemeManager::manager().topMenuBackgroundColor;
    GXThemeManager::manager().setThemeType(1);
    GXThemeManager::manager().setThemeType(2);
    EXPECT_EQ(GXThemeManager::manager().topMenuBackgroundColor, menu);
    ASSERT_EQ(keychainItems().size(), 1U);
    phone.relaunch();
    EXPECT_EQ(GXThemeManager::manager().themeType(), 0);
    KeychainItemWrapper item("GX_THEME_TYPE");
    EXPECT_EQ(item.objectForKey(kSecAttrService).integerValue(), 2);
    EXPECT_EQ(KeychainItemWrapper("other").objectForKey(kSecAttrAccount), Object(""));
    item.resetKeychainItem();
    EXPECT_TRUE(keychainItems().empty());
}

}  // namespace
}  // namespace gexlo::test
