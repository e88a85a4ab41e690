#include "platform/services/keychain.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace gexlo::test
