// Files that others wrote: what comes in of them, and what is refused and changes nothing.
#include <sys/stat.h>
#include <algorithm>
#include <set>

#include "exchange/exchange_bounds.h"
#include "platform/foundation/user_defaults.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "presentation/panels/bottom_menu.h"
#include "presentation/style/color_manager.h"
#include "store/user_default_keys.h"
#include "support/exchange_file.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

const std::filesystem::path kSamples = GEXLO_SAMPLES;

class Import : public Grid {
protected:
    Import() { phone.expectLog("file://"); }

    std::filesystem::path path(const std::string& name = "a.gexlo") const {
        return directory.path() / name;
    }
    static std::int32_t open(const std::string& url) {
        std::int32_t status = 0;
        Device::current().perform([&] { status = manager().openTimetableFromDataFile(url); });
        return status;
    }
    static std::int32_t open(const std::filesystem::path& file) {
        return open("file://" + file.string());
    }
    /// Of the file with those changes.
    std::int32_t openChanged(const std::string& changes) {
        std::filesystem::remove(path());
        writeExchangeFile(path(), changes);
        return open(path());
    }
    std::vector<std::string> stored() const {
        return rowsOf(phone.storeFile(),
                      {"SELECT * FROM AppSetting", "SELECT * FROM TimetableInfo",
                       "SELECT * FROM Lesson", "SELECT * FROM Homework", "SELECT * FROM Exam"});
    }
    const GXLessonData& subject(const char* name) {
        for (const GXLessonData* lesson : phone.timetable().lessons) {
            if (lesson->name.get() == name) return *lesson;
        }
        throw std::runtime_error(name);
    }
    /// By title; each once.
    template <typename Owner>
    static std::string homeworkOf(const Owner& owner) {
        std::string all;
        for (const GXHomeworkData* item : owner.homework) {
            all += stringWithFormat("%@ %ld %d %.0f|", item->title.get(), item->repeat.get(),
                                    item->complete.get(), item->date.get().timeIntervalSince1970());
        }
        return all;
    }

    TemporaryDirectory directory;
};

TEST_F(Import, a_week_of_five_subjects_comes_in_whole) {
    const NSInteger updates = phone.manager().getDataUpdateNo();
    phone.manager().setStartingTimetable_fixed(0, false);
    EXPECT_EQ(open(kSamples / "university.gexlo"), 10);
    const GXTimetableData& timetable = phone.timetable();
    EXPECT_EQ(timetable.name.get(), "Autumn term");
    EXPECT_EQ(timetable.lessons.count(), 5U);
    EXPECT_EQ(timetable.classtimes.count(), 9U);
    EXPECT_EQ(homeworkOf(timetable), "Return library books 0 0 1795251600|");
    EXPECT_EQ(homeworkOf(subject("Linear Algebra")),
              "Problem set 3 0 0 1794992400|Weekly quiz 103 0 1794819600|");
    EXPECT_EQ(homeworkOf(subject("Organic Chemistry")), "Lab report 0 1 1795165200|");
    EXPECT_EQ(subject("Linear Algebra").exam.count(), 1U);
    const GXLessonData& algebra = subject("Linear Algebra");
    EXPECT_EQ(algebra.professor->phone.get(), "02-555-0101");
    EXPECT_EQ(algebra.memo.count(), 1U) << "the one of the file alone";
    EXPECT_EQ(algebra.memo.anyObject()->content.get(),
              "Bring the formula sheet.\nOffice hours: Tue 14-16");
    const GXLessonData& seminar = subject("Seminar");
    EXPECT_EQ(seminar.absenceCount.get() * 10 + seminar.latenessCount.get(), 21);
    EXPECT_EQ(seminar.color.get(), "orange") << "an old name stays";
    EXPECT_EQ(subject("Programming").id.get() - algebra.id.get(), 3) << "in the file's order";

    EXPECT_TRUE(drawn(1).starts_with("Linear AlgebraB2012-|.|World HistoryHall 1|"));
    EXPECT_NE(phone.manager().currentTimetableNo(), 0);
    EXPECT_EQ(phone.manager().startingTimetableNo(), phone.manager().currentTimetableNo());
    EXPECT_FALSE(phone.manager().fixedStartingTimetable());
    EXPECT_EQ(phone.manager().getDataUpdateNo(), updates);
    EXPECT_TRUE(UIApplication::sharedApplication().scheduledLocalNotifications().empty());
    phone.relaunch();
    EXPECT_EQ(phone.timetable().name.get(), "Autumn term");
    EXPECT_EQ(phone.manager().timetableList().size(), 2U);
}

