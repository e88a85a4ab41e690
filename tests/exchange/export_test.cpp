// Files that go out: they come in again as they went, and how they are sent.
#include <sys/resource.h>
#include <algorithm>
#include <csignal>
#include <random>

#include "exchange/exchange_bounds.h"
#include "hosts/headless/outbox.h"
#include "presentation/panels/bottom_menu.h"
#include "support/exchange_file.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

/// What a file says, without what differs from file to file: when it was made, and the numbers
/// that SQLite gives. Items of one owner keep their order.
const std::vector<const char*> kQueries{
    "SELECT exportDataVersion, coreDataVersion, appVersion, minExportDataVersion, "
    "minCoreDataVersion, platform, osVersion FROM data_info",
    "SELECT * FROM timetable",
    "SELECT name, shortName, week, day, period, beginHour, beginMin, endHour, endMin, timetableID "
    "FROM classhour",
    "SELECT * FROM lesson",
    "SELECT name, room, phone, cellPhone, lessonID FROM professor",
    "SELECT week, day, period, room, lessonID FROM classes",
    "SELECT title, content, lessonID, timetableID FROM memo",
    "SELECT lessonID, timetableID, group_concat(title || content || date || repeat || complete) "
    "FROM (SELECT * FROM homework ORDER BY id) GROUP BY 1, 2",
    "SELECT lessonID, timetableID, group_concat(title || content || date || repeat || complete) "
    "FROM (SELECT * FROM exam ORDER BY id) GROUP BY 1, 2",
};

class Export : public Grid {
protected:
    Export() {
        phone.services.composers = outbox;
        relaunch();
        phone.expectLog("file://");
    }

    std::filesystem::path write(const std::string& name) {
        const auto bytes =
            manager().generateDataFileFromTimetable_errorCode(phone.timetable(), nullptr);
        EXPECT_TRUE(bytes);
        const std::filesystem::path file = directory.path() / name;
        writeFile(file, {reinterpret_cast<const char*>(bytes->data()), bytes->size()});
        return file;
    }
    /// Of an export, a thousand more if there is a file to be sent.
    static int codeOf(GXTimetableData& timetable) {
        std::int32_t code = 10;
        return manager().generateDataFileFromTimetable_errorCode(timetable, &code) ? code + 1000
                                                                                   : code;
    }
    int below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
    std::string text() {
        const char* const texts[] = {"", "Maths", "'; DROP", "수학 \"A\"", "é\n1", "%@ %s", "🎒"};
        return texts[below(std::size(texts))];
    }
    static std::string longText(std::size_t length) {
        const std::string line = "긴 글 🎒\n";
        std::string text = line;
        while (text.size() < length)
            text += text;
        text.resize(length - length % line.size());
        return text;
    }
    template <typename Item>
    void addItems(ToMany<Item>& items, Item& (GXDataManager::*addNew)()) {
        for (int n = below(4); n > 0; --n) {
            Item& item = (phone.manager().*addNew)();
            item.title = text();
            item.content = text();
            item.date = NSDate::dateWithTimeIntervalSince1970(below(1 << 30) + below(100) / 64.0);
            item.genDate = NSDate::dateWithTimeIntervalSince1970(below(5));
            item.repeat = below(8) + 100;
            item.complete = below(2) == 0;
            items.addObject(item);
        }
    }
    void addLesson(GXTimetableData& timetable) {
        GXLessonData& lesson = phone.manager().addNewLessonInTimetable(timetable);
        for (auto* member :
             {&lesson.name, &lesson.room1, &lesson.room2, &lesson.room3, &lesson.color,
              &lesson.fontColor, &lesson.professor->name, &lesson.professor->cellphone})
            *member = text();
        lesson.colorAlpha = static_cast<float>(below(11)) / 10;
        lesson.rgbRed = below(256);
        lesson.absenceCount = below(20);
        lesson.latenessCount = below(20);
        for (int n = below(6); n > 0; --n) {
            phone.place(lesson, {below(7), static_cast<float>(below(70)) / 2 + 0.1F, below(2)});
        }
        if (below(3) == 0) phone.manager().removeData(*lesson.memo.anyObject());
        addItems(lesson.homework, &GXDataManager::addNewHomework);
        addItems(lesson.exam, &GXDataManager::addNewExam);
    }
    void fillTimetable() {
        GXTimetableData& timetable = phone.timetable();
        timetable.name = text();
        timetable.firstDay = below(7);
        timetable.lastDay = below(7);
        timetable.lastPeriod = below(34);
        timetable.numWeeks = 1 + below(2);
        timetable.textSize = below(20);
        for (auto* flag :
             {&timetable.useHalfPeriods, &timetable.daysToNumbers, &timetable.daysOnLeft,
              &timetable.showClasstimes, &timetable.useSameClasshours})
            *flag = below(2) == 0;
        for (int n = below(8); n > 0; --n)
            phone.addClasstime(timetable, mon(static_cast<float>(n) + 0.6F, n % 2), 99, n);
        for (auto& row : timetable.classtimes.allObjects()) {
            row->name = text();
            row->shortName = text();
        }
        for (int n = below(6); n > 0; --n)
            addLesson(timetable);
        // The numbers in the store have gaps.
        if (!timetable.lessons.isEmpty() && below(2) == 0) {
            phone.manager().removeLesson_inTimetable(*timetable.lessons.anyObject(), timetable);
        }
        addItems(timetable.homework, &GXDataManager::addNewHomework);
        addItems(timetable.exam, &GXDataManager::addNewExam);
        phone.manager().saveContext();
    }

