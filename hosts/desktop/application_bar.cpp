#include "hosts/desktop/application_bar.h"

#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QVariantMap>

#include "hosts/desktop/phone_window.h"

namespace gexlo {

ApplicationBar::ApplicationBar(QQmlEngine& engine, PhoneWindow& window,
                               TimetableFiles::Receive receive)
    : engine_(engine), window_(window), files_(std::move(receive)) {
    window.setTopMargin(kHeight);
    window.installEventFilter(this);
    connect(
        &window, &QQuickWindow::frameSwapped, this, [this] { show(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void ApplicationBar::show() {
    QQmlComponent component(&engine_, QUrl(QStringLiteral("qrc:/gexlo/qml/ApplicationBar.qml")));
    QObject* made = component.createWithInitialProperties(
        {{"files", QVariant::fromValue(&files_)}, {"height", kHeight}});
    if (!made) qFatal("%s", qPrintable(component.errorString()));
    item_.reset(qobject_cast<QQuickItem*>(made));
    item_->setParentItem(window_.contentItem());
}

bool ApplicationBar::eventFilter(QObject* watched, QEvent* event) {
    if (item_ && event->type() == QEvent::KeyRelease && isAltDown_ &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) {
        QMetaObject::invokeMethod(item_.get(), "toggleMenu");
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            isAltDown_ = isAltAlone(*event);
            break;
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::FocusOut:
            isAltDown_ = false;
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

/// Two keys together, as those that change the layout, are not meant for the menu.
bool ApplicationBar::isAltAlone(const QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Alt && (key.modifiers() & ~Qt::AltModifier) == Qt::NoModifier;
}

}  // namespace gexlo
