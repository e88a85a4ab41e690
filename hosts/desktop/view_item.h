// One view of the system's tree on the window: a rectangle of colour, or a picture of what the
// view paints itself.
#pragma once

#include <QColor>
#include <QImage>
#include <QQuickItem>
#include <QString>
#include <memory>
#include <utility>

#include "platform/views/view.h"

namespace gexlo {

class ViewPainter;

class ViewItem : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(int spokenRole READ spokenRole NOTIFY spokenChanged)
    Q_PROPERTY(QString spokenName READ spokenName NOTIFY spokenChanged)
    Q_PROPERTY(bool isOn READ isOn NOTIFY spokenChanged)

public:
    explicit ViewItem(QQuickItem* parent = nullptr);

    /// What it stands for, where the keyboard reaches it.
    std::shared_ptr<UIView> view() const { return view_.lock(); }
    void setView(std::weak_ptr<UIView> view) { view_ = std::move(view); }
    /// Takes over the looks of a view at a moment, painted at that many pixels a point.
    void show(const UIView& view, ViewPainter& painter, double scale, NSDate moment);
    void hideLooks();
    /// What assistive technology hears of it; the role is one of `QAccessible::Role`.
    void setSpoken(int role, const QString& name, bool isOn);
    int spokenRole() const { return spokenRole_; }
    QString spokenName() const { return spokenName_; }
    bool isOn() const { return isOn_; }

Q_SIGNALS:
    void spokenChanged();
    /// Pressed by the keyboard, or by assistive technology.
    void pressed();

protected:
    QSGNode* updatePaintNode(QSGNode* former, UpdatePaintNodeData*) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::weak_ptr<UIView> view_;
    bool isPlain_ = true;  // one colour and nothing else
    QColor color_;
    QImage picture_;
    bool pictureChanged_ = false;
    int spokenRole_ = 0;
    QString spokenName_;
    bool isOn_ = false;
};

}  // namespace gexlo