    std::shared_ptr<Outbox> outbox = std::make_shared<Outbox>();
    TemporaryDirectory directory;
    std::minstd_rand random{7};
};

TEST_F(Export, what_went_out_comes_in_and_goes_out_the_same) {
    std::size_t rows = 0;
    for (int round = 0; round < 40; ++round) {
        phone.manager().setCurrentTimetableNo(phone.manager().addNewTimetable().index.get());
        fillTimetable();
        const auto first = write("first.gexlo");
        Device::current().perform([&] {
            EXPECT_EQ(manager().openTimetableFromDataFile("file://" + first.string()), 10);
        });
        const auto second = write("second.gexlo");
        const auto expected = rowsOf(first, kQueries);
        ASSERT_EQ(rowsOf(second, kQueries), expected) << round;
        rows += expected.size();
        phone.manager().removeTimetable(phone.manager().currentTimetableNo());
    }
    EXPECT_GT(rows, 500U);
}

TEST_F(Export, as_much_as_is_taken_in_goes_out_and_more_is_refused) {
    GXDataManager& data = phone.manager();
    GXTimetableData& timetable = phone.timetable();
    constexpr NSInteger kAbsences = 12;
    while (timetable.lessons.count() < ExchangeBounds::kMostLessons) {
        GXLessonData& lesson = data.addNewLessonInTimetable(timetable);
        lesson.color = "gold";
        lesson.fontColor = "white";
        lesson.absenceCount = kAbsences;
    }
    const auto lessons = timetable.lessons.allObjects();
    GXLessonData& full = *lessons[0];
    // What every file has, and each subject with its teacher and its memo.
    const NSInteger others = 2 + (3 + kAbsences) * ExchangeBounds::kMostLessons;
    GXExamData& exam = data.addNewExam();
    for (auto* member : {&timetable.name, &full.name, &full.room1, &full.professor->phone,
                         &full.memo.anyObject()->content, &exam.title, &exam.content})
        *member = longText(1 << 18);
    exam.date = NSDate::date();
    timetable.exam.addObject(exam);
    for (NSInteger rows = others + 1; rows < ExchangeBounds::kMostRows; ++rows) {
        GXHomeworkData& item = data.addNewHomework();
        item.title = "Chapter 12";
        item.content = rows % 5'000 == 0 ? exam.title.get() : "";
        item.date = NSDate::date();
        lessons[static_cast<std::size_t>(rows) % lessons.size()]->homework.addObject(item);
    }
    data.saveContext();

    const auto first = write("first.gexlo");
    Device::current().perform(
        [&] { EXPECT_EQ(manager().openTimetableFromDataFile("file://" + first.string()), 10); });
    EXPECT_NE(&phone.timetable(), &timetable);
    const auto second = write("second.gexlo");
    for (const char* query : kQueries)  // nobody wants to read the difference
        EXPECT_TRUE(rowsOf(second, {query}) == rowsOf(first, {query})) << query;

    full.latenessCount = 1;
    EXPECT_EQ(codeOf(timetable), 18) << "a row more than is taken in";
    full.latenessCount = 0;
    for (int n = 0; n < 3; ++n)
        data.removeData(*full.homework.anyObject());
    EXPECT_EQ(codeOf(timetable), 1010);
    data.addNewLessonInTimetable(timetable);
    EXPECT_EQ(codeOf(timetable), 18);
}

TEST_F(Export, as_long_a_text_as_is_taken_in_goes_out_and_a_longer_one_is_refused) {
    constexpr std::size_t others = 1000;
    GXExamData& exam = phone.manager().addNewExam();
    exam.content = longText(ExchangeBounds::kMostText - others);
    exam.date = NSDate::date();
    GXTimetableData& timetable = phone.timetable();
    timetable.exam.addObject(exam);
    EXPECT_EQ(codeOf(timetable), 1010);
    Device::current().perform([&] {
        const auto file = phone.facts.temporaryDirectory() / "timetable_data_file.gexlo";
        EXPECT_EQ(manager().openTimetableFromDataFile("file://" + file.string()), 10);
    });
    EXPECT_NE(&phone.timetable(), &timetable);
    EXPECT_TRUE(phone.timetable().exam.anyObject()->content.get() == exam.content.get());
    exam.title = std::string(others, 'x');
    EXPECT_EQ(codeOf(timetable), 18);
}

