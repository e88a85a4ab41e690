#include "platform/foundation/pending_requests.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

#include "platform/foundation/main_queue.h"

namespace gexlo {

struct PendingRequest::Waiting {
    struct Due {
        PendingRequests::Reply reply;
        PendingRequests::End end;
    };

    /// Under the mutex. Does nothing for a request that is over.
    void end(std::uint64_t number, PendingRequests::End how) {
        const auto found = underWay.find(number);
        if (found == underWay.end()) return;
        due.push_back({std::move(found->second), how});
        underWay.erase(found);
        comes.notify_one();
        if (onDue) onDue();
    }

    mutable std::mutex mutex;
    mutable std::condition_variable comes;
    std::map<std::uint64_t, PendingRequests::Reply> underWay;
    std::deque<Due> due;
    std::function<void()> onDue;
    std::uint64_t last = 0;
};

PendingRequest::~PendingRequest() {
    if (waiting_) finish({});
}

void PendingRequest::finish(const std::function<void()>& handOver) {
    const std::scoped_lock guard(waiting_->mutex);
    if (!waiting_->underWay.contains(number_)) return;
    if (handOver) handOver();
    waiting_->end(number_, PendingRequests::End::completed);
}

bool PendingRequest::isOver() const {
    const std::scoped_lock guard(waiting_->mutex);
    return !waiting_->underWay.contains(number_);
}

PendingRequests::PendingRequests(MainQueue& queue)
    : queue_(queue), waiting_(std::make_shared<PendingRequest::Waiting>()) {}

PendingRequest PendingRequests::begin(NSTimeInterval timeout, Reply reply) {
    std::uint64_t number = 0;
    {
        const std::scoped_lock guard(waiting_->mutex);
        number = ++waiting_->last;
        waiting_->underWay.emplace(number, std::move(reply));
    }
    queue_.after(timeout, [waiting = waiting_, number] {
        const std::scoped_lock guard(waiting->mutex);
        waiting->end(number, End::timedOut);
    });
    return {waiting_, number};
}

std::size_t PendingRequests::count() const {
    const std::scoped_lock guard(waiting_->mutex);
    return waiting_->underWay.size() + waiting_->due.size();
}

void PendingRequests::runRepliesAsTheyCome() {
    const std::scoped_lock guard(waiting_->mutex);
    waiting_->onDue = [this] { queue_.async([this] { runReply(); }); };
}

std::optional<PendingRequests::End> PendingRequests::runReply() {
    std::unique_lock guard(waiting_->mutex);
    if (waiting_->due.empty()) return std::nullopt;
    const auto next = std::move(waiting_->due.front());
    waiting_->due.pop_front();
    guard.unlock();
    queue_.turn(next.reply);
    return next.end;
}

bool PendingRequests::waitForReply(std::chrono::milliseconds patience) const {
    std::unique_lock guard(waiting_->mutex);
    return waiting_->comes.wait_for(guard, patience, [this] { return !waiting_->due.empty(); });
}

void PendingRequests::cancelAll() {
    // What is dropped may itself ask for requests as it goes.
    decltype(waiting_->underWay) underWay;
    decltype(waiting_->due) due;
    const std::scoped_lock guard(waiting_->mutex);
    underWay.swap(waiting_->underWay);
    due.swap(waiting_->due);
    waiting_->onDue = {};
}

}  // namespace gexlo
