// Lets the process end in order when it is told to by a signal.
#pragma once

#include <QSocketNotifier>
#include <functional>

namespace gexlo {

/// One at a time, from construction to end; before and after, the signals end the process as
/// they do any other. One that the process was started to ignore stays ignored, and the second of
/// a kind ends the process at once.
class TerminationSignals final {
public:
    /// `asked` is called from the event loop.
    explicit TerminationSignals(std::function<void()> asked);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    std::function<void()> asked_;
    QSocketNotifier arrived_{QSocketNotifier::Read};
};

}  // namespace gexlo
