// A window on content that is larger than itself.
#pragma once

#include "platform/views/view.h"

namespace gexlo {

class UIScrollView : public UIView {
public:
    /// Seconds that an animated scroll takes.
    static constexpr double kScrollDuration = 0.3;

    UIScrollView() : UIScrollView(CGRect{}) {}
    explicit UIScrollView(CGRect frame) : UIView(frame) { setClipsToBounds(true); }

    const char* className() const override { return "UIScrollView"; }
    void accept(ViewVisitor& visitor) const override { visitor.visit(*this); }
    void accept(MutableViewVisitor& visitor) override { visitor.visit(*this); }

    const CGSize& contentSize() const { return contentSize_; }
    // Where content that shrinks, or a frame that grows, leaves the offset beyond the last one
    // possible, it comes to rest there.
    void setContentSize(CGSize size);
    void setFrame(CGRect frame) override;
    CGPoint contentOffset() const final { return contentOffset_; }
    /// Any offset is taken; only a finger is held back by the limits.
    void setContentOffset(CGPoint offset);
    void setContentOffset_animated(CGPoint offset, bool animated);

    // The nearest and the furthest at which the content comes to rest.
    virtual CGPoint firstOffset() const { return {}; }
    CGPoint lastOffset() const;

    bool isPagingEnabled() const { return pagingEnabled_; }
    void setPagingEnabled(bool enabled) { change(pagingEnabled_, enabled); }
    bool isScrollEnabled() const { return scrollEnabled_; }
    void setScrollEnabled(bool enabled) { change(scrollEnabled_, enabled); }
    bool alwaysBounceHorizontal() const { return alwaysBounceHorizontal_; }
    void setAlwaysBounceHorizontal(bool bounces) { change(alwaysBounceHorizontal_, bounces); }
    bool alwaysBounceVertical() const { return alwaysBounceVertical_; }
    void setAlwaysBounceVertical(bool bounces) { change(alwaysBounceVertical_, bounces); }

    /// Whether a drag takes a touch from that view; where not, it is the view's.
    virtual bool touchesShouldCancelInContentView(const UIView&) const { return true; }

    /// How far the places at which the content comes to rest lie apart: a page where paging is
    /// on; 0 where it comes to rest anywhere.
    virtual CGSize restingStep() const { return pagingEnabled_ ? frame().size() : CGSize{}; }
    /// Where the content comes to rest that is let go at that offset: within its limits, at the
    /// nearest step.
    CGPoint restingOffset(CGPoint offset) const;
    /// A finger's drag towards an offset that then comes to rest.
    void dragTo(CGPoint offset);
    /// A finger begins to drag.
    virtual void willBeginDragging() {}
    /// The finger has let go, perhaps beyond the limits, before the view comes to rest.
    virtual void didEndDragging() {}
    /// What a finger has moved stands still.
    virtual void didComeToRest() {}

protected:
    virtual void didScroll() {}

private:
    void comeToRest(CGPoint formerLast);

    CGSize contentSize_;
    CGPoint contentOffset_;
    bool pagingEnabled_ = false;
    bool scrollEnabled_ = true;
    bool alwaysBounceHorizontal_ = false;
    bool alwaysBounceVertical_ = false;
};

}  // namespace gexlo
