// Covers the screen while something takes its time.
#pragma once

#include <memory>

#include "platform/views/activity_indicator_view.h"

namespace gexlo {

/// One for the whole application. Nested starts do not count: one stop ends it.
class PDLoadingView final : public UIView {
public:
    static PDLoadingView& shared();
    static void start() { shared().startLoading(); }
    static void stop() { shared().stopLoading(); }

    explicit PDLoadingView(float backgroundAlpha);
    const char* className() const override { return "PDLoadingView"; }

    bool isLoading() const { return state_ == 1; }
    void startLoading();
    void stopLoading();

private:
    UIView& box_;
    UIActivityIndicatorView& indicator_;
    int state_ = 0;  // 0 idle, 1 shown
};

}  // namespace gexlo
