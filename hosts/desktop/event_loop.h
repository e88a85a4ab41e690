// Lets the system's delayed work run when it falls due.
#pragma once

#include <QObject>
#include <QTimer>

namespace gexlo {

class EventLoop final : public QObject {
    Q_OBJECT

public:
    EventLoop();

private:
    void arm();

    QTimer timer_;
};

}  // namespace gexlo
