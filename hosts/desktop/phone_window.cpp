#include "hosts/desktop/phone_window.h"

#include <QDropEvent>
#include <QMimeData>

#include "exchange/file_url.h"
#include "platform/views/window.h"

namespace gexlo {

namespace {

/// The URL of the last file among what is dragged, or "".
std::string draggedFile(const QMimeData& dragged) {
    std::string file;
    for (const QUrl& url : dragged.urls()) {
        const std::string text = url.toEncoded().toStdString();
        const auto path = pathOfFileURL(text);
        std::error_code error;
        if (path && std::filesystem::is_regular_file(*path, error)) file = text;
    }
    return file;
}

}  // namespace

PhoneWindow::PhoneWindow(QQmlEngine& engine, ViewPainter& painter) : screen_(engine, painter) {
    setTitle(QStringLiteral("Gexlo"));
    setColor(Qt::black);
    screen_.setParentItem(contentItem());
    const CGSize phone = UIWindow::keyWindow().frame().size();
    resize(static_cast<int>(phone.width), static_cast<int>(phone.height));
    placeScreen();
}

void PhoneWindow::setTopMargin(int points) {
    resize(width(), height() + points - topMargin_);
    topMargin_ = points;
    placeScreen();
}

void PhoneWindow::setDropped(std::function<void(const std::string& url)> dropped) {
    dropped_ = std::move(dropped);
}

void PhoneWindow::placeScreen() {
    screen_.setY(topMargin_);
    screen_.setSize(QSizeF(width(), std::max(0, height() - topMargin_)));
}

void PhoneWindow::resizeEvent(QResizeEvent* event) {
    QQuickWindow::resizeEvent(event);
    placeScreen();
}

bool PhoneWindow::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            if (!dropped_) break;
            drop(static_cast<QDropEvent&>(*event));
            return true;
        default:
            break;
    }
    return QQuickWindow::event(event);
}

void PhoneWindow::drop(QDropEvent& event) {
    const std::string file = draggedFile(*event.mimeData());
    if (file.empty() || !event.possibleActions().testFlag(Qt::CopyAction)) return event.ignore();
    // Whoever offers a file to be moved would delete it afterwards.
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() == QEvent::Drop) dropped_(file);
}

}  // namespace gexlo
