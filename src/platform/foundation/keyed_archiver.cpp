#include "platform/foundation/keyed_archiver.h"

#include <map>
#include <set>

#include "platform/foundation/property_list_node.h"

namespace gexlo {

namespace {

constexpr const char* kArchiverName = "NSKeyedArchiver";
constexpr std::uint64_t kVersion = 100000;
constexpr const char* kNull = "$null";
constexpr std::uint64_t kNullReference = 0;

// MARK: writing

class Archiver {
public:
    Archiver() { plist_array_append_item(objects_, plist_new_string(kNull)); }

    NSData archive(const Object& root) {
        const std::uint64_t rootReference = reference(root);
        plist_t top = plist_new_dict();
        plist_dict_set_item(top, "root", plist_new_uid(rootReference));
        const PropertyListNode archive(plist_new_dict());
        plist_dict_set_item(archive.get(), "$version", plist_new_uint(kVersion));
        plist_dict_set_item(archive.get(), "$archiver", plist_new_string(kArchiverName));
        plist_dict_set_item(archive.get(), "$top", top);
        plist_dict_set_item(archive.get(), "$objects", objects_);
        char* bytes = nullptr;
        std::uint32_t length = 0;
        plist_to_bin(archive.get(), &bytes, &length);
        NSData data(bytes, bytes + length);
        plist_to_bin_free(bytes);
        return data;
    }

    /// Archives the value if it is not there yet, and gives the number to refer to it by.
    std::uint64_t reference(const Object& value) {
        if (value.isAbsent()) return kNullReference;
        if (const auto* coded = value.as<std::shared_ptr<NSCoding>>()) return coded_(*coded);
        if (const auto* text = value.as<std::string>()) {
            const auto [known, isNew] = texts_.try_emplace(*text, next_);
            return isNew ? append(textNode(*text)) : known->second;
        }
        if (const auto* data = value.as<NSData>()) return append(dataNode(*data));
        if (const auto* flag = value.as<bool>()) return append(plist_new_bool(*flag));
        if (const auto* integer = value.as<NSInteger>()) return append(integerNode(*integer));
        if (const auto* real = value.as<double>()) return append(plist_new_real(*real));
        if (const auto* date = value.as<NSDate>()) return this->date(*date);
        if (const auto* array = value.as<NSArray>()) return list(*array, {"NSArray", "NSObject"});
        if (const auto* set = value.as<NSSet>()) return list(set->members, {"NSSet", "NSObject"});
        return dictionary(*value.as<NSDictionary>());
    }

private:
    class Fields final : public NSCoder {
    public:
        Fields(Archiver& archiver, plist_t node) : archiver_(archiver), node_(node) {}
        void encodeInteger_forKey(NSInteger value, const char* key) override {
            plist_dict_set_item(node_, key, integerNode(value));
        }
        void encodeFloat_forKey(float value, const char* key) override {
            plist_dict_set_item(node_, key, plist_new_real(static_cast<double>(value)));
        }
        void encodeDouble_forKey(double value, const char* key) override {
            plist_dict_set_item(node_, key, plist_new_real(value));
        }
        void encodeBool_forKey(bool value, const char* key) override {
            plist_dict_set_item(node_, key, plist_new_bool(value));
        }
        void encodeObject_forKey(const Object& value, const char* key) override {
            plist_dict_set_item(node_, key, plist_new_uid(archiver_.reference(value)));
        }

    private:
        Archiver& archiver_;
        plist_t node_;
    };

    std::uint64_t append(plist_t node) {
        plist_array_append_item(objects_, node);
        return next_++;
    }

    std::uint64_t classReference(const std::vector<const char*>& names) {
        const auto known = classes_.find(names.front());
        if (known != classes_.end()) return known->second;
        plist_t list = plist_new_array();
        for (const char* name : names)
            plist_array_append_item(list, plist_new_string(name));
        plist_t node = plist_new_dict();
        plist_dict_set_item(node, "$classname", plist_new_string(names.front()));
        plist_dict_set_item(node, "$classes", list);
        return classes_[names.front()] = append(node);
    }

