// What threads beside the main one do: the watch session reads the store, requests come back.
#include <gtest/gtest.h>

#include <atomic>
#include <semaphore>
#include <thread>

#include "support/launched_phone.h"

namespace gexlo::test {

namespace {

using SecondThread = LaunchedPhone;

TEST_F(SecondThread, reads_whole_timetables_while_the_main_queue_changes_them) {
    std::atomic<bool> done = false;
    std::atomic<int> readings = 0;
    std::thread session([&] {
        while (!done || readings == 0) {
            const std::scoped_lock held(Device::current().lock());
            std::size_t placements = 0;
            std::size_t lessons = 0;
            for (const GXTimetableData* timetable : manager().timetableList()) {
                for (const GXLessonData* lesson : timetable->lessons) {
                    ++lessons;
                    placements += lesson->times.count();
                    EXPECT_FALSE(lesson->name.get().empty());
                }
            }
            EXPECT_EQ(placements, 2 * lessons) << "a turn was seen half done";
            EXPECT_GT(manager().getDataUpdateNo(), 0);
            ++readings;
        }
    });
    for (int i = 0; i < 150; ++i) {
        Device::current().perform([&] {
            GXLessonData& lesson = phone.addSubject("Maths", {mon(1), tue(2)});
            if (i % 4 != 0) manager().removeLesson_inTimetable(lesson, phone.timetable());
            manager().dataUpdateNoUp();
        });
        std::this_thread::yield();
    }
    done = true;
    session.join();
    EXPECT_GT(readings, 0);
}

TEST(SecondThread, wakes_the_main_one_for_the_work_that_it_queues) {
    Phone phone;
    MainQueue& queue = Device::current().mainQueue();
    std::counting_semaphore<> woken(0);
    queue.setWake([&] { woken.release(); });
    const auto main = std::this_thread::get_id();
    int ran = 0;
    const auto work = [&] { ran += std::this_thread::get_id() == main ? 1 : 1000; };
    std::thread second([&] {
        for (int i = 0; i < 100; ++i)
            queue.async(work);
    });
    while (ran < 100) {
        ASSERT_TRUE(woken.try_acquire_for(std::chrono::seconds(30)));
        queue.runQueued();
    }
    second.join();
    EXPECT_EQ(ran, 100);
    while (woken.try_acquire()) {
    }
    queue.turn([&] { queue.async(work); });
    EXPECT_FALSE(woken.try_acquire()) << "a turn runs its own";
    queue.async(work);
    EXPECT_TRUE(woken.try_acquire());
}

TEST(SecondThread, ends_requests_whose_replies_run_once_on_the_main_one_or_never) {
    Phone phone;
    PendingRequests& requests = Device::current().requests();
    const auto main = std::this_thread::get_id();
    std::string replies;
    std::vector<std::thread> workers;
    // The answer is the reply's alone once the request is over.
    const auto ask = [&](const std::string& text, auto work) {
        auto answer = std::make_shared<std::string>("none");
        auto reply = [&replies, &main, answer] {
            EXPECT_EQ(std::this_thread::get_id(), main);
            replies += *answer + " ";
        };
        workers.emplace_back([text, work, answer, request = requests.begin(60, reply)]() mutable {
            if (!work()) return;
            request.finish([&] { *answer = text; });
            EXPECT_TRUE(request.isOver());
        });
    };
    std::binary_semaphore afterTime(0);
    std::binary_semaphore afterEnd(0);
    const auto at = [](std::binary_semaphore& moment) {
        return [&moment] {
            moment.acquire();
            return true;
        };
    };
    const auto settle = [&](std::size_t left) {
        while (requests.count() > left) {
            ASSERT_TRUE(requests.waitForReply(std::chrono::seconds(30)));
            requests.runReply();
        }
    };
    ask("late", at(afterTime));
    for (int i = 0; i < 20; ++i)
        ask("some", [] { return true; });
    settle(1);
    ask("dropped", [] { return false; });
    settle(1);
    phone.advance(60);
    EXPECT_EQ(requests.runReply(), PendingRequests::End::timedOut);
    afterTime.release();
    ask("after the end", at(afterEnd));
    std::string expected;
    for (int i = 0; i < 20; ++i)
        expected += "some ";
    phone.quit();
    afterEnd.release();
    for (std::thread& worker : workers)
        worker.join();
    EXPECT_EQ(replies, expected + "none none ");
}

}  // namespace

}  // namespace gexlo::test