TEST_F(Import, two_weeks_with_halves_and_breaks_keep_their_places) {
    phone.manager().setStartingTimetable_fixed(0, true);
    EXPECT_EQ(open(kSamples / "school_two_weeks.gexlo"), 10);
    EXPECT_EQ(phone.manager().startingTimetableNo(), 0) << "another one was fixed";
    EXPECT_EQ(phone.timetable().name.get(), "2학년 3반");
    EXPECT_EQ(phone.timetable().classtimes.count(), 17U);
    // Rows: 1, 1.5, 2, 2.5, break, 3, ...
    EXPECT_TRUE(drawn(1).starts_with("국어2-32-|수학2-34---|")) << drawn(1);
    EXPECT_EQ(cell(4, 7, 1).lesson()->name.get(), "수학") << "the second week, period 4";
    EXPECT_EQ(homeworkOf(subject("수학")), "익힘책 42쪽 101 0 1794906000|");
    EXPECT_EQ(phone.timetable().exam.count(), 1U);
}

TEST_F(Import, older_generations_lack_what_came_later) {
    const struct {
        const char* file;
        NSInteger repeat;
    } generations[] = {{"first_generation.gexlo", 0}, {"second_generation.gexlo", 105}};
    for (const auto& [file, repeat] : generations) {
        EXPECT_EQ(open(kSamples / file), 10);
        const GXTimetableData& timetable = phone.timetable();
        EXPECT_TRUE(timetable.daysOnLeft.get());
        EXPECT_TRUE(timetable.useSameClasshours.get());
        EXPECT_FALSE(timetable.useAbsenceCounting.get()) << "read and dropped";
        EXPECT_EQ(timetable.textSize.get(), 15);
        EXPECT_EQ(timetable.classtimes.anyObject()->name.get(), "Period 1");
        EXPECT_EQ(timetable.classtimes.anyObject()->shortName.get(), "");
        EXPECT_EQ(timetable.homework.anyObject()->repeat.get(), repeat);
        EXPECT_EQ(timetable.homework.anyObject()->title.get(), "学級費");
        EXPECT_TRUE(subject("英語").exam.anyObject()->complete.get());
        EXPECT_EQ(subject("英語").fontColor.get(), "black");
        EXPECT_TRUE(subject("英語").memo.isEmpty());
        EXPECT_EQ(cell(1, 1).lesson(), &subject("英語"));
    }
}

TEST_F(Import, a_refused_file_says_why_and_changes_nothing) {
    const auto before = stored();
    int refused = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kSamples)) {
        const std::string name = entry.path().stem().string();
        if (!name.starts_with("refused_")) continue;
        EXPECT_EQ(open(entry.path()), std::stoi(name.substr(name.size() - 2))) << name;
        ++refused;
    }
    EXPECT_EQ(refused, 6);
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(phone.manager().timetableList().size(), 1U);
}

