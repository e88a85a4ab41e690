// Views as the driver's JSON.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/views/picker_wheel.h"
#include "platform/views/view.h"

namespace gexlo {

/// A view without its children; what does not apply to it is left out.
nlohmann::json jsonFromView(UIView& view);
/// A view with all under it, those that cannot be seen only if asked for.
nlohmann::json jsonFromTree(UIView& view, bool all);

/// The row that is chosen; null where there are none.
nlohmann::json jsonFromSelection(const UIPickerWheel& wheel);

}  // namespace gexlo
