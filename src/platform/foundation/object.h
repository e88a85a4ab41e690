// Any value that the platform keeps, archives or passes along: absent, a number, a
// text, a date, bytes, a list, a set, a dictionary, or an object of a class of its own.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/foundation/types.h"

namespace gexlo {

class NSCoding;
class Object;

using NSArray = std::vector<Object>;
using NSDictionary = std::map<std::string, Object, std::less<>>;
struct NSSet {
    std::vector<Object> members;
    bool operator==(const NSSet&) const;
};

class Object {
public:
    /// The last is shared by everything that refers to the one object, as in an archive.
    using Value = std::variant<std::monostate, bool, NSInteger, double, std::string, NSDate, NSData,
                               NSArray, NSSet, NSDictionary, std::shared_ptr<NSCoding>>;

    Object() = default;
    Object(bool value) : value_(value) {}
    Object(int value) : value_(NSInteger{value}) {}
    Object(NSInteger value) : value_(value) {}
    Object(double value) : value_(value) {}
    Object(float value) : value_(static_cast<double>(value)) {}
    Object(const char* value) : value_(std::string(value)) {}
    Object(std::string value) : value_(std::move(value)) {}
    Object(NSDate value) : value_(value) {}
    Object(NSData value) : value_(std::move(value)) {}
    Object(NSArray value) : value_(std::move(value)) {}
    Object(NSSet value) : value_(std::move(value)) {}
    Object(NSDictionary value) : value_(std::move(value)) {}
    template <typename Coded>
    requires std::is_base_of_v<NSCoding, Coded> Object(std::shared_ptr<Coded> value)
        : value_(std::shared_ptr<NSCoding>(std::move(value))) {}

    bool isAbsent() const { return std::holds_alternative<std::monostate>(value_); }
    /// The value if it is of that very kind, else null.
    template <typename T>
    const T* as() const {
        return std::get_if<T>(&value_);
    }
    const Value& value() const { return value_; }

    /// Lenient readings as the platform's boxed values give them: another kind of number
    /// is converted, a text is read as far as it is one, anything else is 0, false or "".
    NSInteger integerValue() const;
    double doubleValue() const;
    bool boolValue() const { return doubleValue() != 0; }
    std::string stringValue() const;

    bool operator==(const Object&) const = default;

private:
    Value value_;
};

/// The leading integer of a text, 0 without one; ends at the limits of the type.
NSInteger integerValueOf(std::string_view text);

}  // namespace gexlo
