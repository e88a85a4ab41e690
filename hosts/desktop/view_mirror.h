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

namespace gexlo {

/// Only what can be seen has an item; the others come as they scroll or slide into sight.
class ViewMirror {
public:
    /// What a person does through an item rather than by touching the screen.
    struct Actions {
        std::function<void(UIView&)> press;
        std::function<void(UIView&, int)> step;
        TextActions text;
    };

    ViewMirror(QQmlEngine& engine, QQuickItem& root, ViewPainter& painter, Actions actions);
    ~ViewMirror();
    ViewMirror(const ViewMirror&) = delete;
    ViewMirror& operator=(const ViewMirror&) = delete;

    /// Pixels that a point of the screen takes; a change paints everything anew.
    void setScale(double scale);
    /// Brings the items up to what is seen of the tree now.
    void synchronize(UIView& root);
    /// Shows every change at its end from now on.
    void showAtRest() { showsAtRest_ = true; }
    /// Takes everything off the window.
    void clear();
    /// What all the items lie in, with a focus of its own; while it is disabled, nothing in it
    /// takes keys or clicks.
    QQuickItem& root() const;
    /// Takes the keyboard for the whole, and for none of its items.
    void takeFocus();
    /// The view that an item with the focus stands for, or null.
    static std::shared_ptr<UIView> viewOf(const QQuickItem& item);
    /// Whether something is still on its way, so that another look at the tree is due.
    bool isAnimating() const { return isAnimating_; }

private:
    struct Node;

    std::unique_ptr<Node> newNode(UIView& view, QQuickItem& parent);
    void showView(UIView& view, Node& node, const CGRect& sight);
    void showChildren(UIView& view, Node& node, const CGRect& sight, bool changed);
    void showLooks(UIView& view, Node& node);
    void speakFor(const UIView& view, Node& node);
    void showText(UITextInput& input, Node& node);
    void place(const UIView& view, Node& node);

    ViewPainter& painter_;
    Actions actions_;
    double scale_ = 1;
    bool everythingChanged_ = false;
    bool showsAtRest_ = false;
    bool isAnimating_ = false;
    NSDate now_;  // of the pass under way
    QQmlComponent touchable_;
    QQmlComponent textField_;
    QQmlComponent textView_;
    std::vector<QPointer<TextRelay>> texts_;
    std::unique_ptr<Node> root_;
};

}  // namespace gexlo
