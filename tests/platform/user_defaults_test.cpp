#include "platform/foundation/user_defaults.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/foundation/property_list.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

constexpr NSInteger kMost = std::numeric_limits<NSInteger>::max();
constexpr const char* kGroup = "group.pindrel.gexlo";

std::string manyTimes(std::string_view part) {
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += part;
    return text;
}

class UserDefaults : public testing::Test {
protected:
    static NSUserDefaults& defaults() { return NSUserDefaults::standardUserDefaults(); }
    static NSUserDefaults& suite() { return NSUserDefaults::initWithSuiteName(kGroup); }
    static void inTurn(const std::function<void()>& work) { Device::current().perform(work); }
    Phone phone;
    const std::filesystem::path file = phone.facts.preferencesDirectory() / "standard.plist";
};

TEST_F(UserDefaults, what_changed_is_written_when_the_turn_ends_or_when_asked) {
    inTurn([&] {
        defaults().setInteger_forKey(7, "count");
        EXPECT_FALSE(std::filesystem::exists(file));
    });
    EXPECT_EQ(dictionaryFromFile(file), (NSDictionary{{"count", 7}}));
    defaults().setObject_forKey("text", "name");
    defaults().synchronize();
    EXPECT_EQ(dictionaryFromFile(file), (NSDictionary{{"count", 7}, {"name", "text"}}));
    defaults().setValue_forKey({}, "count");
    EXPECT_FALSE(defaults().dictionaryRepresentation().contains("count"));
    suite().setInteger_forKey(2, "name");
    phone.restart();
    EXPECT_EQ(defaults().dictionaryRepresentation(), (NSDictionary{{"name", "text"}}));
    EXPECT_EQ(userDefaultSuites(), (std::map<std::string, NSDictionary>{{kGroup, {{"name", 2}}}}));
}

TEST_F(UserDefaults, every_value_comes_back_as_it_was) {
    const NSData bytes{0, 255, 10};
    const NSArray list{1, "two", NSDictionary{{"three", 3.5}}};
    const NSArray empties(100, NSArray());  // no deep nesting, however many
    const NSDate date = NSDate::dateWithTimeIntervalSince1970(-86400);
    const std::string text = " <&>\"' ]]>\n한국어 🎒 ";
    for (const Object& value : NSArray({true, 0, kMost, -kMost - 1, 1.0 / 3, -1e-300, text, "",
                                        date, bytes, NSData(), list, NSArray(), empties})) {
        defaults().setObject_forKey(value, text);
        phone.restart();
        EXPECT_EQ(defaults().objectForKey(text), value) << value.value().index();
    }
}

TEST_F(UserDefaults, a_date_that_a_file_cannot_hold_comes_back_as_the_nearest_that_it_can) {
    constexpr double limit = 2147483647;
    for (const auto& [seconds, kept] :
         {std::pair{std::nan(""), -limit}, {-1e300, -limit}, {1e300, limit}}) {
        defaults().setObject_forKey(NSDate::dateWithTimeIntervalSince1970(seconds), "date");
        phone.restart();
        EXPECT_EQ(defaults().objectForKey("date"),
                  NSDate::dateWithTimeIntervalSince1970(NSDate::kReferenceSince1970 + kept));
    }
}

TEST_F(UserDefaults, an_integer_is_read_leniently) {
    const NSArray values{"42",
                         " \t+42 lessons",
                         "-7",
                         "lessons",
                         "",
                         "+-5",
                         "3.9",
                         -3.9,
                         1e300,
                         "99999999999999999999",
                         "-99999999999999999999",
                         true,
                         NSDate(),
                         Object()};
    const NSArray expected{42, 42, -7, 0, 0, 0, 3, -3, kMost, kMost, -kMost - 1, 1, 0, 0};
    for (std::size_t i = 0; i < values.size(); ++i) {
        defaults().setObject_forKey(values[i], "key");
        EXPECT_EQ(defaults().integerForKey("key"), expected[i].integerValue()) << i;
    }
}

TEST_F(UserDefaults, a_damaged_file_is_kept_aside_and_everything_works_on) {
    phone.expectLog("cannot be read");
    const std::string head = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    const std::string tail = manyTimes("</array>") + "</plist>";
    const std::string whole = xmlPropertyList(NSDictionary{{"key", NSArray{1, "two", NSData{3}}}});
    std::vector<std::string> damages{"\x01\xff noise", head + "<array><dict/></array></plist>",
                                     "bplist00" + std::string(64, '\xaa')};
    for (const char* part : {"<array>", "<array><!--</array>-->", "<array><?</array>?>"})
        damages.push_back(head + manyTimes(part) + tail);
    for (std::size_t length = 0; length < whole.rfind(">\n</plist>"); length += 5)
        damages.push_back(whole.substr(0, length));
    const std::string aside = file.string() + ".damaged";
    suite().setInteger_forKey(2, "key");
    for (const std::string& damage : damages) {
        phone.quit();
        writeFile(file, damage);
        phone.restart();
        EXPECT_TRUE(defaults().dictionaryRepresentation().empty()) << damage.substr(0, 1000);
        EXPECT_EQ(readFile(aside), damage);
        std::filesystem::remove(aside);
        EXPECT_EQ(suite().integerForKey("key"), 2);
        defaults().setInteger_forKey(5, "key");
        phone.restart();
        EXPECT_EQ(defaults().integerForKey("key"), 5);
    }
    EXPECT_EQ(phone.log().size(), damages.size());
}

TEST_F(UserDefaults, a_write_that_fails_leaves_the_old_file_whole) {
    inTurn([&] { defaults().setInteger_forKey(1, "key"); });
    const std::string before = readFile(file);
    const std::string partial = file.string() + ".partial";
    std::filesystem::create_directory(partial);
    phone.expectLog("Cannot write");
    inTurn([&] { defaults().setInteger_forKey(2, "key"); });
    EXPECT_EQ(readFile(file), before);
    EXPECT_EQ(phone.log().size(), 1);
    std::filesystem::remove(partial);
    inTurn([] {});
    EXPECT_EQ(dictionaryFromFile(file), (NSDictionary{{"key", 2}}));
}

}  // namespace
}  // namespace gexlo::test
