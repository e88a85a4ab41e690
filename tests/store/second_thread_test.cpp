// The store read from a thread that is not the main one, as the watch session does.
#include <atomic>
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

}  // namespace

}  // namespace gexlo::test
