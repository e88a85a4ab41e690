// Keeps the items of the window in step with the system's view tree.
#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "hosts/desktop/text_relay.h"
#include "hosts/desktop/view_item.h"
#include "hosts/drawing/view_painter.h"

class QQmlEngine;
class QVariantAnimation;

namespace gexlo {

/// Only what can be seen has an item; the others come as they scroll or slide into sight.
class ViewMirror {
public:
    /// What a person does through an item rather than by touching the screen.
    struct Actions {
        std::function<void(UIView&)> press;
        TextActions text;
    };

    ViewMirror(QQmlEngine& engine, QQuickItem& root, ViewPainter& painter, Actions actions);
    ~ViewMirror();
    ViewMirror(const ViewMirror&) = delete;
    ViewMirror& operator=(const ViewMirror&) = delete;

    /// Pixels that a point of the screen takes; a change paints everything anew.
    void setScale(double scale);
    /// Brings the items up to the tree, animating what the tree says is animated.
    void synchronize(UIView& root);
    /// Takes everything off the window.
    void clear();
    /// What all the items lie in, with a focus of its own; while it is disabled, nothing in it
    /// takes keys or clicks.
    QQuickItem& root() const;
    /// Takes the keyboard for the whole, and for none of its items.
    void takeFocus();
    /// The view that an item with the focus stands for, or null.
    static std::shared_ptr<UIView> viewOf(const QQuickItem& item);
    /// Whether something still moves towards its place.
    bool isAnimating() const { return running_ > 0; }

private:
    struct Node;

    std::unique_ptr<Node> newNode(UIView& view, QQuickItem& parent);
    void showView(UIView& view, Node& node, const CGRect& sight);
    void showChildren(UIView& view, Node& node, const CGRect& sight, bool changed);
    void showLooks(UIView& view, Node& node);
    void speakFor(const UIView& view, Node& node);
    void showText(UITextInput& input, Node& node);
    void place(UIView& view, Node& node);
    void animate(QQuickItem& item, const char* property, double target, double seconds);

    ViewPainter& painter_;
    Actions actions_;
    double scale_ = 1;
    bool everythingChanged_ = false;
    int running_ = 0;
    QObject counter_;  // hears of animations that end as long as this lives
    QQmlComponent touchable_;
    QQmlComponent textField_;
    QQmlComponent textView_;
    std::vector<QPointer<TextRelay>> texts_;
    std::unique_ptr<Node> root_;
};

}  // namespace gexlo
