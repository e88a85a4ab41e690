#include "hosts/desktop/phone_window.h"

#include "platform/views/window.h"

namespace gexlo {

PhoneWindow::PhoneWindow(QQmlEngine& engine, ViewPainter& painter) : screen_(engine, painter) {
    setTitle(QStringLiteral("Gexlo"));
    setColor(Qt::black);
    screen_.setParentItem(contentItem());
    const CGSize phone = UIWindow::keyWindow().frame().size();
    resize(static_cast<int>(phone.width), static_cast<int>(phone.height));
    screen_.setSize(size());
}

void PhoneWindow::resizeEvent(QResizeEvent* event) {
    QQuickWindow::resizeEvent(event);
    screen_.setSize(size());
}

}  // namespace gexlo
