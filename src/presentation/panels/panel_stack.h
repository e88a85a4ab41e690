// The panels that lie over the main screen, each made for one use.
#pragma once

#include <memory>
#include <vector>

#include "platform/foundation/notification_center.h"
#include "presentation/panels/fading_panel.h"

namespace gexlo {

class Panel : public FadingPanel {
public:
    using FadingPanel::FadingPanel;

    /// Leaves; also when everything is closed. Whether that frees the menu is the panel's own.
    virtual void close() = 0;
};

/// The view tree keeps them and their order, so a panel that has removed itself, also within a
/// callback of its own, is gone from here too; one that still fades out no longer counts.
class PanelStack {
public:
    /// The panels are subviews of the screen. From here on the stack closes them when all are to
    /// close, and so after whatever listens to that already.
    explicit PanelStack(UIView& screen);

    /// Of the screen, which a panel covers.
    CGRect bounds() const { return screen_.bounds(); }
    /// Puts it on top of all others.
    void present(std::shared_ptr<Panel> panel);
    /// From bottom to top.
    std::vector<std::shared_ptr<Panel>> panels() const;
    /// Null where none lies over the screen.
    std::shared_ptr<Panel> top() const;

private:
    void closeAll();

    UIView& screen_;
    NotificationToken closeAll_;
};

}  // namespace gexlo
