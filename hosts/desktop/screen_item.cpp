#include "hosts/desktop/screen_item.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QStyleHints>
#include <cmath>
#include <utility>

#include "hosts/desktop/alert_layer.h"
#include "platform/foundation/device.h"
#include "platform/views/picker_wheel.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// Points that a finger may tremble before it scrolls.
constexpr double kSlop = 8;
/// Points a notch of a mouse wheel.
constexpr double kWheelStep = 48;

void turn(const std::function<void()>& act) {
    Device::current().perform(act);
}

CGPoint cgPoint(QPointF point) {
    return {point.x(), point.y()};
}

void press(UIView& view) {
    turn([&] {
        if (UIWindow* window = view.window()) window->press(view);
    });
}

/// Turns a wheel to a row, where a finger could.
void step(UIView& view, int row) {
    turn([&] {
        UIWindow* window = view.window();
        auto* wheel = dynamic_cast<UIPickerWheel*>(&view);
        if (wheel && window && window->canReach(view)) wheel->turnToRow(row);
    });
}

ViewMirror::Actions actions() {
    return {
        .press = press,
        .step = step,
        .text = {.focus =
                     [](UITextInput& input) {
                         if (!input.isFirstResponder()) press(input);
                     },
                 .edit =
                     [](UITextInput& input, const QString& text) {
                         turn([&] { input.replaceAll(text.toStdString()); });
                     },
                 .returnKey = [](UITextInput& input) { turn([&] { input.returnKey(); }); }},
    };
}

}  // namespace

ScreenItem::ScreenItem(QQmlEngine& engine, ViewPainter& painter)
    : painter_(painter),
      phone_(new QQuickItem(this)),
      scroller_(turn),
      ticks_([this] { synchronize(); }) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    mirror_ = std::make_unique<ViewMirror>(engine, *phone_, painter, actions());
    alert_ = std::make_unique<AlertLayer>(engine, *phone_, painter, actions());
    const CGSize size = UIWindow::keyWindow().frame().size();
    phone_->setSize({size.width, size.height});
    phone_->setTransformOrigin(QQuickItem::TopLeft);
    phone_->setClip(true);
    // The device may outlive the window.
    Device::current().mainQueue().atEndOfTurn([screen = QPointer(this)] {
        if (screen) screen->scheduleSynchronization();
    });
}

ScreenItem::~ScreenItem() = default;

/// What touches and keys go to.
UIWindow& ScreenItem::surface() const {
    return alert_->isUp() ? alert_->window() : UIWindow::keyWindow();
}

void ScreenItem::scheduleSynchronization() {
    if (isScheduled_) return;
    isScheduled_ = true;
    QMetaObject::invokeMethod(
        this, [this] { synchronize(); }, Qt::QueuedConnection);
}

void ScreenItem::synchronize() {
    isScheduled_ = false;
    UIWindow& window = UIWindow::keyWindow();
    const bool isCovered = !window.alerts().empty() || window.isCovered();
    // What comes between ends a touch.
    if (window.alertNumber() != alert_->number() || isCovered != isCovered_) cancel();
    isCovered_ = isCovered;
    mirror_->root().setEnabled(!isCovered);
    mirror_->synchronize(window);
    alert_->synchronize(window);
    ticks_.setRunning(mirror_->isAnimating());
    if (!alert_->isUp() && alert_->hasFocus()) mirror_->root().forceActiveFocus();
}

bool ScreenItem::isAnimating() const {
    return isScheduled_ || mirror_->isAnimating() || scroller_.isGliding();
}

// MARK: size

void ScreenItem::fit() {
    const QSizeF phone = phone_->size();
    if (phone.isEmpty() || width() <= 0 || height() <= 0) return;
    const double scale = std::min(width() / phone.width(), height() / phone.height());
    phone_->setScale(scale);
    phone_->setPosition({std::floor((width() - phone.width() * scale) / 2),
                         std::floor((height() - phone.height() * scale) / 2)});
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
    mirror_->setScale(scale * ratio);
    alert_->setScale(scale * ratio);
    scheduleSynchronization();
}

void ScreenItem::geometryChange(const QRectF& now, const QRectF& former) {
    QQuickItem::geometryChange(now, former);
    fit();
}

void ScreenItem::itemChange(ItemChange change, const ItemChangeData& value) {
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) fit();
    if (change == ItemSceneChange && value.window) value.window->installEventFilter(this);
}

QPointF ScreenItem::onPhone(QPointF point) const {
    return phone_->mapFromItem(this, point);
}

// MARK: touches

void ScreenItem::press(QPointF point, qint64 milliseconds) {
    Q_UNUSED(milliseconds)
    isDown_ = true;
    hasMoved_ = false;
    pressed_ = point;
    turn([&] { surface().touchDown(cgPoint(point)); });
}

void ScreenItem::move(QPointF point, qint64 milliseconds) {
    if (!isDown_) return;
    if (scroller_.isDragging()) return scroller_.moveTo(point, milliseconds);
    const QPointF distance = point - pressed_;
    const bool isNear = std::hypot(distance.x(), distance.y()) < kSlop;
    if (isNear && !hasMoved_) return;
    hasMoved_ = true;
    UIWindow& window = surface();
    UIView* touched = window.touched() ? window.touched() : window.hitTest(cgPoint(pressed_));
    auto scroll = isNear ? nullptr : Scroller::scrollViewFor(touched, distance);
    if (!scroll) return turn([&] { window.touchMoved(cgPoint(point)); });
    turn([&] { window.touchCancel(); });
    click_.reset();
    scroller_.begin(std::move(scroll), pressed_, milliseconds);
    scroller_.moveTo(point, milliseconds);
}

