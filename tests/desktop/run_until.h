// Waiting for what events bring.
#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <future>

namespace gexlo::test {

/// Lets events come until one of them, or what happens elsewhere meanwhile, makes it true.
template <typename Condition>
void runUntil(Condition isTrue) {
    QTimer look;
    look.start(10);
    while (!isTrue())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Gives what the work gives in a thread of its own, while events come here.
template <typename Work>
auto runBeside(Work work) {
    std::future result = std::async(std::launch::async, work);
    runUntil([&] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    return result.get();
}

}  // namespace gexlo::test
