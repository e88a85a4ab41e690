// An alert or a sheet as views, for pictures of the screen.
#pragma once

#include <memory>
#include <vector>

#include "platform/views/alert.h"
#include "platform/views/view.h"

namespace gexlo {

class UIButton;
class UITextField;

struct AlertView {
    std::shared_ptr<UIView> view;
    // Within the view, in the alert's order.
    std::vector<UIButton*> buttons;
    std::vector<UITextField*> fields;
};

/// As large as the screen: what dims it, with the panel in the middle or at the foot. What has
/// no room there scrolls.
AlertView alertView(const UIAlert& alert, CGSize screen);

}  // namespace gexlo
