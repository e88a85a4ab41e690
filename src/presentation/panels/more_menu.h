// The menu behind "more": lists, settings, sharing and export.
#pragma once

#include "platform/views/button.h"
#include "platform/views/label.h"
#include "presentation/panels/panel_stack.h"

namespace gexlo {

class GXMoreMenu final : public Panel {
public:
    explicit GXMoreMenu(CGRect frame);
    const char* className() const override { return "GXMoreMenu"; }

    /// Fades in; once it is on the main screen.
    void open();
    /// Fades out and leaves.
    void close() override;

private:
    void addItems();
    void closeButtonAction();
    void alarmAction();
    void shareAction();
    void exportAction();
    /// Opens what the operation does, in place of the menu.
    template <auto operation>
    void openInstead();
    void unlockAndClose();

    UIView& panel_;
};

}  // namespace gexlo
