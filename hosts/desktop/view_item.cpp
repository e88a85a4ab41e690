#include "hosts/desktop/view_item.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <memory>

#include "hosts/drawing/qt_values.h"
#include "hosts/drawing/view_kinds.h"
#include "hosts/drawing/view_painter.h"

namespace gexlo {

namespace {

/// A colour and no more needs no picture.
bool isPlain(const UIView& view) {
    return !view.backgroundColor().patternImage && view.cornerRadius() == 0 &&
           view.borderWidth() == 0 && view.strokes().empty() && !contentsOf(view);
}

/// The picture as a texture, which the node owns.
class PictureNode final : public QSGNode {
public:
    explicit PictureNode(QQuickWindow& window) : image_(window.createImageNode()) {
        image_->setFlag(QSGNode::OwnedByParent);
        image_->setOwnsTexture(true);
        appendChildNode(image_);
    }
    void setPicture(QQuickWindow& window, const QImage& picture) {
        image_->setTexture(
            window.createTextureFromImage(picture, QQuickWindow::TextureCanUseAtlas));
    }
    void setRect(const QRectF& rect) { image_->setRect(rect); }

private:
    QSGImageNode* image_;
};

class ColorNode final : public QSGNode {
public:
    explicit ColorNode(QQuickWindow& window) : rectangle_(window.createRectangleNode()) {
        rectangle_->setFlag(QSGNode::OwnedByParent);
        appendChildNode(rectangle_);
    }
    void set(const QRectF& rect, const QColor& color) {
        rectangle_->setRect(rect);
        rectangle_->setColor(color);
    }

private:
    QSGRectangleNode* rectangle_;
};

}  // namespace

ViewItem::ViewItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void ViewItem::show(const UIView& view, ViewPainter& painter, double scale, NSDate moment) {
    isPlain_ = isPlain(view);
    if (isPlain_) {
        color_ = qtColor(view.backgroundColorAt(moment));
        picture_ = {};
    } else {
        picture_ = painter.paintAlone(view, scale, moment);
        pictureChanged_ = true;
    }
    update();
}

void ViewItem::hideLooks() {
    isPlain_ = true;
    color_ = Qt::transparent;
    picture_ = {};
    update();
}

void ViewItem::setSpoken(Spoken spoken) {
    if (spoken == spoken_) return;
    spoken_ = std::move(spoken);
    Q_EMIT spokenChanged();
}

void ViewItem::stepTo(int step) {
    const bool isThere = step >= firstStep() && step <= lastStep();
    if (isThere && step != spoken_.step) Q_EMIT stepped(step);
}

QSGNode* ViewItem::updatePaintNode(QSGNode* former, UpdatePaintNodeData*) {
    std::unique_ptr<QSGNode> node(former);
    const QRectF rect = boundingRect();
    if (rect.isEmpty()) return nullptr;
    if (isPlain_) {
        if (color_.alpha() == 0) return nullptr;
        if (!dynamic_cast<ColorNode*>(node.get())) node = std::make_unique<ColorNode>(*window());
        static_cast<ColorNode&>(*node).set(rect, color_);
        return node.release();
    }
    if (picture_.isNull()) return nullptr;
    if (!dynamic_cast<PictureNode*>(node.get())) {
        node = std::make_unique<PictureNode>(*window());
        pictureChanged_ = true;
    }
    auto& picture = static_cast<PictureNode&>(*node);
    if (pictureChanged_) picture.setPicture(*window(), picture_);
    pictureChanged_ = false;
    picture.setRect(rect);
    return node.release();
}

void ViewItem::keyPressEvent(QKeyEvent* event) {
    const bool steps = spoken_.role == QAccessible::SpinBox;
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (!steps) break;
            return stepTo(spoken_.step + (event->key() == Qt::Key_Down ? 1 : -1));
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // A key that is held presses once.
            if (!event->isAutoRepeat()) Q_EMIT pressed();
            return;
        default:
            break;
    }
    QQuickItem::keyPressEvent(event);
}

}  // namespace gexlo
