#include <gtest/gtest.h>

#include <limits>

#include "platform/foundation/keyed_archiver.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/property_list_node.h"

namespace gexlo::test {
namespace {

struct Pupil final : NSCoding {
    const char* className() const override { return "Pupil"; }
    void encodeWithCoder(NSCoder& coder) const override {
        coder.encodeInteger_forKey(age, "age");
        coder.encodeFloat_forKey(mark, "mark");
        coder.encodeBool_forKey(present, "present");
        coder.encodeObject_forKey(neighbour, "neighbour");
    }
    static std::shared_ptr<NSCoding> initWithCoder(NSDecoder& decoder) {
        auto pupil = std::make_shared<Pupil>();
        pupil->age = decoder.decodeIntegerForKey("age");
        pupil->mark = decoder.decodeFloatForKey("mark");
        pupil->present = decoder.decodeBoolForKey("present");
        pupil->neighbour = decoder.decodeObjectForKey("neighbour");
        return pupil;
    }

    NSInteger age = 0;
    float mark = 0;
    bool present = false;
    Object neighbour;
};

NSData archive(const Object& value) {
    return NSKeyedArchiver::archivedDataWithRootObject(value);
}

std::optional<Object> restored(const NSData& data, const char* className = "Pupil") {
    const std::vector<CodingClass> classes{{className, &Pupil::initWithCoder}};
    return NSKeyedUnarchiver::unarchiveObjectWithData(data, classes);
}

const Pupil& pupil(const Object& value) {
    return dynamic_cast<const Pupil&>(**value.as<std::shared_ptr<NSCoding>>());
}

TEST(KeyedArchive, every_value_comes_back_as_it_was) {
    constexpr auto most = std::numeric_limits<NSInteger>::max();
    const NSDate date = NSDate::dateWithTimeIntervalSince1970(1772406000.25);
    const NSData bytes{0, 255, 10};
    const NSSet set{{1, "one", NSArray{2, Object()}}};
    const NSDictionary nested{{"", set}, {"한국어", NSDictionary{{"deep", NSArray{date, bytes}}}}};
    const NSArray values{Object(),          true, false,    0,       -1,       255,       most,
                         -most - 1,         0.5f, -1e300,   1.0 / 3, "",       "$null",   "$nul",
                         " <&> 한국어 🎒\n", date, NSDate(), bytes,   NSData(), NSArray(), NSSet(),
                         NSDictionary(),    set,  nested};
    for (const Object& value : values)
        EXPECT_EQ(restored(archive(value)), value) << value.value().index();
    EXPECT_EQ(restored(archive(values)), Object(values));
}

TEST(KeyedArchive, an_object_of_its_own_class_keeps_its_fields_and_is_shared) {
    const auto ann = std::make_shared<Pupil>();
    ann->age = -12;
    ann->mark = 1.3f;
    ann->present = true;
    ann->neighbour = std::make_shared<Pupil>();
    const auto twin = std::make_shared<Pupil>(*ann);
    const auto back = restored(archive(NSArray{ann, NSDictionary{{"ann", ann}}, twin}));
    ASSERT_TRUE(back);
    const NSArray& list = *back->as<NSArray>();
    const Pupil& first = pupil(list[0]);
    EXPECT_TRUE(first.age == -12 && first.mark == 1.3f && first.present);
    EXPECT_EQ(&pupil(list[1].as<NSDictionary>()->at("ann")), &first);
    EXPECT_NE(&pupil(list[2]), &first);
    EXPECT_EQ(pupil(list[2]).neighbour, first.neighbour);
    EXPECT_TRUE(pupil(first.neighbour).neighbour.isAbsent());
}

TEST(KeyedArchive, what_cannot_be_restored_is_refused) {
    const auto ann = std::make_shared<Pupil>();
    EXPECT_TRUE(restored(archive(ann)));
    EXPECT_FALSE(restored(archive(ann), "Pupils"));
    ann->neighbour = NSArray{ann};
    EXPECT_FALSE(restored(archive(ann)));
    ann->neighbour = {};
    Object nested;
    for (int level = 0; level < 150; ++level)
        nested = NSArray{std::move(nested)};
    EXPECT_FALSE(restored(archive(nested)));
    for (const std::string text : {"", "noise", "bplist00", "<plist><dict/></plist>"})
        EXPECT_FALSE(restored(NSData(text.begin(), text.end())));
}

/// Reads an archive of arrays within each other, whose only member stands in each ten times.
std::optional<Object> unfolded(int levels) {
    Object nested = "ha";
    for (int level = 0; level < levels; ++level)
        nested = NSArray{std::move(nested)};
    const NSData whole = archive(nested);
    const PropertyListNode root =
        nodeFromText({reinterpret_cast<const char*>(whole.data()), whole.size()});
    for (plist_t object : arrayNodes(plist_dict_get_item(root.get(), "$objects"))) {
        plist_t members = plist_dict_get_item(object, "NS.objects");
        for (int i = 1; members && i < 10; ++i)
            plist_array_append_item(members, plist_copy(plist_array_get_item(members, 0)));
    }
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root.get(), &bytes, &length);
    const NSData data(bytes, bytes + length);
    plist_to_bin_free(bytes);
    return restored(data);
}

TEST(KeyedArchive, sharing_that_unfolds_without_end_is_refused) {
    EXPECT_EQ(unfolded(1), Object(NSArray(10, "ha")));
    EXPECT_FALSE(unfolded(40));
    // The same in the list itself, byte by byte, as the library never writes it.
    std::string list = "bplist00";
    for (char level = 1; level <= 40; ++level)
        list.append({'\xA2', level, level});
    list += '\x09';
    const auto table = static_cast<char>(list.size());
    for (char object = 0; object <= 40; ++object)
        list += static_cast<char>(8 + 3 * object);
    list.append(6, '\0').append("\1\1").append(7, '\0').append("\x29").append(15, '\0');
    EXPECT_FALSE(propertyListFromText(list + table));
}

TEST(KeyedArchive, a_damaged_archive_fails_or_gives_a_value) {
    const auto ann = std::make_shared<Pupil>();
    const NSData whole = archive(
        NSArray{ann, NSDate(), NSSet{{"text", -7}}, NSDictionary{{"key", NSData{1, 2}}}, 0.5, ann});
    for (std::size_t at = 0; at < whole.size(); ++at) {
        EXPECT_FALSE(
            restored(NSData(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(at))));
        for (const int bits : {1, 2, 4, 8, 16, 32, 64, 128, 255}) {
            NSData damaged = whole;
            damaged[at] = static_cast<std::uint8_t>(damaged[at] ^ bits);
            // What can be read can be written again.
            const auto value = restored(damaged);
            EXPECT_FALSE(value && archive(*value).empty());
        }
    }
}

}  // namespace
}  // namespace gexlo::test
