#include "platform/persistence/error.h"

#include "platform/foundation/string_format.h"

namespace gexlo {

std::string NSError::description() const {
    return stringWithFormat("Error Domain=%@ Code=%d", domain, code);
}

std::string NSError::userInfoDescription() const {
    std::string text;
    for (const auto& [key, value] : userInfo) {
        if (!text.empty()) text += "; ";
        text += key + " = " + value;
    }
    return "{" + text + "}";
}

}  // namespace gexlo