TEST_F(Import, the_first_row_says_who_may_read_and_the_last_one_how) {
    const struct {
        const char* changes;
        std::int32_t status;
    } files[] = {
        {"UPDATE data_info SET minExportDataVersion = 2.0, minCoreDataVersion = 4.0", 10},
        {"UPDATE data_info SET minExportDataVersion = 2.5", 15},
        {"UPDATE data_info SET minCoreDataVersion = 4.01", 15},
        {"UPDATE data_info SET exportDataVersion = 9.0, coreDataVersion = 9.0", 10},
        {"UPDATE data_info SET exportDataVersion = 1e300", 10},
        {"UPDATE data_info SET minExportDataVersion = 9e999", 15},
        {"INSERT INTO data_info VALUES (1.0,4.0,'47',9.0,9.0,'','',0)", 10},
        {"INSERT INTO data_info VALUES (2.0,4.0,NULL,1.0,3.3,'','',0)", 12},
        {"UPDATE timetable SET name = NULL", 12},
        {"UPDATE data_info SET minExportDataVersion = 3; DELETE FROM timetable", 15},
        {"DELETE FROM timetable", 13},
        {"DROP TABLE timetable", 12},
        {"ALTER TABLE timetable DROP COLUMN useSameClasshours", 12},
        {"UPDATE data_info SET exportDataVersion = 1.5; "
         "ALTER TABLE timetable DROP COLUMN useSameClasshours",
         10},
        {"DROP TABLE lesson; DROP TABLE exam; DROP TABLE classhour", 10},
    };
    for (const auto& [changes, status] : files)
        EXPECT_EQ(openChanged(changes), status) << changes;
    EXPECT_TRUE(phone.timetable().lessons.isEmpty()) << "what cannot be queried has no rows";

    while (phone.manager().timetableList().size() < 60)
        phone.manager().addNewTimetable();
    EXPECT_EQ(openChanged(""), 14);
    EXPECT_EQ(openChanged("DELETE FROM timetable"), 13) << "whether there is room comes last";
}

TEST_F(Import, odd_values_are_read_as_far_as_they_can_be) {
    EXPECT_EQ(openChanged("UPDATE lesson SET name = CAST(x'4D00FF' AS TEXT), room1 = x'41FFC3',"
                          "  room2 = NULL, rgbRed = 'red', fontColor = 12;"
                          "UPDATE timetable SET id = 7, numWeeks = '2', useHalfPeriods = 5;"
                          "UPDATE lesson SET timetableID = 7;"
                          "INSERT INTO lesson VALUES "
                          "  (1,'Other','','','','',0,0,0,1,'',0,0,0);"  // another timetable's
                          "INSERT INTO classhour VALUES (1,'P','1',0,99,1.0,9,0,9,50,0);"
                          "INSERT INTO professor VALUES (1,NULL,'C1','','',0),(2,'X','','','',0);"
                          "INSERT INTO exam VALUES (9,'Own','',5.5,0,'1',-1,7);"
                          "DROP TABLE homework; CREATE TABLE homework (id TEXT PRIMARY KEY, title,"
                          "  content, date, repeat, complete, lessonID TEXT, timetableID TEXT)"
                          "  WITHOUT ROWID;"
                          "INSERT INTO homework VALUES ('a','Essay','',1,0,0,0,-1),"
                          "  ('b','Of another','',1,0,0,1,-1),('c','Own','',1,0,0,-1,7)"),
              10);
    const GXTimetableData& timetable = phone.timetable();
    EXPECT_EQ(timetable.numWeeks.get(), 2);
    EXPECT_TRUE(timetable.useHalfPeriods.get());
    ASSERT_EQ(timetable.lessons.count(), 1U);
    const GXLessonData& lesson = *timetable.lessons.anyObject();
    EXPECT_EQ(lesson.name.get() + lesson.room1.get() + lesson.room2.get() + lesson.fontColor.get(),
              "MA\uFFFD\uFFFD12");
    EXPECT_EQ(lesson.rgbRed.get(), 0);
    EXPECT_EQ(lesson.professor->name.get() + lesson.professor->room.get(), "C1") << "the first";
    EXPECT_TRUE(lesson.memo.isEmpty());
    EXPECT_TRUE(timetable.classtimes.isEmpty());
    EXPECT_TRUE(timetable.exam.anyObject()->complete.get());
    EXPECT_EQ(homeworkOf(lesson) + homeworkOf(timetable), "Essay 0 0 1|Own 0 0 1|");
}

