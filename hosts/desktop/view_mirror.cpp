#include "hosts/desktop/view_mirror.h"

#include <QAccessible>
#include <QQmlEngine>
#include <cmath>
#include <limits>

#include "hosts/desktop/view_traits.h"
#include "hosts/drawing/qt_values.h"
#include "hosts/drawing/typeface.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// Where a view and those upon it may be seen, in its parent's coordinates.
struct Reach {
    const UIView* view = nullptr;
    CGRect rect;
    bool stays = false;  // until something changes
};

}  // namespace

/// A view that is on the window, with the items of those upon it.
struct ViewMirror::Node {
    /// What it still has to do comes to its end, out of sight.
    ~Node() {
        if (!item) return;
        item->setParentItem(nullptr);
        item->deleteLater();
    }

    QPointer<QQuickItem> item;
    QPointer<QQuickItem> content;  // what scrolls; null for a view that does not
    std::weak_ptr<UIView> view;
    ViewTraits::Item kind = ViewTraits::Item::plain;
    bool isNew = true;
    bool isSeen = false;         // in the pass under way
    CGRect sight;                // of the last pass
    std::vector<Reach> reaches;  // of the views upon it
    bool reachesStay = false;
    std::unordered_map<const UIView*, std::unique_ptr<Node>> children;

    QQuickItem& contentItem() { return content ? *content : *item; }
    ViewItem* viewItem() { return qobject_cast<ViewItem*>(item); }
};

namespace {

/// What is spoken of a view: its label, else what it shows, else what those upon it say.
QString spokenNameOf(const UIView& view) {
    if (!view.accessibilityLabel().empty()) return qtText(view.accessibilityLabel());
    QString name = qtText(traitsOf(view).text);
    if (!name.isEmpty()) return name;
    for (const auto& child : view.subviews()) {
        if (child->isHidden()) continue;
        const QString part = spokenNameOf(*child);
        if (part.isEmpty()) continue;
        if (!name.isEmpty()) name += QStringLiteral(", ");
        name += part;
    }
    return name;
}

/// A cell's transparent button speaks for the cell under it.
QString spokenNameWithin(const UIView& view) {
    const QString own = spokenNameOf(view);
    return own.isEmpty() && view.superview() ? spokenNameOf(*view.superview()) : own;
}

CGRect rectOfReach(const UIView& view, NSDate now) {
    if (view.isHidden() || view.alphaAt(now) <= 0) return {};
    const CGRect frame = view.frameAt(now);
    CGRect covered = frame;
    if (view.clipsToBounds()) return covered;
    const CGPoint offset = view.contentOffsetAt(now);
    for (const auto& child : view.subviews()) {
        const CGRect part = rectOfReach(*child, now);
        if (part.width <= 0 || part.height <= 0) continue;
        covered = covered.united(part.offsetBy({frame.x - offset.x, frame.y - offset.y}));
    }
    return covered;
}

void measureReaches(const UIView& view, std::vector<Reach>& reaches, NSDate now) {
    reaches.resize(view.subviews().size());
    for (std::size_t i = 0; i < reaches.size(); ++i) {
        const UIView& child = *view.subviews()[i];
        const bool stays = !child.hasChanged() && !child.hasChangedBelow() && !child.animations();
        if (stays && reaches[i].stays && reaches[i].view == &child) continue;
        reaches[i] = {&child, rectOfReach(child, now), stays};
    }
}

}  // namespace

ViewMirror::ViewMirror(QQmlEngine& engine, QQuickItem& root, ViewPainter& painter, Actions actions)
    : painter_(painter),
      actions_(std::move(actions)),
      touchable_(&engine),
      textField_(&engine),
      textView_(&engine),
      root_(std::make_unique<Node>()) {
    qmlRegisterType<ViewItem>("Gexlo", 1, 0, "ViewItem");
    touchable_.loadUrl(QUrl(QStringLiteral("qrc:/gexlo/qml/TouchableView.qml")));
    textField_.loadUrl(QUrl(QStringLiteral("qrc:/gexlo/qml/TextField.qml")));
    textView_.loadUrl(QUrl(QStringLiteral("qrc:/gexlo/qml/TextView.qml")));
    root_->item = new ViewItem(&root);
    root_->item->setFlag(QQuickItem::ItemIsFocusScope);
}

