#include "presentation/style/theme_manager.h"

#include "platform/foundation/device.h"
#include "platform/services/keychain.h"
#include "platform/services/keychain_item_wrapper.h"

namespace gexlo {

GXThemeManager& GXThemeManager::manager() {
    return Device::current().singleton<GXThemeManager>();
}

void GXThemeManager::restoreFromKeychain() {
    themeType_ = 0;
    setItems();
}

void GXThemeManager::setItems() {
    // Every type looks the same so far: a second table would be chosen here by the type.
    setDefaultItems();
}

void GXThemeManager::setThemeType(NSInteger type) {
    KeychainItemWrapper("GX_THEME_TYPE").setObject_forKey(type, kSecAttrService);
    themeType_ = type;
    setItems();
}

}  // namespace gexlo