/// Which rows belong to the subject 0 and to the timetable 0 is for SQLite to say.
TEST_F(Import, rows_of_odd_owners_take_nothing_from_the_others) {
    const std::string values =
        "(VALUES (0), (1), (-1), ('0'), (' 0 '), ('0.0'), ('-1'), ('-1 '), (0.0), (-1.0), (0.5), "
        "(-0.5), (NULL), (''), ('no one at all, told at some length'), (x'30'), (9e999), "
        "(9223372036854775807))";
    const char* const columns[] = {
        "lessonID INTEGER, timetableID INTEGER",
        "lessonID TEXT, timetableID TEXT",
        "lessonID, timetableID",
        "lessonID REAL, timetableID BLOB",
        "lessonID BLOB, timetableID REAL",
        "lessonID NUMERIC, timetableID INTEGER",
        "lessonID TEXT COLLATE RTRIM, timetableID CHAR COLLATE NOCASE",
        "lessonID INTEGER, timetableID INTEGER, rowid INTEGER DEFAULT 1",
        "lessonID TEXT, timetableID INTEGER, rowid INTEGER PRIMARY KEY",
    };
    const std::string fields = "title,content,date,repeat,complete,lessonID,timetableID";
    for (const char* definition : columns) {
        std::string changes;
        for (const std::string table : {"homework", "exam"}) {
            changes += "DROP TABLE " + table + "; CREATE TABLE " + table +
                       " (id, title CHAR, content CHAR, date DOUBLE, repeat INTEGER, complete "
                       "BOOL, " +
                       std::string(definition) + "); INSERT INTO " + table + " (" + fields +
                       ") SELECT row_number() OVER (), '',1,0,0, a.*, b.* FROM " + values + " a, " +
                       values + " b;";
        }
        ASSERT_EQ(openChanged(changes), 10) << definition;
        const Database file = openDatabase(path());
        const auto titles = [](const auto& items) {
            std::multiset<std::string> all;
            for (const auto* item : items)
                all.insert(item->title.get());
            return all;
        };
        const auto answer = [&](const std::string& query, std::initializer_list<int> owner) {
            const Statement rows = prepare(file.get(), "SELECT title FROM " + query);
            int place = 0;
            for (const int value : owner)
                sqlite3_bind_int64(rows.get(), ++place, value);
            std::multiset<std::string> all;
            while (sqlite3_step(rows.get()) == SQLITE_ROW)
                all.insert(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), 0)));
            return all;
        };
        const auto ofSubject = answer("homework WHERE lessonID=?", {0});
        const auto ofTimetable = answer("exam WHERE lessonID=? AND timetableID=?", {-1, 0});
        EXPECT_GT(ofSubject.size() * ofTimetable.size(), 0U) << definition;
        EXPECT_EQ(titles(subject("Maths").homework), ofSubject) << definition;
        EXPECT_EQ(titles(subject("Maths").exam), ofSubject) << definition;
        EXPECT_EQ(titles(phone.timetable().homework), ofTimetable) << definition;
        EXPECT_EQ(titles(phone.timetable().exam), ofTimetable) << definition;
    }
}

