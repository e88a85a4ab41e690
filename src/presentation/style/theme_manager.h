// The look of the chrome around the grid.
#pragma once

#include "platform/foundation/types.h"

namespace gexlo {

class GXThemeManager {
public:
    static GXThemeManager& manager();

    /// The theme in use; 0 at every start, whatever was chosen before.
    NSInteger themeType() const { return themeType_; }

private:
    NSInteger themeType_ = 0;
};

}  // namespace gexlo