TEST_F(Export, a_file_says_what_its_readers_ask_for) {
    GXLessonData& second = phone.addSubject("B", {mon(1)});
    GXLessonData& first = phone.addSubject("A");
    first.id = second.id.get() - 7;
    first.professor = nullptr;
    first.color.clear();
    auto& exam = phone.manager().addNewExam();
    phone.timetable().exam.addObject(exam);
    const auto file = write("a.gexlo");
    const std::pair<const char*, std::string> answers[] = {
        {"SELECT group_concat(id || name || ifnull(color, 'none')) FROM lesson", "0Anone,1Bnone"},
        {"SELECT group_concat(ifnull(name, 'none') || lessonID) FROM professor", "none0,1"},
        {"SELECT lessonID || timetableID FROM exam", "-10"},
        {"SELECT typeof(genDate) FROM data_info", "real"},
        {"SELECT minCoreDataVersion = 3.299999952316284 FROM data_info", "1"}};
    for (const auto& [query, answer] : answers)
        EXPECT_EQ(rowsOf(file, {query}), std::vector{query + ("|" + answer)});
}

TEST_F(Export, a_full_disk_cuts_the_file_short_and_an_empty_one_fails) {
    GXTimetableData& timetable = phone.timetable();
    for (int n = 0; n < 200; ++n) {
        auto& item = phone.manager().addNewHomework();
        item.content = std::string(1000, 'x');
        timetable.homework.addObject(item);
    }
    const auto exportWithin = [&](rlim_t room) {
        rlimit before{};
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit narrow{room, before.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &narrow);
        const int code = codeOf(timetable);
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        return code;
    };
    EXPECT_EQ(exportWithin(10'000'000), 1010);
    EXPECT_EQ(exportWithin(100'000), 1018);
    const auto file = phone.facts.root / "tmp" / "timetable_data_file.gexlo";
    EXPECT_GT(rowsOf(file, {"SELECT id FROM homework"}).size(), 50U);
    phone.expectLog("");
    EXPECT_EQ(exportWithin(0), 17);
}

TEST_F(Export, the_menu_is_free_once_the_mail_is_done_with) {
    phone.timetable().name = "학기 1";
    const auto& menu = part<GXBottomMenu>("bottomMenu");
    const auto exportByMail = [this] {
        mainView().openMoreMenu();
        phone.advance(1);
        tap(part("btnExport"));
        answer(0);
        phone.advance(1);
        EXPECT_EQ(find("GXMoreMenu"), nullptr);
    };
    for (const auto result : {MFMailComposeResult::cancelled, MFMailComposeResult::sent}) {
        exportByMail();
        EXPECT_TRUE(menu.isLocked());
        tap(part("btnAdd"));
        EXPECT_EQ(manager().appState(), AppState::normal) << "the mail lies over it";
        outbox->finish(result);
        EXPECT_FALSE(menu.isLocked());
    }
    const auto mails = outbox->takeMails();
    ASSERT_EQ(mails.size(), 1U);
    EXPECT_EQ(mails[0].subject, "Gexlo timetable file");
    EXPECT_TRUE(
        mails[0].body.starts_with("학기 1\n\n\n============================\n"
                                  "  Gexlo for iPhone\n  App Store  :  https://"));
    EXPECT_TRUE(mails[0].body.ends_with("\n============================"));
    ASSERT_EQ(mails[0].attachments.size(), 1U);
    EXPECT_EQ(mails[0].attachments[0].fileName, "20260302.gexlo");
    EXPECT_EQ(mails[0].attachments[0].mimeType, "application/gexlo");

    outbox->setCanSendMail(false);
    exportByMail();
    EXPECT_FALSE(menu.isLocked());
    EXPECT_TRUE(UIWindow::keyWindow().alerts().empty());

    // A directory in its place can be neither removed nor opened.
    outbox->setCanSendMail(true);
    const auto file = phone.facts.root / "tmp" / "timetable_data_file.gexlo";
    std::filesystem::remove(file);
    std::filesystem::create_directories(file / "within");
    exportByMail();
    ASSERT_EQ(UIWindow::keyWindow().alerts().size(), 1U);
    EXPECT_EQ(UIWindow::keyWindow().alerts()[0].message, "Failed to generate data file (16)");
    EXPECT_FALSE(menu.isLocked());
}

}  // namespace

}  // namespace gexlo::test
