// The main queue: work in order, work after a delay, and what follows each turn of it.
#pragma once

#include <atomic>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "platform/foundation/date.h"

namespace gexlo {

class Device;

/// Posted on the default notification centre at each local midnight.
inline constexpr const char* kSignificantTimeChangeNotification =
    "UIApplicationSignificantTimeChangeNotification";

class MainQueue {
public:
    using Work = std::function<void()>;

    explicit MainQueue(Device& device) : device_(device) {}

    /// Runs `work` now, then all that is queued by then, then the hooks of the turn's end,
    /// holding the device's lock throughout. A turn within a turn is a part of it.
    void turn(const Work& work);

    /// Queues work behind what is queued already; from any thread.
    void async(Work work);
    /// Runs, as one turn, what was queued outside of turns.
    void runQueued();
    /// Called, in any thread, when something was queued that no turn is about to run, or delayed:
    /// for the host to call `runQueued` and to ask for `nextDue` anew. It must not call the queue.
    void setWake(Work wake);
    /// Runs work once `delay` seconds have passed on the device's clock; work that falls
    /// due at one moment runs in the order it came.
    void after(NSTimeInterval delay, Work work);

    /// When the next delayed work falls due.
    std::optional<NSDate> nextDue() const;
    /// Runs, each in a turn of its own, all that is due by the clock.
    void runDue();
    /// Turns the clock on to `end`, stopping at every moment at which work falls due.
    void advanceTo(NSDate end);

    /// Called at the end of every turn, in the order of registration.
    void atEndOfTurn(Work hook) { endOfTurn_.push_back(std::move(hook)); }

    void postSignificantTimeChanges();
    /// Drops what is queued and the hooks, at the end of the device.
    void cancelAll();

private:
    void drain();
    void wakeHost() const;
    void turnClockTo(NSDate moment);

    Device& device_;
    mutable std::mutex mutex_;  // guards the two queues, which other threads may fill, and wake_
    std::vector<Work> queued_;
    std::multimap<NSDate, Work> delayed_;
    std::deque<Work> endOfTurn_;  // a hook may add one while they run
    Work wake_;
    std::atomic<std::thread::id> turning_;  // the thread that runs a turn
};

}  // namespace gexlo