ViewMirror::~ViewMirror() = default;

void ViewMirror::setScale(double scale) {
    if (scale == scale_) return;
    scale_ = scale;
    everythingChanged_ = true;
}

void ViewMirror::synchronize(UIView& root) {
    static constexpr double kAfterAll = std::numeric_limits<double>::infinity();
    now_ = showsAtRest_ ? NSDate::dateWithTimeIntervalSince1970(kAfterAll) : NSDate::date();
    showView(root, *root_, root.frame());
    isAnimating_ = root.changesWereRead(now_);
    everythingChanged_ = false;
    // Others may have come over a field that has not changed itself.
    std::erase(texts_, nullptr);
    for (const auto& text : texts_) {
        if (root_->item->isEnabled()) text->followReach();
    }
}

QQuickItem& ViewMirror::root() const {
    return *root_->item;
}

void ViewMirror::takeFocus() {
    if (QQuickItem* focused = root().scopedFocusItem()) focused->setFocus(false);
    root().forceActiveFocus();
}

std::shared_ptr<UIView> ViewMirror::viewOf(const QQuickItem& item) {
    if (const auto* view = qobject_cast<const ViewItem*>(&item)) return view->view();
    const QQuickItem* parent = item.parentItem();
    const auto* relay =
        parent ? parent->findChild<TextRelay*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    return relay ? relay->input() : nullptr;
}

void ViewMirror::clear() {
    root_->children.clear();
    root_->isNew = true;
    static_cast<ViewItem&>(*root_->item).hideLooks();
}

std::unique_ptr<ViewMirror::Node> ViewMirror::newNode(UIView& view, QQuickItem& parent) {
    using Item = ViewTraits::Item;
    const ViewTraits traits = traitsOf(view);
    auto node = std::make_unique<Node>();
    node->view = view.weak_from_this();
    node->kind = traits.item;
    const auto create = [&](QQmlComponent& component) {
        auto* item = qobject_cast<QQuickItem*>(component.create());
        if (!item) qFatal("%s", qPrintable(component.errorString()));
        item->setParentItem(&parent);
        return item;
    };
    const auto viewOf = [weak = node->view] { return weak.lock(); };
    switch (traits.item) {
        case Item::plain:
            node->item = new ViewItem(&parent);
            break;
        case Item::touchable:
            node->item = create(touchable_);
            node->item->setActiveFocusOnTab(true);
            node->viewItem()->setView(node->view);
            QObject::connect(node->viewItem(), &ViewItem::pressed, node->item, [this, viewOf] {
                if (const auto held = viewOf()) actions_.press(*held);
            });
            QObject::connect(node->viewItem(), &ViewItem::stepped, node->item,
                             [this, viewOf](int step) {
                                 if (const auto held = viewOf()) actions_.step(*held, step);
                             });
            break;
        case Item::textField:
        case Item::textView:
            node->item = create(traits.item == Item::textField ? textField_ : textView_);
            // Ends with the item.
            texts_.emplace_back(
                new TextRelay(*node->item, static_cast<UITextInput&>(view), actions_.text));
            break;
    }
    if (traits.scrolls) node->content = new QQuickItem(node->item);
    return node;
}

void ViewMirror::showView(UIView& view, Node& node, const CGRect& sight) {
    const bool looksChanged = node.isNew || everythingChanged_ || view.hasChanged();
    const ViewAnimations* moving = view.animations();
    if (looksChanged || moving) {
        const QSizeF former = node.item->size();
        place(view, node);
        // What grows on its way is painted anew and not stretched.
        const bool isRepainted = looksChanged || node.item->size() != former;
        if (isRepainted || moving->backgroundColor) showLooks(view, node);
    }
    node.isNew = false;
    const bool changed = looksChanged || moving || view.hasChangedBelow();
    if (changed || sight != node.sight) showChildren(view, node, sight, changed);
    node.sight = sight;
}

