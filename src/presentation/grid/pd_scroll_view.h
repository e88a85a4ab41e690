// A scroll view whose content feels touches at once and loses them to a drag, sliders aside.
#pragma once

#include "platform/views/scroll_view.h"
#include "platform/views/slider.h"

namespace gexlo {

class PDScrollView final : public UIScrollView {
public:
    using UIScrollView::UIScrollView;
    const char* className() const override { return "PDScrollView"; }

    bool touchesShouldCancelInContentView(const UIView& touched) const override {
        return dynamic_cast<const UISlider*>(&touched) == nullptr;
    }
};

}  // namespace gexlo
