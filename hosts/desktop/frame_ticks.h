// Asks for the next picture, once a frame, for as long as something moves.
#pragma once

#include <QAbstractAnimation>
#include <functional>
#include <utility>

namespace gexlo {

/// In step with the window's own frames where it is shown, and else by a timer.
class FrameTicks final : public QAbstractAnimation {
public:
    explicit FrameTicks(std::function<void()> tick) : tick_(std::move(tick)) {}

    int duration() const override { return -1; }
    void setRunning(bool running) {
        if (running == (state() == Running)) return;
        running ? start() : stop();
    }

protected:
    void updateCurrentTime(int milliseconds) override {
        if (milliseconds > 0) tick_();  // not from within its start
    }

private:
    std::function<void()> tick_;
};

}  // namespace gexlo
