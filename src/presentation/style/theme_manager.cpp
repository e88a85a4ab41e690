#include "presentation/style/theme_manager.h"

#include "platform/foundation/device.h"

namespace gexlo {

GXThemeManager& GXThemeManager::manager() {
    return Device::current().singleton<GXThemeManager>();
}

}  // namespace gexlo