    plist_t references(const std::vector<Object>& values) {
        plist_t list = plist_new_array();
        for (const Object& value : values) {
            plist_array_append_item(list, plist_new_uid(reference(value)));
        }
        return list;
    }

    std::uint64_t date(NSDate date) {
        plist_t node = plist_new_dict();
        const std::uint64_t number = append(node);
        plist_dict_set_item(
            node, "NS.time",
            plist_new_real(date.timeIntervalSince1970() - NSDate::kReferenceSince1970));
        plist_dict_set_item(node, "$class", plist_new_uid(classReference({"NSDate", "NSObject"})));
        return number;
    }

    std::uint64_t list(const std::vector<Object>& members, const std::vector<const char*>& names) {
        plist_t node = plist_new_dict();
        const std::uint64_t number = append(node);
        plist_dict_set_item(node, "NS.objects", references(members));
        plist_dict_set_item(node, "$class", plist_new_uid(classReference(names)));
        return number;
    }

    std::uint64_t dictionary(const NSDictionary& entries) {
        plist_t node = plist_new_dict();
        const std::uint64_t number = append(node);
        std::vector<Object> keys;
        std::vector<Object> values;
        for (const auto& [key, value] : entries) {
            keys.emplace_back(key);
            values.push_back(value);
        }
        plist_dict_set_item(node, "NS.keys", references(keys));
        plist_dict_set_item(node, "NS.objects", references(values));
        plist_dict_set_item(node, "$class",
                            plist_new_uid(classReference({"NSDictionary", "NSObject"})));
        return number;
    }

    std::uint64_t coded_(const std::shared_ptr<NSCoding>& object) {
        if (!object) return kNullReference;
        const auto known = codedObjects_.find(object.get());
        if (known != codedObjects_.end()) return known->second;
        plist_t node = plist_new_dict();
        const std::uint64_t number = codedObjects_[object.get()] = append(node);
        Fields fields(*this, node);
        object->encodeWithCoder(fields);
        plist_dict_set_item(node, "$class",
                            plist_new_uid(classReference({object->className(), "NSObject"})));
        return number;
    }

    plist_t objects_ = plist_new_array();  // becomes part of the archive's root
    std::uint64_t next_ = 1;               // "$null" is number 0
    std::map<std::string, std::uint64_t> texts_;
    std::map<std::string, std::uint64_t> classes_;
    std::map<const NSCoding*, std::uint64_t> codedObjects_;
};

// MARK: reading

class Unarchiver {
public:
    Unarchiver(plist_t archive, std::span<const CodingClass> classes) : classes_(classes) {
        plist_t objects = plist_dict_get_item(archive, "$objects");
        if (objects && plist_get_node_type(objects) == PLIST_ARRAY) objects_ = arrayNodes(objects);
    }

    std::optional<Object> root(plist_t archive) {
        plist_t top = plist_dict_get_item(archive, "$top");
        if (!top || plist_get_node_type(top) != PLIST_DICT) return std::nullopt;
        plist_t reference = plist_dict_get_item(top, "root");
        if (!reference || plist_get_node_type(reference) != PLIST_UID) return std::nullopt;
        Object root = referred(reference);
        return failed_ ? std::nullopt : std::optional(std::move(root));
    }

private:
    static constexpr std::size_t kDeepest = 100;
    static constexpr std::uint64_t kMostObjects = 2'000'000;

    class Fields final : public NSDecoder {
    public:
        Fields(Unarchiver& unarchiver, plist_t node) : unarchiver_(unarchiver), node_(node) {}
        Object decodeObjectForKey(const char* key) override {
            plist_t field = plist_dict_get_item(node_, key);
            if (!field) return {};
            return plist_get_node_type(field) == PLIST_UID ? unarchiver_.referred(field)
                                                           : scalarFromNode(field);
        }

    private:
        Unarchiver& unarchiver_;
        plist_t node_;
    };

    Object fail() {
        failed_ = true;
        return {};
    }

