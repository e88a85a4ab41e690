// Requests that are under way outside the main queue, and their replies on it.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/foundation/date.h"

namespace gexlo {

class MainQueue;

/// One request, held by whoever works on it, in any thread; it may outlive the device.
class PendingRequest {
public:
    PendingRequest(PendingRequest&&) noexcept = default;
    PendingRequest& operator=(PendingRequest&&) = delete;
    /// One that nobody finished ends with nothing handed over.
    ~PendingRequest();

    /// Lets `handOver` fill what the reply reads, unless the request is over, and ends it.
    void finish(const std::function<void()>& handOver);
    /// Whether nobody waits for it any more: its time has run out, or the device has ended.
    bool isOver() const;

private:
    friend class PendingRequests;
    struct Waiting;
    PendingRequest(std::shared_ptr<Waiting> waiting, std::uint64_t number)
        : waiting_(std::move(waiting)), number_(number) {}

    std::shared_ptr<Waiting> waiting_;  // shared by the device and all requests
    std::uint64_t number_;
};

/// Counts requests and runs their replies in turns of the main queue, each once, in the order in
/// which they ended. A reply never leaves that queue's thread, so it may hold what it wants.
class PendingRequests {
public:
    using Reply = std::function<void()>;
    enum class End : std::uint8_t { completed, timedOut };

    explicit PendingRequests(MainQueue& queue);

    /// A request is over when it has ended, or `timeout` seconds of the device's clock after
    /// now. Either way its reply is due then.
    [[nodiscard]] PendingRequest begin(NSTimeInterval timeout, Reply reply);
    /// Those whose reply has not run.
    std::size_t count() const;

    /// From now on each reply runs as soon as it is due; else they wait for `runReply`.
    void runRepliesAsTheyCome();
    /// Runs the next reply that is due, if any.
    std::optional<End> runReply();
    /// Waits that long at most for a reply to be due; whether one is.
    bool waitForReply(std::chrono::milliseconds patience) const;

    /// Drops all replies, at the end of the device.
    void cancelAll();

private:
    MainQueue& queue_;
    std::shared_ptr<PendingRequest::Waiting> waiting_;
};

}  // namespace gexlo
