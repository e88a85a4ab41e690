#include "platform/foundation/main_queue.h"

#include "platform/foundation/calendar.h"
#include "platform/foundation/device.h"
#include "platform/foundation/notification_center.h"

namespace gexlo {

namespace {

using ThreadId = std::atomic<std::thread::id>;

/// Names this thread for as long as it lives, also where the work of a turn throws.
class Mark {
public:
    explicit Mark(ThreadId& thread) : thread_(thread) { thread_ = std::this_thread::get_id(); }
    ~Mark() { thread_ = std::thread::id(); }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

private:
    ThreadId& thread_;
};

}  // namespace

void MainQueue::turn(const Work& work) {
    const std::scoped_lock held(device_.lock());
    if (turning_ == std::this_thread::get_id()) return work();
    {
        const Mark mark(turning_);
        work();
        drain();
        for (std::size_t i = 0; i < endOfTurn_.size(); ++i)
            endOfTurn_[i]();
    }
    const std::scoped_lock guard(mutex_);
    if (!queued_.empty()) wakeHost();  // by a hook
}

void MainQueue::drain() {
    for (;;) {
        std::vector<Work> batch;
        {
            const std::scoped_lock guard(mutex_);
            batch.swap(queued_);
        }
        if (batch.empty()) return;
        for (const Work& work : batch)
            work();
    }
}

void MainQueue::async(Work work) {
    const std::scoped_lock guard(mutex_);
    queued_.push_back(std::move(work));
    wakeHost();
}

void MainQueue::runQueued() {
    {
        const std::scoped_lock guard(mutex_);
        if (queued_.empty()) return;
    }
    turn([] {});
}

void MainQueue::setWake(Work wake) {
    const std::scoped_lock guard(mutex_);
    wake_ = std::move(wake);
}

/// Under the mutex.
void MainQueue::wakeHost() const {
    if (wake_ && turning_ != std::this_thread::get_id()) wake_();
}

void MainQueue::after(NSTimeInterval delay, Work work) {
    const NSDate due = device_.clock().now().dateByAddingTimeInterval(delay);
    const std::scoped_lock guard(mutex_);
    delayed_.emplace(due, std::move(work));
    wakeHost();
}

std::optional<NSDate> MainQueue::nextDue() const {
    const std::scoped_lock guard(mutex_);
    if (delayed_.empty()) return std::nullopt;
    return delayed_.begin()->first;
}

void MainQueue::runDue() {
    for (;;) {
        Work work;
        {
            const std::scoped_lock guard(mutex_);
            if (delayed_.empty() || delayed_.begin()->first > device_.clock().now()) return;
            work = std::move(delayed_.begin()->second);
            delayed_.erase(delayed_.begin());
        }
        turn(work);
    }
}

void MainQueue::turnClockTo(NSDate moment) {
    const std::scoped_lock held(device_.lock());
    device_.clock().turnTo(moment);
}

void MainQueue::advanceTo(NSDate end) {
    for (auto due = nextDue(); due && *due <= end; due = nextDue()) {
        turnClockTo(*due);
        runDue();
    }
    turnClockTo(end);
}

void MainQueue::postSignificantTimeChanges() {
    const NSDate now = device_.clock().now();
    const NSDate midnight = NSCalendar::currentCalendar().startOfNextDay(now);
    after(midnight.timeIntervalSinceDate(now), [this] {
        NSNotificationCenter::defaultCenter().postNotificationName(
            kSignificantTimeChangeNotification);
        postSignificantTimeChanges();
    });
}

void MainQueue::cancelAll() {
    // What is dropped may itself ask for the queue as it goes.
    std::vector<Work> queued;
    std::multimap<NSDate, Work> delayed;
    {
        const std::scoped_lock guard(mutex_);
        queued.swap(queued_);
        delayed.swap(delayed_);
        wake_ = {};
    }
    std::deque<Work>().swap(endOfTurn_);
}

}  // namespace gexlo
