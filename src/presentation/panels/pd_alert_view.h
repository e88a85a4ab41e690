// An alert of the application's own, for what needs a field of its own in it.
#pragma once

#include <memory>
#include <string>

#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/text_input.h"
#include "presentation/panels/fading_panel.h"

namespace gexlo {

class PDAlertView;

/// Whom the alert tells which button was pressed.
class PDAlertViewDelegate {
public:
    virtual ~PDAlertViewDelegate() = default;
    virtual void cancelButtonPressed(PDAlertView&) {}
    virtual void positiveButtonPressed(PDAlertView&) {}
};

class PDAlertView final : public FadingPanel {
public:
    PDAlertView(const std::string& title, const std::string& message,
                std::weak_ptr<PDAlertViewDelegate> delegate,
                const std::string& positiveButtonTitle);
    const char* className() const override { return "PDAlertView"; }

    /// Puts the field where the message stands.
    void setTextField(std::shared_ptr<UITextField> field);
    /// Over the key window.
    void show();

    // Touches go no further.
    void touchesBegan(CGPoint) override {}
    void touchesEnded(CGPoint) override {}
    void touchesCancelled() override {}

private:
    UIButton& addButton(const char* identifier, CGRect frame, const std::string& title);
    void pressed(UIButton& button, void (PDAlertViewDelegate::*told)(PDAlertView&));

    std::weak_ptr<PDAlertViewDelegate> delegate_;
    UIView& mainView_;
    UILabel& titleLabel_;
    UILabel& messageLabel_;
    UIButton& cancelButton_;
    UIButton& positiveButton_;
};

}  // namespace gexlo
