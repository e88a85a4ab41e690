// Lets the system's work run when it falls due, or comes from elsewhere.
#pragma once

#include <QObject>
#include <QTimer>

namespace gexlo {

class EventLoop final : public QObject {
    Q_OBJECT

public:
    EventLoop();
    ~EventLoop() override;

private:
    void arm();
    void runQueued();

    QTimer timer_;
};

}  // namespace gexlo
