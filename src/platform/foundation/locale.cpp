#include "platform/foundation/locale.h"

#include <unicode/locid.h>

#include "platform/foundation/device.h"

namespace gexlo {

NSLocale NSLocale::currentLocale() {
    const DeviceFacts& facts = Device::current().facts();
    NSLocale locale;
    locale.countryCode_ = facts.region;
    // Of a tag such as "en-GB" language and script count; the region is the device's own.
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale tag = icu::Locale::forLanguageTag(
        facts.languages.empty() ? "en" : facts.languages.front(), status);
    locale.identifier_ = tag.getLanguage();
    for (const std::string& part : {std::string(tag.getScript()), facts.region}) {
        if (!part.empty()) locale.identifier_ += "_" + part;
    }
    return locale;
}

}  // namespace gexlo
