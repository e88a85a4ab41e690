#include "presentation/panels/panel_stack.h"

#include "presentation/notifications.h"

namespace gexlo {

PanelStack::PanelStack(UIView& screen)
    : screen_(screen),
      closeAll_(NSNotificationCenter::defaultCenter().addObserver(
          GX_NOTI_CLOSE_ALL_SUBVIEWS, [this](const auto&) { closeAll(); })) {}

void PanelStack::present(std::shared_ptr<Panel> panel) {
    screen_.addSubview(std::move(panel));
}

std::vector<std::shared_ptr<Panel>> PanelStack::panels() const {
    std::vector<std::shared_ptr<Panel>> found;
    for (const auto& view : screen_.subviews()) {
        auto panel = std::dynamic_pointer_cast<Panel>(view);
        if (panel && !panel->isLeaving()) found.push_back(std::move(panel));
    }
    return found;
}

std::shared_ptr<Panel> PanelStack::top() const {
    const auto all = panels();
    return all.empty() ? nullptr : all.back();
}

/// Each is held until all have closed; one that another has taken along is left alone.
void PanelStack::closeAll() {
    for (const auto& panel : panels()) {
        const bool stands = panel->superview() == &screen_ && !panel->isLeaving();
        if (stands) panel->close();
    }
}

}  // namespace gexlo
