// A panel that slides in at the foot of the screen, and stands on the keyboard while one is up.
#pragma once

#include <vector>

#include "platform/foundation/notification_center.h"
#include "platform/views/view.h"

namespace gexlo {

class FootPanel : public UIView {
public:
    /// Below the screen.
    FootPanel();

    bool isOpened() const { return isOpened_; }
    /// Puts the keyboard and the panel's alerts away, and then the panel.
    void clearView();

protected:
    void slideIn();
    /// Takes the focus from the panel's fields.
    virtual void endTyping() = 0;
    /// Places what is on the panel below its topmost points, which the title bar covers: none but
    /// on a low screen with the keyboard up.
    virtual void layOut(double covered) = 0;
    /// To where it stands without a keyboard.
    void moveToOpenPosition();
    /// The keyboard goes without the panel's asking; the next that comes lifts it smoothly.
    void forgetKeyboard() { keyboardOn_ = false; }

private:
    void moveTo(double y);
    void keyboardWillShow(double height);
    void keyboardWillHide();

    bool isOpened_ = false;
    bool keyboardOn_ = false;                  // the panel has moved for the keyboard
    std::vector<NotificationToken> keyboard_;  // while the panel is open
};

}  // namespace gexlo