TEST_F(Import,
       a_file_beyond_all_bounds_or_with_a_schema_that_computes_is_refused_and_changes_nothing) {
    const auto before = stored();
    // As many as are taken, besides the rows that are there already.
    const std::string numbers =
        "WITH RECURSIVE n(i) AS (SELECT 9 UNION ALL SELECT i+1 FROM n LIMIT " +
        std::to_string(ExchangeBounds::kMostRows) + ") ";
    const auto blob = [](std::size_t length) { return "zeroblob(" + std::to_string(length) + ")"; };
    const std::string changes[] = {
        "UPDATE lesson SET absenceCount = 1000000000",
        "UPDATE lesson SET latenessCount = -9223372036854775807 - 1",
        "UPDATE timetable SET lastDay = 2000000000",
        "UPDATE timetable SET firstPeriod = -2000000000",
        "UPDATE classes SET period = 9e999",
        "UPDATE homework SET date = -1e300",
        "UPDATE timetable SET name = " + blob(ExchangeBounds::kMostText),
        "UPDATE lesson SET room1 = " + blob(ExchangeBounds::kMostText / 2) +
            "; UPDATE homework SET content = (SELECT room1 FROM lesson)",
        numbers + "INSERT INTO classes SELECT i,0,1,1,'',0 FROM n",
        numbers + "INSERT INTO lesson SELECT i,'','','','','',0,0,0,1,'',0,0,0 FROM n LIMIT 2500",
        numbers + "INSERT INTO data_info SELECT 2,4,'',1,1,'','',i FROM n",
        // Rows of others, which each subject has to pass.
        numbers + "INSERT INTO exam SELECT i,'','',0,0,0,77,77 FROM n;" + numbers +
            "INSERT INTO lesson SELECT i,'','','','','',0,0,0,1,'',0,0,0 FROM n LIMIT 400",
        numbers + "INSERT INTO lesson SELECT i,'','','','','',0,0,0,1,'',900,900,0 FROM n LIMIT 40",
        // Owners that take long to compare.
        "DROP TABLE classes; CREATE TABLE classes (id,week,day,period,room,lessonID);"
        "INSERT INTO classes VALUES (1,0,1,1,'',hex(zeroblob(90000)))",
        // A schema that takes long to read, over and over.
        "PRAGMA writable_schema = ON;" + numbers +
            "INSERT INTO sqlite_schema SELECT 'table', 'x', 'x', 2,"
            "  'CREATE TABLE IF NOT EXISTS exam(x)' FROM n LIMIT 100000",
        // A schema that computes.
        "DROP TABLE data_info; CREATE VIEW data_info(exportDataVersion,coreDataVersion,appVersion,"
        "minExportDataVersion,minCoreDataVersion,platform,osVersion,genDate) AS " +
            std::string("SELECT 2.0,4.0,'47',1.0,3.3,'','',0"),
        "DROP TABLE timetable; CREATE VIRTUAL TABLE timetable USING fts5(id,name,firstDay,lastDay,"
        "firstPeriod,lastPeriod,useHalfPeriods,daysToNumbers,numWeeks,daysOnLeft,showClassHours,"
        "useSameClasshours,textSize,titleProfessor,titleRoom,useAbsenceCounting);"
        "INSERT INTO timetable(id,name) VALUES (0,'x')",
        "ALTER TABLE timetable DROP COLUMN textSize;"
        "ALTER TABLE timetable ADD COLUMN textSize AS (instr(name, 'x'))",
        // Twice as much to do for each line.
        "DROP TABLE data_info; CREATE VIEW data_info AS SELECT 1; PRAGMA writable_schema = ON;"
        "UPDATE sqlite_schema SET sql = 'CREATE VIEW data_info AS WITH a0 AS (SELECT 1)' || "
        "  (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 40) "
        "  SELECT group_concat(printf(', a%d AS (SELECT 1 FROM a%d x, a%d)', i, i-1, i-1), '') "
        "  FROM n) || ' SELECT 1 FROM a40' WHERE name = 'data_info'",
    };
    for (const std::string& change : changes)
        EXPECT_EQ(openChanged(change), 12) << change.substr(0, 100);
    std::filesystem::remove(path());
    writeExchangeFile(path());
    std::filesystem::resize_file(path(), (96U << 20) + 1);
    EXPECT_EQ(open(path()), 12);
    EXPECT_EQ(stored(), before);
    std::filesystem::resize_file(path(), 96U << 20);
    EXPECT_EQ(open(path()), 10);
    EXPECT_EQ(openChanged("CREATE TRIGGER t AFTER INSERT ON lesson BEGIN DELETE FROM lesson; END"),
              10);
}

