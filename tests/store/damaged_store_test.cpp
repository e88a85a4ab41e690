// A store file that cannot be read or written: the process ends with its line, and the file
// is as it was.
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <random>

#include "support/child_process.h"
#include "support/exchange_file.h"
#include "support/launched_phone.h"

namespace gexlo::test {

namespace {

constexpr std::size_t kPage = 4096;

class DamagedStore : public LaunchedPhone {
protected:
    DamagedStore() {
        for (int i = 0; i < 12; ++i) {
            GXLessonData& lesson =
                phone.addSubject("Subject " + std::to_string(i), {mon(1), tue(2)});
            // Long enough to run over into pages of its own.
            lesson.memo.anyObject()->content = std::string(6000, static_cast<char>('a' + i));
            phone.addHomework(lesson, "Essay");
        }
        content = contentOfStore();
        phone.quit();
        sound = readFile(phone.storeFile());
    }

    /// What a person would see of it, as one text.
    std::string contentOfStore() {
        std::string text;
        for (const GXLessonData* lesson : manager().lessonListForCurrentTimetable()) {
            text += lesson->name.get() + lesson->memo.anyObject()->content.get();
            for (const auto* time : lesson->times)
                text += std::to_string(time->period.get());
            for (const auto* item : lesson->homework)
                text += item->title.get();
        }
        return text;
    }

    /// The file as it would be found, without what a former run kept beside it.
    void putStore(const std::string& file) {
        for (const char* suffix : {"-wal", "-shm"})
            std::filesystem::remove(phone.storeFile().string() + suffix);
        writeFile(phone.storeFile(), file);
    }

    ChildResult launchInChild(const std::function<void()>& before = [] {}) {
        return runInChild([&] {
            before();
            phone.relaunch();
            std::printf("%s", contentOfStore().c_str());
        });
    }

    void expectRefusal(const ChildResult& result, const std::string& file) {
        EXPECT_TRUE(result.wasKilled);
        EXPECT_EQ(result.code, SIGABRT) << result.errors;
        EXPECT_EQ(result.errors.find("Unresolved error Error Domain="), 0U) << result.errors;
        EXPECT_TRUE(readFile(phone.storeFile()) == file) << "the file was changed";
    }

    std::string content;
    std::string sound;
};

TEST_F(DamagedStore, cut_short_it_is_refused) {
    std::vector<std::size_t> lengths{1, 99, 100, 512, kPage - 1, kPage + 1, sound.size() - 1};
    for (std::size_t pages = 1; pages * kPage < sound.size(); pages += 3)
        lengths.push_back(pages * kPage);
    for (const std::size_t length : lengths) {
        SCOPED_TRACE(length);
        putStore(sound.substr(0, length));
        expectRefusal(launchInChild(), sound.substr(0, length));
    }
}

TEST_F(DamagedStore, overwritten_with_noise_it_is_refused_or_has_lost_nothing) {
    std::mt19937 random(7);
    std::size_t refusals = 0;
    const auto noise = [&](std::size_t length) {
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        return bytes;
    };
    for (std::size_t page = 0; page * kPage < sound.size(); ++page) {
        SCOPED_TRACE(page);
        std::string damaged = sound;
        damaged.replace(page * kPage, kPage, noise(kPage));
        putStore(damaged);
        const ChildResult result = launchInChild();
        if (!result.wasKilled && result.output == content) continue;
        ++refusals;
        expectRefusal(result, damaged);
    }
    EXPECT_GT(refusals, sound.size() / kPage / 2);
    const std::string allNoise = noise(sound.size());
    putStore(allNoise);
    expectRefusal(launchInChild(), allNoise);
}

TEST_F(DamagedStore, read_only_it_is_refused) {
    using std::filesystem::perms;
    for (const char* writable : {".", "Documents", "Preferences", "tmp"})
        std::filesystem::permissions(phone.facts.root / writable, perms::all);
    std::filesystem::permissions(phone.storeFile(), perms::owner_read | perms::others_read);
    std::filesystem::permissions(phone.facts.root / "Group",
                                 perms::others_read | perms::others_exec);
    // Permissions do not bind the superuser.
    constexpr uid_t nobody = 65534;
    const auto drop = [] {
        if (::geteuid() == 0 && ::setuid(nobody) != 0) ::_exit(1);
    };
    expectRefusal(launchInChild(drop), sound);
    std::filesystem::permissions(phone.facts.root / "Group", perms::owner_all);
}

TEST_F(DamagedStore, one_in_the_documents_is_not_moved_onto_a_sound_one) {
    const auto documents = phone.facts.root / "Documents" / "Vetra.sqlite";
    std::filesystem::copy_file(phone.storeFile(), documents);
    change(documents, "UPDATE TimetableInfo SET numWeeks='two'");
    const std::string damaged = readFile(documents);
    expectRefusal(launchInChild(), sound);
    EXPECT_EQ(readFile(documents), damaged);
    std::filesystem::remove(documents);
    EXPECT_EQ(launchInChild().output, content);
}

TEST_F(DamagedStore, on_a_full_disk_the_last_save_that_returned_is_there_whole) {
    const ChildResult result = runInChild([&] {
        phone.relaunch();
        ::signal(SIGXFSZ, SIG_IGN);
        const rlim_t room = sound.size() + 20 * kPage;
        const rlimit limit{room, room};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        for (int i = 0; i < 1000; ++i) {
            phone.addSubject("More " + std::to_string(i)).memo.anyObject()->content =
                std::string(3000, 'x');
            manager().saveContext();
            std::printf("%d\n", i);
            std::fflush(stdout);
        }
    });
    EXPECT_EQ(result.code, SIGABRT);
    EXPECT_EQ(result.errors.find("Unresolved error Error Domain="), 0U) << result.errors;
    const auto returned = std::count(result.output.begin(), result.output.end(), '\n');
    ASSERT_GT(returned, 2);
    phone.relaunch();
    const auto lessons = manager().lessonListForCurrentTimetable();
    const auto whole =
        std::count_if(lessons.begin(), lessons.end(), [](const GXLessonData* lesson) {
            return lesson->memo.anyObject()->content.get().size() == 3000;
        });
    EXPECT_EQ(whole, returned);
}

}  // namespace

}  // namespace gexlo::test
