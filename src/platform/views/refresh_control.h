// The sign above a table that its rows are being asked for anew, by a pull or by the program.
#pragma once

#include <memory>

#include "platform/views/activity_indicator_view.h"
#include "platform/views/control.h"

namespace gexlo {

/// Tells of a pull by `valueChanged`; it turns until it is told to end.
class UIRefreshControl final : public UIControl {
public:
    static constexpr double kHeight = 60;

    UIRefreshControl();
    const char* className() const override { return "UIRefreshControl"; }

    void setFrame(CGRect frame) override;
    void setTintColor(UIColor color) { indicator_->setColor(color); }
    bool isRefreshing() const { return indicator_->isAnimating(); }
    /// Does not scroll; where it lies above the content, a table may now rest.
    void beginRefreshing() { indicator_->startAnimating(); }
    /// The table slides back under it.
    void endRefreshing();

private:
    std::shared_ptr<UIActivityIndicatorView> indicator_;
};

}  // namespace gexlo