TEST_F(Import, a_file_is_only_read_whatever_its_name_and_journals_say) {
    const std::string escaped =
        "file://" + directory.path().string() + "/a%20%EA%B0%80%23%3f.gexlo";
    writeExchangeFile(path("a 가#?.gexlo"));
    EXPECT_EQ(open(escaped), 10);
    EXPECT_EQ(open(escaped + "?mode=rwc&cache=shared&vfs=none#end"), 10);

    // One that was left in the middle of being written.
    writeExchangeFile(path(), "PRAGMA journal_mode = WAL");
    writeFile(path("a.gexlo-wal"), "not a log");
    writeFile(path("a.gexlo-journal"), "nor a journal");
    const auto contents = [this] {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(directory.path()))
            all.push_back(entry.path().string() + readFile(entry.path()));
        std::sort(all.begin(), all.end());
        return all;
    };
    const auto before = contents();
    EXPECT_EQ(open(path()), 10);
    EXPECT_EQ(open(path("missing.gexlo")), 12);
    EXPECT_EQ(open("file://" + path("new.gexlo").string() + "?mode=rwc"), 12);
    EXPECT_EQ(contents(), before);

    ::mkfifo(path("pipe").c_str(), 0600);
    const std::string refused[] = {
        "file://" + path("pipe").string(),
        "file://" + directory.path().string(),
        "file://" + path("no/dir").string(),
        "file://elsewhere" + path().string(),
        "file://" + path().string() + "%00.x",
        "file://",
        "file:///dev/zero",
        "http://" + path().string(),
    };
    for (const std::string& url : refused) {
        phone.expectLog(url);
        EXPECT_EQ(open(url), 11) << url;
    }
}

// MARK: reception

TEST_F(Import, the_person_is_asked_and_the_last_file_counts) {
    const auto receive = [](const std::string& url) {
        UIApplication::sharedApplication().receiveURL(url);
    };
    const auto& alerts = UIWindow::keyWindow().alerts();
    for (const char* url : {"http://x/a.gexlo", "mailto:x", "", "tessaly://open", "x://tessaly"})
        receive(url);
    EXPECT_TRUE(alerts.empty());

    writeExchangeFile(path());
    receive("file://" + path().string());
    ASSERT_EQ(alerts.size(), 1U);
    EXPECT_EQ(alerts[0].buttons[1].title, "Add");
    answer(0);
    EXPECT_EQ(phone.manager().timetableList().size(), 1U);

    phone.background();
    receive("file://" + (kSamples / "refused_text_12.gexlo").string());
    EXPECT_EQ(UIApplication::sharedApplication().applicationState(), UIApplicationState::active);
    receive("file://" + path().string());
    answer(1);
    answer(1);
    EXPECT_TRUE(alerts.empty()) << "both questions were for the second file";
    EXPECT_EQ(phone.manager().timetableList().size(), 3U);

    receive("file://" + (kSamples / "refused_newer_store_15.gexlo").string());
    answer(1);
    ASSERT_EQ(alerts.size(), 1U);
    EXPECT_EQ(alerts[0].title, "Failed to Import");
    EXPECT_EQ(alerts[0].message, "File version too High. (15)");
}

TEST_F(Import, whatever_is_open_closes_and_frees_the_menu) {
    writeExchangeFile(path());
    const auto menuIsLocked = [] { return part<GXBottomMenu>("bottomMenu").isLocked(); };
    void (*const opens[])() = {
        [] { manager().openAddLessonView(); },
        [] {
            manager().openEditLessonView(
                GXDataManager::manager().currentTimetableData()->lessons.anyObject());
        },
        [] { manager().openLessonSelector(); },
        [] { mainView().openMoreMenu(); },
    };
    phone.addSubject("Old", {mon(1)});
    redraw();
    for (const auto openPanel : opens) {
        openPanel();
        phone.advance(1);
        ASSERT_TRUE(menuIsLocked());
        EXPECT_EQ(open(path()), 10);
        phone.advance(1);
        EXPECT_FALSE(menuIsLocked());
        EXPECT_EQ(manager().appState(), AppState::normal);
        EXPECT_EQ(drawn(1).substr(0, 10), ".|MathsB1|");
        EXPECT_EQ(phone.timetable().lessons.count(), 1U);
    }
}

}  // namespace

}  // namespace gexlo::test
