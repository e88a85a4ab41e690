// What went wrong in the store.
#pragma once

#include <map>
#include <string>

namespace gexlo {

struct NSError {
    std::string domain;
    int code = 0;
    std::map<std::string, std::string> userInfo;

    std::string description() const;
    std::string userInfoDescription() const;
};

inline constexpr const char* kSQLiteErrorDomain = "NSSQLiteErrorDomain";
inline constexpr const char* kCocoaErrorDomain = "NSCocoaErrorDomain";
/// Codes of the latter domain.
inline constexpr int kPersistentStoreInvalidType = 134000;
inline constexpr int kNoPersistentStores = 134030;
inline constexpr int kPersistentStoreIncompatible = 134100;
inline constexpr int kInvalidRow = 134110;

}  // namespace gexlo