void ScreenItem::release(QPointF point, qint64 milliseconds) {
    if (!isDown_) return;
    isDown_ = false;
    if (scroller_.isDragging()) return scroller_.end(milliseconds);
    turn([&] { surface().touchUp(cgPoint(point)); });
}

void ScreenItem::cancel() {
    if (!isDown_) return;
    isDown_ = false;
    if (scroller_.isDragging()) return scroller_.interrupt();
    turn([&] { surface().touchCancel(); });
}

/// Desktops are used to two clicks where a phone wants one: the second must not reach what the
/// first one has brought to light.
bool ScreenItem::isStrayClick(QPointF point, qint64 milliseconds) {
    UIWindow& window = UIWindow::keyWindow();
    UIView* hit = surface().hitTest(cgPoint(point));
    const std::optional<Click> former =
        std::exchange(click_, Click{milliseconds, point, window.alertNumber(),
                                    hit ? hit->weak_from_this() : std::weak_ptr<UIView>()});
    if (!former) return false;
    const QPointF distance = point - former->point;
    const bool isSecond = milliseconds - former->milliseconds <
                              QGuiApplication::styleHints()->mouseDoubleClickInterval() &&
                          std::hypot(distance.x(), distance.y()) < kSlop;
    return isSecond && (former->alert != window.alertNumber() || former->view.lock().get() != hit);
}

void ScreenItem::mousePressEvent(QMouseEvent* event) {
    if (!alert_->isUp()) mirror_->takeFocus();
    const QPointF point = onPhone(event->position());
    const auto time = static_cast<qint64>(event->timestamp());
    if (!isStrayClick(point, time)) press(point, time);
}

void ScreenItem::mouseMoveEvent(QMouseEvent* event) {
    move(onPhone(event->position()), static_cast<qint64>(event->timestamp()));
}

void ScreenItem::mouseReleaseEvent(QMouseEvent* event) {
    release(onPhone(event->position()), static_cast<qint64>(event->timestamp()));
}

void ScreenItem::mouseUngrabEvent() {
    cancel();
}

void ScreenItem::touchEvent(QTouchEvent* event) {
    // The screen knows one finger.
    const QEventPoint& point = event->points().first();
    const QPointF place = onPhone(point.position());
    const auto time = static_cast<qint64>(event->timestamp());
    switch (point.state()) {
        case QEventPoint::Pressed:
            press(place, time);
            break;
        case QEventPoint::Updated:
            move(place, time);
            break;
        case QEventPoint::Released:
            release(place, time);
            break;
        default:
            break;
    }
}

void ScreenItem::touchUngrabEvent() {
    cancel();
}

void ScreenItem::wheelEvent(QWheelEvent* event) {
    QPointF distance = event->pixelDelta().isNull()
                           ? QPointF(event->angleDelta()) / 120.0 * kWheelStep
                           : QPointF(event->pixelDelta()) / phone_->scale();
    if (event->modifiers() & Qt::ShiftModifier) distance = distance.transposed();
    UIView* under = surface().hitTest(cgPoint(onPhone(event->position())));
    if (auto scroll = Scroller::scrollViewFor(under, distance))
        scroller_.scrollBy(scroll, -distance);
}

// MARK: keys

bool ScreenItem::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && window()) {
        const QQuickItem* focused = window()->activeFocusItem();
        const bool isOurs = !focused || focused == window()->contentItem() || focused == this ||
                            isAncestorOf(focused);
        if (isOurs && takeKey(static_cast<QKeyEvent&>(*event))) return true;
    }
    return QQuickItem::eventFilter(watched, event);
}

/// Tab goes round what a finger could reach, and an alert hears return and escape.
bool ScreenItem::takeKey(const QKeyEvent& key) {
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (isTab && !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        moveFocus(key.key() == Qt::Key_Tab && !(key.modifiers() & Qt::ShiftModifier));
        return true;
    }
    const bool isReturn = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (!alert_->isUp() || (!isReturn && key.key() != Qt::Key_Escape)) return false;
    // A button that has the focus is pressed itself.
    const auto* item = qobject_cast<const ViewItem*>(window()->activeFocusItem());
    if (isReturn && item && item->view()) return false;
    // A key that is held has brought the alert, and does not take it away.
    if (key.isAutoRepeat()) return true;
    QGuiApplication::inputMethod()->commit();
    isReturn ? alert_->confirm() : alert_->cancel();
    return true;
}

void ScreenItem::moveFocus(bool forward) {
    QQuickItem* from = window()->activeFocusItem();
    if (!from) from = this;
    const QQuickItem* first = nullptr;
    for (QQuickItem* item = from->nextItemInFocusChain(forward);
         item && item != from && item != first; item = item->nextItemInFocusChain(forward)) {
        if (!first) first = item;
        if (!takesFocus(*item)) continue;
        return item->forceActiveFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
}

bool ScreenItem::takesFocus(const QQuickItem& item) const {
    if (!isAncestorOf(&item)) return !alert_->isUp();
    const auto view = ViewMirror::viewOf(item);
    return view && view->window() == &surface() && surface().canReach(*view);
}

}  // namespace gexlo
