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
    // Under the names by which assistive technology knows them.
    Q_PROPERTY(int value READ step WRITE stepTo NOTIFY spokenChanged)
    Q_PROPERTY(int minimumValue READ firstStep CONSTANT)
    Q_PROPERTY(int maximumValue READ lastStep NOTIFY spokenChanged)

public:
    explicit ViewItem(QQuickItem* parent = nullptr);

    /// What it stands for, where the keyboard reaches it.
    std::shared_ptr<UIView> view() const { return view_.lock(); }
    void setView(std::weak_ptr<UIView> view) { view_ = std::move(view); }
    /// Takes over the looks of a view at a moment, painted at that many pixels a point.
    void show(const UIView& view, ViewPainter& painter, double scale, NSDate moment);
    void hideLooks();
    /// What assistive technology hears of it.
    struct Spoken {
        int role = 0;  // one of `QAccessible::Role`
        QString name;
        bool isOn = false;
        int step = 0;  // of a spin box
        int lastStep = 0;
        bool operator==(const Spoken&) const = default;
    };
    void setSpoken(Spoken spoken);
    int spokenRole() const { return spoken_.role; }
    QString spokenName() const { return spoken_.name; }
    bool isOn() const { return spoken_.isOn; }
    int step() const { return spoken_.step; }
    static int firstStep() { return 0; }
    int lastStep() const { return spoken_.lastStep; }
    /// Asks for another step; nothing for one that is none.
    void stepTo(int step);

Q_SIGNALS:
    void spokenChanged();
    /// Pressed by the keyboard, or by assistive technology.
    void pressed();
    /// Another step was asked for in the same way.
    void stepped(int step);

protected:
    QSGNode* updatePaintNode(QSGNode* former, UpdatePaintNodeData*) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::weak_ptr<UIView> view_;
    bool isPlain_ = true;  // one colour and nothing else
    QColor color_;
    QImage picture_;
    bool pictureChanged_ = false;
    Spoken spoken_;
};

}  // namespace gexlo
