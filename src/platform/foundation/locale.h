// Language and region of the device.
#pragma once

#include <string>

namespace gexlo {

class NSLocale {
public:
    static NSLocale currentLocale();

    /// ISO 3166 code of the region; "" when the device has none.
    const std::string& countryCode() const { return countryCode_; }
    /// The locale's name, as "ko_KR" or "zh_Hant_TW".
    const std::string& identifier() const { return identifier_; }

private:
    std::string countryCode_;
    std::string identifier_;
};

}  // namespace gexlo
