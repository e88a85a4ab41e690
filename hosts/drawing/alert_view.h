// An alert or a sheet as views, for pictures of the screen.
#pragma once

#include <memory>

#include "platform/views/alert.h"
#include "platform/views/view.h"

namespace gexlo {

/// As large as the screen: what dims it, with the panel in the middle or at the foot. The tag
/// of each button is its index.
std::shared_ptr<UIView> alertView(const UIAlert& alert, CGSize screen);

}  // namespace gexlo
