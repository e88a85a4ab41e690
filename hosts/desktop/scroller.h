// Scrolling by a finger: the view follows it, keeps its speed, and comes to rest.
#pragma once

#include <QObject>
#include <QPointF>
#include <QVariantAnimation>
#include <deque>
#include <functional>
#include <memory>

#include "platform/views/scroll_view.h"

namespace gexlo {

class Scroller final : public QObject {
    Q_OBJECT

public:
    /// Every step of a scroll runs in `turn`.
    explicit Scroller(std::function<void(const std::function<void()>&)> turn);

    /// The view that a drag by that distance moves: the nearest one above `view` that can.
    static std::shared_ptr<UIScrollView> scrollViewFor(UIView* view, QPointF distance);

    void begin(std::shared_ptr<UIScrollView> view, QPointF point, qint64 milliseconds);
    void moveTo(QPointF point, qint64 milliseconds);
    void end(qint64 milliseconds);
    /// Ends as if the finger had rested.
    void interrupt();
    /// By the wheel of a mouse, within the content.
    void scrollBy(const std::shared_ptr<UIScrollView>& view, QPointF distance);
    bool isDragging() const { return view_ != nullptr && dragging_; }
    /// Whether a view still glides.
    bool isGliding() const { return glide_.state() == QAbstractAnimation::Running; }

private:
    struct Sample {
        QPointF point;
        qint64 milliseconds;
    };

    QPointF speed(qint64 now) const;
    void comeToRest(QPointF fast);
    void glideTo(CGPoint offset, int milliseconds);
    void endGlide();
    void rest();
    void glideOn(CGPoint offset);
    void setOffset(CGPoint offset);

    std::function<void(const std::function<void()>&)> turn_;
    std::shared_ptr<UIScrollView> view_;
    bool dragging_ = false;
    CGPoint start_;
    QPointF startPoint_;
    std::deque<Sample> samples_;
    QVariantAnimation glide_;
    CGPoint glided_;  // the offset that the glide has set last
    QPointF wheel_;   // what a mouse wheel has turned since the last step
};

}  // namespace gexlo
