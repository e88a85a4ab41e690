#include "platform/foundation/locale.h"

#include "platform/foundation/device.h"

namespace gexlo {

NSLocale NSLocale::currentLocale() {
    const DeviceFacts& facts = Device::current().facts();
    NSLocale locale;
    locale.countryCode_ = facts.region;
    std::string language = facts.languages.empty() ? "en" : facts.languages.front();
    locale.identifier_ = facts.region.empty() ? language : language + "_" + facts.region;
    return locale;
}

}  // namespace gexlo
