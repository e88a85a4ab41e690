// An alert or a sheet as views, for pictures of the screen.
#pragma once

#include <memory>

#include "platform/views/alert.h"
#include "platform/views/view.h"

namespace gexlo {

/// As large as the screen: what dims it, with the panel in the middle or at the foot. What has
/// no room there scrolls. The tag of each button and each field is its index.
std::shared_ptr<UIView> alertView(const UIAlert& alert, CGSize screen);

}  // namespace gexlo
