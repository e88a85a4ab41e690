// Small settings by key, kept across starts: the program's own, and suites that are shared.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/foundation/object.h"

namespace gexlo {

class NSUserDefaults {
public:
    static NSUserDefaults& standardUserDefaults();
    /// The suite of that name; every holder of a suite shares its values.
    static NSUserDefaults& initWithSuiteName(std::string_view name);

    explicit NSUserDefaults(std::filesystem::path file);
    ~NSUserDefaults();
    NSUserDefaults(const NSUserDefaults&) = delete;
    NSUserDefaults& operator=(const NSUserDefaults&) = delete;

    /// Absent for a key nobody set.
    Object objectForKey(std::string_view key) const;
    Object valueForKey(std::string_view key) const { return objectForKey(key); }
    NSInteger integerForKey(std::string_view key) const { return objectForKey(key).integerValue(); }

    /// An absent value removes the key.
    void setObject_forKey(Object value, std::string_view key);
    void setValue_forKey(Object value, std::string_view key) {
        setObject_forKey(std::move(value), key);
    }
    void setInteger_forKey(NSInteger value, std::string_view key) { setObject_forKey(value, key); }

    /// Writes what changed; without the call it is written at the end of the turn.
    void synchronize();

    const NSDictionary& dictionaryRepresentation() const { return values_; }

private:
    std::filesystem::path file_;
    NSDictionary values_;
    bool changed_ = false;
};

/// All suites that were ever written, by name.
std::map<std::string, NSDictionary> userDefaultSuites();

}  // namespace gexlo
