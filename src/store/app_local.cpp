#include "store/app_local.h"

#include "platform/foundation/device.h"
#include "platform/foundation/locale.h"

namespace gexlo {

GXAppLocal& GXAppLocal::appLocal() {
    return Device::current().singleton<GXAppLocal>();
}

GXAppLocal::GXAppLocal() : region_(NSLocale::currentLocale().countryCode()) {
    const auto& preferred = Device::current().facts().languages;
    if (!preferred.empty()) language_ = preferred.front().substr(0, 2);
    NSLog("language : %@, region : %@", language_, region_);
}

UIFont GXAppLocal::localBoldFontWithSize(float size) const {
    if (isKorean()) return UIFont::fontWithName_size("NanumGothicOTFBold", size);
    return UIFont::boldSystemFontOfSize(size);
}

}  // namespace gexlo
