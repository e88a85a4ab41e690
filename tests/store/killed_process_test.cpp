// Killed at any moment, the store holds every save that had returned, whole.
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <random>
#include <set>

#include "support/child_process.h"
#include "support/launched_phone.h"

namespace gexlo::test {

namespace {

constexpr int kRounds = 300;
constexpr NSInteger kKept = 20;  // subjects; older ones go as new ones come

/// Shared with the child: the number of the last save that returned.
struct Progress {
    Progress()
        : returned(*static_cast<std::atomic<NSInteger>*>(
              ::mmap(nullptr, sizeof(std::atomic<NSInteger>), PROT_READ | PROT_WRITE,
                     MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
    ~Progress() { ::munmap(&returned, sizeof(std::atomic<NSInteger>)); }
    std::atomic<NSInteger>& returned;
};

/// The n-th save: a subject comes, the one that came twenty saves before goes.
void saveStep(GXDataManager& manager, NSInteger n) {
    GXTimetableData& timetable = *manager.currentTimetableData();
    timetable.name = std::to_string(n);
    auto& lesson = manager.addNewData<GXLessonData>();
    lesson.id = n;
    lesson.sortIndex = n;
    lesson.name = "Subject " + std::to_string(n);
    lesson.memo.addObject(manager.addNewMemo());
    lesson.memo.anyObject()->content = std::string(static_cast<std::size_t>(n % 7) * 1000, 'm');
    lesson.professor = &manager.addNewProfessor();
    for (int i = 0; i < 3; ++i)
        lesson.times.addObject(manager.addNewDayNPeriod());
    manager.appSettingData().lastLessonIndex = n;
    timetable.lessons.addObject(lesson);
    for (GXLessonData* old : timetable.lessons.allObjects()) {
        if (old->id.get() <= n - kKept) manager.context()->deleteObject(*old);
    }
    manager.saveContext();
}

/// The whole state follows from the number of the last save.
void expectStateAfter(GXDataManager& manager, NSInteger n) {
    const auto lessons = manager.dataList<GXLessonData>();
    ASSERT_EQ(static_cast<NSInteger>(lessons.size()), std::min(n, kKept));
    std::set<NSInteger> ids;
    for (const GXLessonData* lesson : lessons) {
        ids.insert(lesson->id.get());
        ASSERT_EQ(lesson->times.count(), 3U);
        ASSERT_EQ(lesson->memo.count(), 1U);
        EXPECT_EQ(lesson->memo.anyObject()->content.get().size(),
                  static_cast<std::size_t>(lesson->id.get() % 7) * 1000);
        EXPECT_TRUE(lesson->professor);
        EXPECT_TRUE(lesson->timetable);
    }
    EXPECT_EQ(ids.size(), lessons.size());
    if (!ids.empty()) {
        EXPECT_EQ(*ids.rbegin(), n);
    }
    EXPECT_EQ(manager.dataList<GXDayNPeriodData>().size(), lessons.size() * 3);
    EXPECT_EQ(manager.dataList<GXProfessorData>().size(), lessons.size());
    ASSERT_EQ(manager.dataList<GXAppSettingData>().size(), 1U);
    EXPECT_EQ(manager.appSettingData().lastLessonIndex.get(), n == 0 ? -1 : n);
    EXPECT_EQ(manager.timetableList().size(), 1U);
}

void waitFor(const std::function<bool()>& condition) {
    constexpr int step = 100;  // microseconds
    constexpr int longest = 60'000'000 / step;
    for (int i = 0; i < longest && !condition(); ++i)
        ::usleep(step);
}

using KilledProcess = LaunchedPhone;

TEST_F(KilledProcess, every_save_that_returned_is_there_whole) {
    phone.timetable().name = "0";
    manager().saveContext();
    Progress progress;
    progress.returned = 0;
    std::mt19937 random(11);
    NSInteger last = 0;
    for (int round = 0; round < kRounds && !HasFailure(); ++round) {
        phone.quit();
        const NSInteger first = last + 1;
        Child child([&] {
            phone.relaunch();
            for (NSInteger n = first;; ++n) {
                // Saves in the middle of turns, and turns that end with their file on the disk.
                if (n % 3 == 0) {
                    Device::current().perform([&] { saveStep(manager(), n); });
                } else {
                    saveStep(manager(), n);
                }
                progress.returned = n;
            }
        });
        // Some fall into the launch, however slow the machine is; the others come between saves.
        if (round % 4 != 0) waitFor([&] { return progress.returned >= first; });
        ::usleep(static_cast<useconds_t>(random() % 10'000));
        child.kill();
        phone.relaunch();
        last = std::stol(phone.timetable().name.get());
        const NSInteger returned = progress.returned;
        EXPECT_TRUE(last == returned || last == returned + 1) << last << " of " << returned;
        expectStateAfter(manager(), last);
        progress.returned = last;
    }
    EXPECT_GT(last, kRounds / 2) << "hardly anything was saved between the kills";
}

TEST_F(KilledProcess, the_end_of_a_turn_that_saved_leaves_all_in_the_file_itself) {
    Device::current().perform([&] {
        phone.timetable().name = "seen done";
        manager().saveContext();
    });
    // A power cut may leave no more than what had been brought to the disk: not the log.
    const auto log = phone.storeFile().string() + "-wal";
    const std::string file = readFile(phone.storeFile());
    phone.quit();
    std::filesystem::remove(log);
    writeFile(phone.storeFile(), file);
    phone.relaunch();
    EXPECT_EQ(phone.timetable().name.get(), "seen done");
}

}  // namespace

}  // namespace gexlo::test