    Object referred(plist_t reference) {
        std::uint64_t number = 0;
        plist_get_uid_val(reference, &number);
        if (number == kNullReference) return {};
        if (failed_ || number >= objects_.size() || ++visited_ > kMostObjects) return fail();
        if (const auto done = codedObjects_.find(number); done != codedObjects_.end()) {
            return done->second;
        }
        // An object that is met again within itself cannot be restored.
        if (open_.size() > kDeepest || !open_.insert(number).second) return fail();
        Object value = restored(number, objects_[number]);
        open_.erase(number);
        return value;
    }

    Object restored(std::uint64_t number, plist_t node) {
        if (plist_get_node_type(node) != PLIST_DICT) return scalarFromNode(node);
        const std::string name = className(node);
        if (name == "NSDate") {
            const double since2001 = Fields(*this, node).decodeDoubleForKey("NS.time");
            return NSDate::dateWithTimeIntervalSince1970(NSDate::kReferenceSince1970 + since2001);
        }
        if (name == "NSArray" || name == "NSMutableArray") return members(node, "NS.objects");
        if (name == "NSSet" || name == "NSMutableSet") return NSSet{members(node, "NS.objects")};
        if (name == "NSDictionary" || name == "NSMutableDictionary") return dictionary(node);
        if (name == "NSData" || name == "NSMutableData") {
            return Fields(*this, node).decodeObjectForKey("NS.data");
        }
        if (name == "NSString" || name == "NSMutableString") {
            return Fields(*this, node).decodeObjectForKey("NS.string");
        }
        for (const CodingClass& known : classes_) {
            if (known.name != name) continue;
            Fields fields(*this, node);
            Object object(known.initWithCoder(fields));
            codedObjects_.emplace(number, object);
            return object;
        }
        return fail();
    }

    std::string className(plist_t node) const {
        plist_t reference = plist_dict_get_item(node, "$class");
        if (!reference || plist_get_node_type(reference) != PLIST_UID) return "";
        std::uint64_t number = 0;
        plist_get_uid_val(reference, &number);
        if (number >= objects_.size()) return "";
        plist_t description = objects_[number];
        if (plist_get_node_type(description) != PLIST_DICT) return "";
        plist_t name = plist_dict_get_item(description, "$classname");
        return name && plist_get_node_type(name) == PLIST_STRING ? nodeText(name) : "";
    }

    NSArray members(plist_t node, const char* key) {
        plist_t list = plist_dict_get_item(node, key);
        NSArray values;
        if (!list || plist_get_node_type(list) != PLIST_ARRAY) return values;
        for (plist_t reference : arrayNodes(list)) {
            if (plist_get_node_type(reference) != PLIST_UID) {
                (void)fail();
                break;
            }
            values.push_back(referred(reference));
        }
        return values;
    }

    Object dictionary(plist_t node) {
        const NSArray keys = members(node, "NS.keys");
        NSArray values = members(node, "NS.objects");
        if (keys.size() != values.size()) return fail();
        NSDictionary dictionary;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const auto* key = keys[i].as<std::string>();
            if (!key) return fail();
            dictionary.insert_or_assign(*key, std::move(values[i]));
        }
        return dictionary;
    }

    std::span<const CodingClass> classes_;
    std::vector<plist_t> objects_;
    std::map<std::uint64_t, Object> codedObjects_;
    std::set<std::uint64_t> open_;  // being restored, from the root down
    std::uint64_t visited_ = 0;
    bool failed_ = false;
};

}  // namespace

NSData NSKeyedArchiver::archivedDataWithRootObject(const Object& root) {
    return Archiver().archive(root);
}

std::optional<Object> NSKeyedUnarchiver::unarchiveObjectWithData(
    std::span<const std::uint8_t> data, std::span<const CodingClass> classes) {
    const PropertyListNode archive =
        nodeFromText({reinterpret_cast<const char*>(data.data()), data.size()});
    if (!archive || plist_get_node_type(archive.get()) != PLIST_DICT) return std::nullopt;
    return Unarchiver(archive.get(), classes).root(archive.get());
}

}  // namespace gexlo