/// `sight` is what can be seen of the view's own coordinates; `changed` says whether the view or
/// one below it did since the last pass, or is on its way.
void ViewMirror::showChildren(UIView& view, Node& node, const CGRect& sight, bool changed) {
    for (auto& [child, childNode] : node.children)
        childNode->isSeen = false;
    if (changed || !node.reachesStay) measureReaches(view, node.reaches, now_);
    node.reachesStay = !changed;
    const CGRect seen = sight.offsetBy(view.contentOffsetAt(now_));
    QQuickItem* below = nullptr;
    bool isOrdered = !changed;
    for (std::size_t i = 0; i < node.reaches.size(); ++i) {
        const std::shared_ptr<UIView>& child = view.subviews()[i];
        if (!node.reaches[i].rect.intersects(seen)) continue;
        std::unique_ptr<Node>& childNode = node.children[child.get()];
        const bool isOther = !childNode || !childNode->item || childNode->view.lock() != child;
        if (isOther) childNode = newNode(*child, node.contentItem());
        childNode->isSeen = true;
        isOrdered = isOrdered && !isOther;
        const CGRect frame = child->frameAt(now_);
        CGRect within = seen.offsetBy({-frame.x, -frame.y});
        if (child->clipsToBounds()) within = within.intersection({0, 0, frame.width, frame.height});
        showView(*child, *childNode, within);
        if (changed || isOther) speakFor(*child, *childNode);
        if (below && !isOrdered) childNode->item->stackAfter(below);
        below = childNode->item;
    }
    std::erase_if(node.children, [](const auto& entry) { return !entry.second->isSeen; });
}

void ViewMirror::place(const UIView& view, Node& node) {
    const CGRect frame = view.frameAt(now_);
    QQuickItem& item = *node.item;
    item.setPosition({frame.x, frame.y});
    item.setSize({frame.width, frame.height});
    item.setOpacity(view.alphaAt(now_));
    item.setClip(view.clipsToBounds());
    if (node.content) {
        const CGPoint offset = view.contentOffsetAt(now_);
        node.content->setPosition({-offset.x, -offset.y});
    }
}

void ViewMirror::showLooks(UIView& view, Node& node) {
    if (ViewItem* item = node.viewItem()) return item->show(view, painter_, scale_, now_);
    showText(static_cast<UITextInput&>(view), node);
    if (node.kind == ViewTraits::Item::textField) {
        node.item->setProperty("secure", static_cast<UITextField&>(view).isSecureTextEntry());
    }
}

/// A view may speak for those around it, so it does so anew when one of them changes.
void ViewMirror::speakFor(const UIView& view, Node& node) {
    if (node.kind != ViewTraits::Item::touchable) return;
    const ViewTraits traits = traitsOf(view);
    node.item->setEnabled(traits.isEnabled);
    node.viewItem()->setSpoken({.role = traits.role,
                                .name = spokenNameWithin(view),
                                .isOn = traits.isOn,
                                .step = traits.step,
                                .lastStep = traits.lastStep});
}

void ViewMirror::showText(UITextInput& input, Node& node) {
    QQuickItem& item = *node.item;
    QFont font = typefaceOf(input.font());
    font.setPixelSize(std::max(1, static_cast<int>(input.font().size)));
    item.setProperty("font", font);
    item.setProperty("textColor", qtColor(input.textColor()));
    item.setProperty("spokenName", qtText(input.placeholder()));
    item.setProperty("placeholder", qtText(input.placeholder()));
    item.setProperty("color", qtColor(input.backgroundColorAt(now_)));
    item.setProperty("borderColor", qtColor(input.borderColor()));
    item.setProperty("borderWidth", std::ceil(input.borderWidth()));
    const QString text = qtText(input.text());
    if (item.property("text").toString() != text) item.setProperty("text", text);
    if (input.isFirstResponder()) {
        if (item.isEnabled()) item.forceActiveFocus();
    } else if (item.hasFocus()) {
        item.setFocus(false);
    }
}

}  // namespace gexlo
