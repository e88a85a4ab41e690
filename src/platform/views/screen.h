// The phone's screen.
#pragma once

#include "platform/views/geometry.h"

namespace gexlo {

class UIScreen {
public:
    static UIScreen mainScreen() { return {}; }

    CGRect bounds() const;
    /// What the status bar leaves.
    CGRect applicationFrame() const;
    double scale() const;
};

}  // namespace gexlo
