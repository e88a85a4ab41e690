#include "hosts/desktop/scroller.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gexlo {

namespace {

constexpr qint64 kSpeedWindow = 100;  // milliseconds whose movement makes the speed
constexpr double kGlide = 0.35;       // seconds at the speed of the finger that a glide covers
constexpr double kPageSpeed = 300;    // points a second that turn the page
constexpr double kBeyond = 0.4;       // of the way that a view gives beyond its content
constexpr int kGlideTime = 450;       // milliseconds
constexpr int kPageTime = 300;

bool canScrollSideways(const UIScrollView& view) {
    return view.contentSize().width > view.frame().width || view.alwaysBounceHorizontal();
}

bool canScrollUpright(const UIScrollView& view) {
    return view.contentSize().height > view.frame().height || view.alwaysBounceVertical();
}

/// The view gives way beyond its content, less and less.
double followed(double wanted, double first, double last) {
    if (wanted < first) return first + (wanted - first) * kBeyond;
    if (wanted > last) return last + (wanted - last) * kBeyond;
    return wanted;
}

/// Where a drag from `start` that is let go at `offset` would end: it glides on, or where there
/// are pages, turns one. `page` is 0 where there are none.
double carried(double offset, double start, double speed, double page) {
    if (page <= 0) return offset + speed * kGlide;
    if (std::abs(speed) <= kPageSpeed) return offset;
    return (std::round(start / page) + (speed > 0 ? 1 : -1)) * page;
}

/// Takes what a mouse wheel has turned, in full steps where a view rests only at those: one a
/// notch, and a touchpad's many small turns add up to one.
double takeTurned(double& turned, double step) {
    if (std::abs(turned) < step) return 0;
    const double way = std::exchange(turned, 0);
    return step > 0 ? std::trunc(way / step) * step : way;
}

}  // namespace

Scroller::Scroller(std::function<void(const std::function<void()>&)> turn)
    : turn_(std::move(turn)) {
    glide_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&glide_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        const QPointF offset = value.toPointF();
        glideOn({offset.x(), offset.y()});
    });
    connect(&glide_, &QVariantAnimation::finished, this, [this] { rest(); });
}

std::shared_ptr<UIScrollView> Scroller::scrollViewFor(UIView* view, QPointF distance) {
    const bool sideways = std::abs(distance.x()) > std::abs(distance.y());
    for (UIView* touched = view; view; view = view->superview()) {
        auto* scroll = dynamic_cast<UIScrollView*>(view);
        if (!scroll || !scroll->isScrollEnabled()) continue;
        if (sideways ? !canScrollSideways(*scroll) : !canScrollUpright(*scroll)) continue;
        if (!scroll->touchesShouldCancelInContentView(*touched)) return nullptr;
        return std::static_pointer_cast<UIScrollView>(scroll->shared_from_this());
    }
    return nullptr;
}

void Scroller::begin(std::shared_ptr<UIScrollView> view, QPointF point, qint64 milliseconds) {
    if (view != view_) endGlide();
    glide_.stop();
    view_ = std::move(view);
    dragging_ = true;
    start_ = view_->contentOffset();
    startPoint_ = point;
    samples_ = {{point, milliseconds}};
    turn_([this] { view_->willBeginDragging(); });
}

void Scroller::setOffset(CGPoint offset) {
    turn_([&] { view_->setContentOffset(offset); });
}

void Scroller::moveTo(QPointF point, qint64 milliseconds) {
    if (!isDragging()) return;
    samples_.push_back({point, milliseconds});
    while (samples_.size() > 2 && milliseconds - samples_.front().milliseconds > kSpeedWindow)
        samples_.pop_front();
    const QPointF distance = startPoint_ - point;
    CGPoint offset = start_;
    const CGPoint first = view_->firstOffset();
    const CGPoint last = view_->lastOffset();
    if (canScrollSideways(*view_)) offset.x = followed(start_.x + distance.x(), first.x, last.x);
    if (canScrollUpright(*view_)) offset.y = followed(start_.y + distance.y(), first.y, last.y);
    setOffset(offset);
}

QPointF Scroller::speed(qint64 now) const {
    const Sample& first = samples_.front();
    const Sample& last = samples_.back();
    const qint64 time = std::max<qint64>(1, last.milliseconds - first.milliseconds);
    if (samples_.size() < 2 || now - last.milliseconds > kSpeedWindow) return {};
    return (first.point - last.point) * 1000.0 / static_cast<double>(time);
}

void Scroller::end(qint64 milliseconds) {
    if (!isDragging()) return;
    const QPointF fast = speed(milliseconds);
    turn_([this] { view_->didEndDragging(); });
    comeToRest(fast);
}

void Scroller::interrupt() {
    if (isDragging()) comeToRest({});
}

void Scroller::comeToRest(QPointF fast) {
    dragging_ = false;
    const CGPoint offset = view_->contentOffset();
    const bool paging = view_->isPagingEnabled();
    const CGSize page = paging ? view_->frame().size() : CGSize{};
    const double x =
        carried(offset.x, start_.x, canScrollSideways(*view_) ? fast.x() : 0, page.width);
    const double y =
        carried(offset.y, start_.y, canScrollUpright(*view_) ? fast.y() : 0, page.height);
    glideTo(view_->restingOffset({x, y}), paging ? kPageTime : kGlideTime);
}

void Scroller::glideTo(CGPoint offset, int milliseconds) {
    const CGPoint from = view_->contentOffset();
    if (from == offset) return rest();
    glided_ = from;
    glide_.setDuration(milliseconds);
    glide_.setStartValue(QPointF(from.x, from.y));
    glide_.setEndValue(QPointF(offset.x, offset.y));
    glide_.start();
}

/// What another scroll cuts short comes to rest at once, and not halfway between two steps.
void Scroller::endGlide() {
    if (!isGliding()) return;
    glide_.stop();
    setOffset(view_->restingOffset(view_->contentOffset()));
    rest();
}

void Scroller::rest() {
    const auto view = view_;
    turn_([&] { view->didComeToRest(); });
}

/// A scroll by the program ends the glide; content that has become shorter has a nearer end.
void Scroller::glideOn(CGPoint offset) {
    const QPointF end = glide_.endValue().toPointF();
    const CGPoint last = view_->lastOffset();
    if (view_->contentOffset() != glided_) return glide_.stop();
    if (end.x() > last.x || end.y() > last.y) {
        glide_.stop();
        return comeToRest({});
    }
    glided_ = offset;
    setOffset(offset);
}

void Scroller::scrollBy(const std::shared_ptr<UIScrollView>& view, QPointF distance) {
    endGlide();
    if (view != view_) wheel_ = {};
    view_ = view;
    dragging_ = false;
    wheel_ += distance;
    const CGSize step = view->restingStep();
    const QPointF way(takeTurned(wheel_.rx(), step.width), takeTurned(wheel_.ry(), step.height));
    if (way.isNull()) return;
    const CGPoint from = view->contentOffset();
    turn_([&] { view->dragTo({from.x + way.x(), from.y + way.y()}); });
}

}  // namespace gexlo
