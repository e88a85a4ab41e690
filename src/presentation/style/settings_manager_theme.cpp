#include "presentation/style/theme_manager.h"
#include "store/settings_manager.h"

namespace gexlo {

void GXSettingsManager::takeThemeType() {
    themeType_ = GXThemeManager::manager().themeType();
}

}  // namespace gexlo
