// Keyed archives in the platform's published format: a binary property list of objects
// that refer to one another by number.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/foundation/object.h"

namespace gexlo {

class NSCoder;

/// An object of a class of its own that can stand in an archive.
class NSCoding {
public:
    virtual ~NSCoding() = default;
    /// The name under which an archive knows the class.
    virtual const char* className() const = 0;
    virtual void encodeWithCoder(NSCoder& coder) const = 0;
};

/// Takes the fields of the object that is being archived.
class NSCoder {
public:
    virtual void encodeInteger_forKey(NSInteger value, const char* key) = 0;
    virtual void encodeFloat_forKey(float value, const char* key) = 0;
    virtual void encodeDouble_forKey(double value, const char* key) = 0;
    virtual void encodeBool_forKey(bool value, const char* key) = 0;
    /// An absent object is archived as such.
    virtual void encodeObject_forKey(const Object& value, const char* key) = 0;

protected:
    ~NSCoder() = default;
};

/// Gives the fields of the object that is being restored; one that is not there, or is of
/// another kind, reads as 0, false or absent.
class NSDecoder {
public:
    virtual Object decodeObjectForKey(const char* key) = 0;
    NSInteger decodeIntegerForKey(const char* key) {
        return decodeObjectForKey(key).integerValue();
    }
    double decodeDoubleForKey(const char* key) { return decodeObjectForKey(key).doubleValue(); }
    float decodeFloatForKey(const char* key) {
        return static_cast<float>(decodeObjectForKey(key).doubleValue());
    }
    bool decodeBoolForKey(const char* key) { return decodeObjectForKey(key).boolValue(); }

protected:
    ~NSDecoder() = default;
};

/// How a reader restores the objects of one class.
struct CodingClass {
    std::string_view name;
    std::function<std::shared_ptr<NSCoding>(NSDecoder&)> initWithCoder;
};

class NSKeyedArchiver {
public:
    static NSData archivedDataWithRootObject(const Object& root);
};

class NSKeyedUnarchiver {
public:
    /// Nothing for bytes that are no archive, for one that names a class not in `classes`,
    /// that refers beyond its objects or to itself from within, or that unfolds beyond
    /// sane bounds.
    static std::optional<Object> unarchiveObjectWithData(std::span<const std::uint8_t> data,
                                                         std::span<const CodingClass> classes = {});
};

}  // namespace gexlo
