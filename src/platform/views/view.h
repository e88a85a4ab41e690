// The view tree as plain records: what is on the screen, and where a touch goes.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/types.h"
#include "platform/views/animation.h"
#include "platform/views/color.h"
#include "platform/views/geometry.h"
#include "platform/views/view_visitor.h"

namespace gexlo {

class UIWindow;

/// A line that a view draws upon itself.
struct Stroke {
    CGPoint from;
    CGPoint to;
    double width = 1;
    UIColor color;
    bool operator==(const Stroke&) const = default;
};

/// A rectangle on the screen with what lies on it. It draws nothing and lays out nothing:
/// its owner sets frames, a host shows them. Made by `std::make_shared`; the parent shares it.
class UIView : public std::enable_shared_from_this<UIView> {
public:
    UIView() = default;
    explicit UIView(CGRect frame, std::size_t expectedSubviews = 0) : frame_(frame) {
        subviews_.reserve(expectedSubviews);
    }
    virtual ~UIView();
    UIView(const UIView&) = delete;
    UIView& operator=(const UIView&) = delete;

    virtual const char* className() const { return "UIView"; }
    /// Calls the visitor's operation for the view's kind.
    virtual void accept(ViewVisitor& visitor) const { visitor.visit(*this); }
    virtual void accept(MutableViewVisitor& visitor) { visitor.visit(*this); }

    // MARK: place in the tree

    /// Puts the view on top of the others; it leaves its former parent.
    void addSubview(std::shared_ptr<UIView> view);
    /// Makes a view and puts it on top; it lives as long as it stays.
    template <typename View, typename... Arguments>
    View& add(Arguments&&... arguments) {
        auto view = std::make_shared<View>(std::forward<Arguments>(arguments)...);
        View& added = *view;
        addSubview(std::move(view));
        return added;
    }
    /// Makes room for as many in all.
    void reserveSubviews(std::size_t count) { subviews_.reserve(count); }
    void insertSubview_atIndex(std::shared_ptr<UIView> view, std::size_t index);
    void removeFromSuperview();
    void removeAllSubviews();
    void bringSubviewToFront(UIView& view);
    /// From bottom to top.
    std::span<const std::shared_ptr<UIView>> subviews() const { return subviews_; }
    UIView* superview() const { return superview_; }
    /// The one that the view is on, or null.
    virtual UIWindow* window() { return superview_ ? superview_->window() : nullptr; }
    virtual const UIWindow* window() const { return superview_ ? superview_->window() : nullptr; }
    bool isDescendantOf(const UIView& other) const;

    // MARK: looks

