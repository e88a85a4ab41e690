// A panel over the whole screen that fades in, and leaves when it has faded out.
#pragma once

#include "platform/views/window.h"

namespace gexlo {

class FadingPanel : public UIView {
public:
    explicit FadingPanel(CGRect frame) : UIView(frame) { setAlpha(0); }

    bool isLeaving() const { return leaving_; }

protected:
    /// Seconds; `along` changes in the same animation.
    void fadeIn(double duration, const std::function<void()>& along = {}) {
        animateWithDuration(duration, [&] {
            setAlpha(1);
            if (along) along();
        });
    }
    /// Takes no touches from here on, and its alerts go at once. A second call does nothing.
    void fadeOutAndLeave(double duration) {
        if (leaving_) return;
        leaving_ = true;
        setUserInteractionEnabled(false);
        UIWindow::keyWindow().dropAlertsOf(*this);
        animateWithDuration(
            duration, [&] { setAlpha(0); }, [this] { removeFromSuperview(); });
    }

private:
    bool leaving_ = false;
};

}  // namespace gexlo
