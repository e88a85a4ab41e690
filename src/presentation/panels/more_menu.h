// The menu behind "more": lists, settings, sharing and export.
#pragma once

#include "platform/foundation/notification_center.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "presentation/panels/fading_panel.h"

namespace gexlo {

class GXMoreMenu final : public FadingPanel {
public:
    explicit GXMoreMenu(CGRect frame);
    const char* className() const override { return "GXMoreMenu"; }

    /// Fades in; once it is on the main screen.
    void open();
    /// Fades out and leaves.
    void close();

private:
    void addItems();
    void closeButtonAction();
    void alarmAction();
    void shareAction();
    void exportAction();
    void nothingYet() {}
    void unlockAndClose();

    UIView& panel_;
    NotificationToken closeAll_;
};

}  // namespace gexlo