    const CGRect& frame() const { return frame_; }
    virtual void setFrame(CGRect frame) { change(frame_, frame, &ViewAnimations::frame); }
    CGRect bounds() const { return {0, 0, frame_.width, frame_.height}; }
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden) { change(hidden_, hidden); }
    double alpha() const { return alpha_; }
    void setAlpha(double alpha) {
        change(alpha_, static_cast<float>(alpha), &ViewAnimations::alpha);
    }
    const UIColor& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(UIColor color) {
        change(backgroundColor_, color, &ViewAnimations::backgroundColor);
    }
    const UIColor& borderColor() const { return borderColor_; }
    double borderWidth() const { return borderWidth_; }
    void setBorder(double width, UIColor color) {
        change(borderWidth_, static_cast<float>(width));
        change(borderColor_, color);
    }
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius) { change(cornerRadius_, static_cast<float>(radius)); }
    bool clipsToBounds() const { return clipsToBounds_; }
    void setClipsToBounds(bool clips) { change(clipsToBounds_, clips); }
    const std::vector<Stroke>& strokes() const { return strokes_; }
    void setStrokes(std::vector<Stroke> strokes) { change(strokes_, std::move(strokes)); }

    // MARK: identity

    NSInteger tag() const { return tag_; }
    void setTag(NSInteger tag) { tag_ = tag; }
    const std::string& accessibilityIdentifier() const { return accessibilityIdentifier_; }
    void setAccessibilityIdentifier(std::string_view name) { accessibilityIdentifier_ = name; }
    /// What is spoken of a view that shows no text.
    const std::string& accessibilityLabel() const { return accessibilityLabel_; }
    void setAccessibilityLabel(std::string_view label) { changeText(accessibilityLabel_, label); }
    /// The first view with the tag among this one and those under it, or null.
    UIView* viewWithTag(NSInteger tag);

    // MARK: places in other views

    /// Where the origin of the subviews' coordinates lies; a scroll view moves it.
    virtual CGPoint contentOffset() const { return {}; }
    CGPoint convertPointToWindow(CGPoint point) const;
    CGRect frameInWindow() const;
    /// What of the view lies within the window and every clipping parent, in the window's
    /// coordinates; of size 0 for one that cannot be seen.
    CGRect visibleRect() const;

    // MARK: touches

    bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
    void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
    /// The topmost view that takes touches at that point of this one's coordinates, or null.
    UIView* hitTest(CGPoint point);
    // Of a touch that came down on this view; what it does not take goes to the parent.
    virtual void touchesBegan(CGPoint inWindow);
    virtual void touchesMoved(CGPoint inWindow);
    virtual void touchesEnded(CGPoint inWindow);
    virtual void touchesCancelled();

    // MARK: what a host reads

    /// Whether anything of this view changed since the host last read it.
    bool hasChanged() const { return changed_; }
    bool hasChangedBelow() const { return changedBelow_; }
    /// Of the view and all below it, as they were seen at that moment. Whether something is still
    /// on its way, so that the host is to read again.
    bool changesWereRead(NSDate seenAt = NSDate::date());
    /// What is on its way, or was until the host last read; null for nothing.
    const ViewAnimations* animations() const { return animations_.get(); }
    // What is seen at a moment from now on.
    CGRect frameAt(NSDate moment) const { return seen(&ViewAnimations::frame, frame_, moment); }
    double alphaAt(NSDate moment) const { return seen(&ViewAnimations::alpha, alpha_, moment); }
    UIColor backgroundColorAt(NSDate moment) const {
        return seen(&ViewAnimations::backgroundColor, backgroundColor_, moment);
    }
    CGPoint contentOffsetAt(NSDate moment) const {
        return seen(&ViewAnimations::contentOffset, contentOffset(), moment);
    }

    // MARK: animations

    /// Runs `changes` now, to whichever views; they are seen over `duration` seconds, from what
    /// is seen now. When these have passed, `completion` runs on the main queue; until then the
    /// animation holds this view.
    void animateWithDuration(double duration, const std::function<void()>& changes,
                             std::function<void()> completion = {});

protected:
    template <typename T>
    void change(T& field, T value) {
        if (field == value) return;
        field = std::move(value);
        markChanged();
    }
    /// Of a look that can be seen to change over time.
    template <typename T>
    using AnimatedLook = std::optional<Animation<T>> ViewAnimations::*;
    /// Outside an animation it is seen at once, and ends one that this look is in.
    template <typename T>
    void change(T& field, T value, AnimatedLook<T> look) {
        if (field == value) return;
        if (animations_ || animating_) animate(field, value, look);
        change(field, value);
    }
    /// The same without a copy where nothing changes.
    void changeText(std::string& field, std::string_view text) {
        if (field == text) return;
        field = text;
        markChanged();
    }
    void markChanged();

private:
    std::shared_ptr<UIWindow> heldWindow();
    template <typename T>
    void animate(const T& former, const T& value, AnimatedLook<T> look);
    template <typename T>
    T seen(AnimatedLook<T> look, const T& atRest, NSDate moment) const {
        const auto* way = animations_ ? &((*animations_).*look) : nullptr;
        return way && *way ? (*way)->valueAt(moment) : atRest;
    }

    /// Of the changes that are being made; absent outside an animation.
    inline static std::optional<AnimationSpan> animating_;

    CGRect frame_;
    UIView* superview_ = nullptr;  // who shares this view
    std::vector<std::shared_ptr<UIView>> subviews_;
    std::vector<Stroke> strokes_;
    std::string accessibilityIdentifier_;
    std::string accessibilityLabel_;
    std::unique_ptr<ViewAnimations> animations_;  // null for nearly all
    NSInteger tag_ = 0;
    UIColor backgroundColor_;
    UIColor borderColor_;
    float alpha_ = 1;
    float borderWidth_ = 0;
    float cornerRadius_ = 0;
    bool hidden_ = false;
    bool clipsToBounds_ = false;
    bool changed_ = true;
    bool changedBelow_ = false;

protected:
    bool userInteractionEnabled_ = true;
};

}  // namespace gexlo
