// The phone's screen on the window: shows the view tree, and brings it touches and keys.
#pragma once

#include <QQuickItem>
#include <functional>
#include <memory>
#include <optional>

#include "hosts/desktop/frame_ticks.h"
#include "hosts/desktop/scroller.h"
#include "hosts/desktop/view_mirror.h"
#include "hosts/drawing/view_painter.h"

class QQmlEngine;

namespace gexlo {

class AlertLayer;
class UIWindow;

/// As large as the window; what it shows is scaled whole into it.
class ScreenItem final : public QQuickItem {
    Q_OBJECT

public:
    ScreenItem(QQmlEngine& engine, ViewPainter& painter);
    ~ScreenItem() override;

    /// Brings the items up to the tree once the turn under way is over.
    void scheduleSynchronization();
    /// The same at once.
    void synchronize();
    /// Whether anything still moves.
    bool isAnimating() const;
    /// Shows every change at its end from now on, for a clock that does not run by itself.
    void showAtRest() { mirror_->showAtRest(); }

    // As a finger does, in points of the phone's screen.
    void press(QPointF point, qint64 milliseconds);
    void move(QPointF point, qint64 milliseconds);
    void release(QPointF point, qint64 milliseconds);
    void cancel();

    /// Keys that the window's items do not sort out among themselves.
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void touchEvent(QTouchEvent* event) override;
    void touchUngrabEvent() override;
    void wheelEvent(QWheelEvent* event) override;
    void geometryChange(const QRectF& now, const QRectF& former) override;
    void itemChange(ItemChange change, const ItemChangeData& value) override;

private:
    UIWindow& surface() const;
    bool takeKey(const QKeyEvent& key);
    void moveFocus(bool forward);
    bool takesFocus(const QQuickItem& item) const;
    QPointF onPhone(QPointF point) const;
    void fit();
    bool isStrayClick(QPointF point, qint64 milliseconds);

    ViewPainter& painter_;
    QQuickItem* phone_;  // child: one unit a point
    std::unique_ptr<ViewMirror> mirror_;
    std::unique_ptr<AlertLayer> alert_;
    Scroller scroller_;
    FrameTicks ticks_;
    /// What the mouse's last press was on, unless it became a drag.
    struct Click {
        qint64 milliseconds;
        QPointF point;
        unsigned alert;
        std::weak_ptr<UIView> view;
    };
    std::optional<Click> click_;
    QPointF pressed_;
    bool isDown_ = false;
    bool hasMoved_ = false;  // further than a finger trembles, since it came down
    bool isCovered_ = false;
    bool isScheduled_ = false;
};

}  // namespace gexlo
