#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "platform/persistence/managed_object_context.h"
#include "store/entities.h"
#include "support/exchange_file.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

template <typename T>
T& add(NSManagedObjectContext& context) {
    return static_cast<T&>(*context.insertNewObjectForEntityForName(T::entity.name));
}

template <typename T>
std::vector<T*> all(NSManagedObjectContext& context, NSFetchRequest request = {}) {
    request.entityName = T::entity.name;
    std::optional<NSError> error;
    std::vector<T*> objects;
    for (NSManagedObject* object : context.executeFetchRequest(request, error))
        objects.push_back(static_cast<T*>(object));
    EXPECT_FALSE(error) << error->description() << error->userInfoDescription();
    return objects;
}

void save(NSManagedObjectContext& context) {
    const auto error = context.save();
    EXPECT_FALSE(error) << error->description() << error->userInfoDescription();
}

/// A store file with a context on it.
struct Opened {
    explicit Opened(const std::filesystem::path& file) {
        refusal = coordinator.addPersistentStoreWithType_URL_options(NSSQLiteStoreType, file, {});
    }
    NSPersistentStoreCoordinator coordinator{vetraModel()};
    std::optional<NSError> refusal;
    NSManagedObjectContext context{coordinator};
};

class ObjectStore : public testing::Test {
protected:
    ObjectStore() { reopen(); }
    void reopen() {
        store.reset();
        store = std::make_unique<Opened>(file);
        EXPECT_FALSE(store->refusal);
    }
    void saveAndReopen() {
        save(context());
        reopen();
    }
    NSManagedObjectContext& context() { return store->context; }
    /// A subject in a timetable with a teacher and homework, all of that name.
    GXLessonData& addSubject(const std::string& name) { return addSubject(context(), name); }
    static GXLessonData& addSubject(NSManagedObjectContext& to, const std::string& name) {
        auto& lesson = add<GXLessonData>(to);
        auto& homework = add<GXHomeworkData>(to);
        lesson.timetable = &add<GXTimetableData>(to);
        lesson.professor = &add<GXProfessorData>(to);
        homework.lesson = &lesson;
        lesson.name = name;
        lesson.timetable->name = name;
        lesson.professor->name = name;
        homework.title = name;
        return lesson;
    }
    static void expectSubjects(NSManagedObjectContext& in, const std::set<std::string>& expected) {
        std::set<std::string> names;
        for (const GXLessonData* lesson : all<GXLessonData>(in)) {
            const std::string& name = *names.insert(lesson->name.get()).first;
            EXPECT_EQ(lesson->timetable->name.get(), name);
            EXPECT_EQ(lesson->professor->name.get(), name);
            EXPECT_EQ(lesson->homework.anyObject()->title.get(), name);
        }
        EXPECT_EQ(names, expected);
    }
    std::optional<NSError> migrate() {
        return store->coordinator.migratePersistentStore_toURL_options_withType(
            *store->coordinator.store(), target, {}, NSSQLiteStoreType);
    }

    Phone phone;
    const std::filesystem::path file = phone.facts.root / "store.sqlite";
    const std::filesystem::path target = phone.facts.root / "target.sqlite";
    std::unique_ptr<Opened> store;
};

TEST_F(ObjectStore, an_attribute_is_absent_until_it_is_set_and_comes_back_as_it_was) {
    constexpr NSInteger large = NSInteger{1} << 53;
    const NSDate date = NSDate::dateWithTimeIntervalSince1970(-1772406000.123457);
    const std::vector<std::pair<const char*, std::vector<Object>>> attributes{
        {"title", {Object(), "", std::string("a\0b", 3), "it's \"quoted\"; --", " 한국어 🎒 "}},
        {"index", {Object(), 0, -large, large, 7}},
        {"complete", {Object(), false, true, false, true}},
        {"date", {Object(), NSDate(), date, NSDate(), date}},
        {"alarm1day", {Object(), NSData(), NSData{0, 255, 39}, NSData{}, NSData{1}}}};
    for (std::size_t row = 0; row < 5; ++row) {
        auto& homework = add<GXHomeworkData>(context());
        add<GXDayNPeriodData>(context()).period = 2.3f;
        for (const auto& [key, values] : attributes) {
            homework.setValue_forKey(values[1], key);
            homework.setValue_forKey(values[row], key);
        }
    }
    saveAndReopen();
    EXPECT_EQ(all<GXDayNPeriodData>(context())[4]->period.get(), 2.3f);
    for (std::size_t row = 0; row < 5; ++row) {
        for (const auto& [key, values] : attributes)
            EXPECT_EQ(all<GXHomeworkData>(context())[row]->valueForKey(key), values[row]) << key;
    }
    GXHomeworkData& absent = *all<GXHomeworkData>(context())[0];
    EXPECT_EQ(absent.index.get(), 0);
    EXPECT_EQ(absent.title.get(), "");
    absent.index = 0;
    EXPECT_TRUE(absent.index.isSet() && context().hasChanges());
}

TEST_F(ObjectStore, a_removed_object_stays_as_an_empty_shell) {
    for (const bool wasSaved : {false, true}) {
        GXLessonData& lesson = addSubject("Maths");
        if (wasSaved) save(context());
        GXTimetableData& timetable = *lesson.timetable.get();
        GXHomeworkData& homework = **lesson.homework.begin();
        GXProfessorData& teacher = *lesson.professor.get();
        context().deleteObject(lesson);
        EXPECT_TRUE(lesson.isDeleted() && homework.isDeleted() && teacher.isDeleted());
        EXPECT_FALSE(lesson.name.isSet() || homework.title.isSet() || teacher.name.isSet());
        EXPECT_FALSE(lesson.timetable || homework.lesson || teacher.lesson);
        // What comes late changes nothing.
        lesson.name = "late";
        timetable.lessons.addObject(lesson);
        teacher.lesson = &lesson;
        context().deleteObject(lesson);
        EXPECT_TRUE(timetable.lessons.isEmpty());
        save(context());
        EXPECT_TRUE(lesson.isDeleted());
        reopen();
        EXPECT_TRUE(all<GXLessonData>(context()).empty());
        EXPECT_TRUE(all<GXHomeworkData>(context()).empty());
        EXPECT_TRUE(all<GXProfessorData>(context()).empty());
    }
}

TEST_F(ObjectStore, a_fetch_filters_and_sorts_what_is_not_saved_and_what_is_absent) {
    const auto day = [](int n) { return NSDate::dateWithTimeIntervalSince1970(n * 86400.0); };
    const std::vector<std::pair<Object, int>> rows{{"a", 2}, {{}, 1}, {"c", 2}, {{}, 0}, {"b", -9}};
    for (const auto& [title, index] : rows) {
        auto& homework = add<GXHomeworkData>(context());
        homework.setValue_forKey(title, "title");
        homework.index = index;
        if (index != 0) homework.date = day(index);
        if (index != 0) homework.alarm1day = NSData{static_cast<std::uint8_t>(index)};
        if (index == 2) homework.complete = true;
    }
    const auto fetched = [&](std::optional<NSPredicate> filter, NSSortDescriptor order) {
        std::string keys;
        for (const auto* homework : all<GXHomeworkData>(context(), {"", filter, order}))
            keys += std::to_string(homework->rowKey());
        return keys;
    };
    EXPECT_EQ(fetched({}, {"title", true}), "24153");
    EXPECT_EQ(fetched({}, {"title", false}), "35124");
    EXPECT_EQ(fetched({}, {"index", true}), "54213");
    EXPECT_EQ(fetched({}, {"index", false}), "13245");
    EXPECT_EQ(fetched({}, {"date", true}), "45213");
    const std::vector<std::tuple<const char*, Object, const char*>> cases{
        {"index", 2.0, "13"},          {"index", 0, "4"},     {"complete", 1, "13"},
        {"complete", false, ""},       {"title", {}, "24"},   {"title", "", ""},
        {"title", "b", "5"},           {"date", day(1), "2"}, {"date", 0, ""},
        {"alarm1day", NSData{1}, "2"}, {"no key", 1, ""}};
    for (const auto& [key, value, expected] : cases)
        EXPECT_EQ(fetched(NSPredicate{key, value}, {"no key"}), expected) << key;
    std::string equals;
    for (int i = 0; i < 40; ++i) {
        auto& homework = add<GXHomeworkData>(context());
        homework.index = 7;
        equals += std::to_string(homework.rowKey());
    }
    EXPECT_EQ(fetched({}, {"index", false}), equals + "13245");
}

TEST_F(ObjectStore, a_second_context_sees_what_was_saved_and_catches_up) {
    GXLessonData& maths = addSubject("Maths");
    GXLessonData& art = addSubject("Art");
    maths.room2 = "7";
    NSManagedObjectContext other(store->coordinator);
    expectSubjects(other, {});
    save(context());
    expectSubjects(other, {"Maths", "Art"});
    GXLessonData& seen = *all<GXLessonData>(other)[0];
    GXHomeworkData& gone = *all<GXLessonData>(other)[1]->homework.anyObject();
    maths.room1 = "12";
    maths.room2.clear();
    maths.color = "#111";
    maths.homework.addObject(add<GXHomeworkData>(context()));
    context().deleteObject(art);
    seen.color = "#222";
    expectSubjects(other, {"Maths", "Art"});
    save(context());
    addSubject(other, "Music");
    seen.homework.addObject(*maths.homework.anyObject());  // of another graph
    expectSubjects(other, {"Maths", "Music"});
    EXPECT_EQ(seen.color.get(), "#222");
    EXPECT_EQ(seen.homework.count(), 2);
    EXPECT_TRUE(gone.isDeleted() && !gone.title.isSet());
    other.refreshObject_mergeChanges(seen, false);
    EXPECT_EQ(seen.color.get() + seen.room1.get(), "#11112");
    EXPECT_FALSE(seen.room2.isSet());
    seen.color = "#333";
    save(other);
    expectSubjects(context(), {"Maths", "Music"});
    EXPECT_EQ(maths.color.get() + maths.room1.get(), "#33312");
}

TEST_F(ObjectStore, no_removal_leaves_a_row_that_refers_to_nothing) {
    addSubject("Maths");
    save(context());
    NSManagedObjectContext other(store->coordinator);
    other.deleteObject(*all<GXTimetableData>(other)[0]);
    all<GXLessonData>(context())[0]->homework.addObject(add<GXHomeworkData>(context()));
    save(context());
    save(other);
    reopen();
    expectSubjects(context(), {});
    // Two rows for the one teacher of a subject.
    addSubject("Art");
    addSubject("Music");
    save(context());
    change(file, "UPDATE Professor SET lesson=(SELECT max(rowKey) FROM Lesson)");
    reopen();
    context().deleteObject(*all<GXLessonData>(context()).back());
    saveAndReopen();
    EXPECT_EQ(all<GXLessonData>(context()).size(), 1);
}

TEST_F(ObjectStore, a_move_brings_all_rows_beside_those_of_the_other_file) {
    for (const bool wasRead : {false, true}) {
        reopen();
        if (!wasRead) addSubject("Maths");
        saveAndReopen();
        reopen();
        std::filesystem::remove(target);
        Opened former(target);
        addSubject(former.context, "Art");
        addSubject(former.context, "Music");
        add<GXTimetableData>(former.context);
        save(former.context);
        const std::string before = readFile(file);
        if (wasRead) expectSubjects(context(), {"Maths"});
        EXPECT_FALSE(migrate());
        expectSubjects(context(), {"Art", "Maths", "Music"});
        EXPECT_EQ(store->coordinator.store()->url(), target);
        addSubject("History");
        all<GXLessonData>(context()).at(0)->room1 = "12";
        save(context());
        Opened moved(target);
        expectSubjects(moved.context, {"Art", "History", "Maths", "Music"});
        store.reset();
        EXPECT_EQ(readFile(file), before);
    }
}

TEST_F(ObjectStore, a_move_that_fails_leaves_both_files_and_no_store) {
    addSubject("Maths");
    saveAndReopen();
    change(target, "CREATE TABLE other (x)");
    const std::string before = readFile(file) + readFile(target);
    Database rival = openDatabase(target);
    EXPECT_EQ(execute(rival.get(), "BEGIN IMMEDIATE"), SQLITE_OK);
    Device::current().perform([&] { EXPECT_TRUE(migrate()); });
    rival.reset();
    EXPECT_FALSE(store->coordinator.store());
    std::optional<NSError> error;
    EXPECT_TRUE(context().executeFetchRequest({"Lesson"}, error).empty() && error);
    EXPECT_EQ(readFile(file) + readFile(target), before);
}

TEST_F(ObjectStore, a_file_of_an_earlier_model_opens_with_what_it_lacks_absent) {
    addSubject("Maths").homework.anyObject()->repeat = 7;
    save(context());
    store.reset();
    change(file,
           "ALTER TABLE Homework DROP COLUMN repeat; DROP TABLE Exam;"
           "ALTER TABLE Homework DROP COLUMN timetable");
    reopen();
    expectSubjects(context(), {"Maths"});
    GXHomeworkData& homework = *all<GXHomeworkData>(context())[0];
    EXPECT_FALSE(homework.repeat.isSet() || homework.timetable);
    homework.repeat = 3;
    homework.timetable = all<GXTimetableData>(context())[0];
    add<GXExamData>(context());
    saveAndReopen();
    EXPECT_EQ(all<GXTimetableData>(context())[0]->homework.anyObject()->repeat.get(), 3);
    EXPECT_EQ(all<GXExamData>(context()).size(), 1);
}

TEST_F(ObjectStore, a_file_that_is_no_store_or_a_later_one_is_refused_unchanged) {
    addSubject("Maths");
    save(context());
    store.reset();
    const std::string whole = readFile(file);
    change(file, "PRAGMA user_version=99");
    for (const std::string& contents :
         {readFile(file), whole.substr(0, 100), whole.substr(0, 16) + std::string(5000, '\0')}) {
        writeFile(file, contents);
        EXPECT_TRUE(Opened(file).refusal) << contents.size();
        EXPECT_EQ(readFile(file), contents);
    }
}

TEST_F(ObjectStore, a_row_of_a_wrong_kind_is_refused_by_the_name_of_what_is_wrong) {
    addSubject("Maths").times.addObject(add<GXDayNPeriodData>(context()));
    save(context());
    store.reset();
    const std::string whole = readFile(file);
    const std::vector<std::array<std::string, 3>> cases{
        {"Homework", "index", "'seven'"},   {"Homework", "index", "1.5"},
        {"Homework", "complete", "'yes'"},  {"Homework", "index", "9223372036854775807"},
        {"Homework", "title", "x'61'"},     {"Homework", "title", "CAST(x'61ff' AS TEXT)"},
        {"Homework", "date", "'soon'"},     {"Homework", "alarm1day", "'bytes'"},
        {"DayNPeriod", "period", "'late'"}, {"Homework", "lesson", "'Maths'"},
        {"Homework", "lesson", "77"},       {"Professor", "lesson", "0"},
        {"Homework", "rowKey", "-4"},       {"Homework", "rowKey", "9223372036854775807"},
        {"Homework", "lesson", "1 << 63"}};
    for (const auto& [entity, key, value] : cases) {
        const std::string damage = "UPDATE " + entity + " SET \"" + key + "\"=" + value;
        writeFile(file, whole);
        change(file, damage);
        const std::string damaged = readFile(file);
        reopen();
        std::optional<NSError> error;
        for (int again = 0; again < 2; ++again)
            EXPECT_TRUE(context().executeFetchRequest({"Lesson"}, error).empty());
        ASSERT_TRUE(error) << damage;
        EXPECT_EQ(error->userInfo["NSValidationErrorObject"],
                  entity + " " + (key == "rowKey" ? value : "1"));
        EXPECT_EQ(error->userInfo["NSValidationErrorKey"], key) << damage;
        add<GXHomeworkData>(context());
        EXPECT_TRUE(context().save().has_value()) << damage;
        store.reset();
        EXPECT_EQ(readFile(file), damaged) << damage;
    }
}

/// Rows by their keys, each with the key of the subject that it hangs under.
struct Graph {
    std::set<NSInteger> lessons;
    std::map<NSInteger, NSInteger> homework, teachers;
    bool operator==(const Graph&) const = default;
};

/// What a context holds, told from either side of the relationships.
Graph graphOf(NSManagedObjectContext& context, bool fromAbove) {
    Graph graph;
    const auto key = [&](auto& lesson) { return lesson && !fromAbove ? lesson->rowKey() : 0; };
    for (const auto* row : all<GXHomeworkData>(context))
        graph.homework[row->rowKey()] = key(row->lesson);
    for (const auto* row : all<GXProfessorData>(context))
        graph.teachers[row->rowKey()] = key(row->lesson);
    for (const auto* lesson : all<GXLessonData>(context)) {
        graph.lessons.insert(lesson->rowKey());
        if (!fromAbove) continue;
        for (const auto* row : lesson->homework)
            graph.homework[row->rowKey()] = lesson->rowKey();
        if (lesson->professor) graph.teachers[lesson->professor->rowKey()] = lesson->rowKey();
    }
    return graph;
}

TEST_F(ObjectStore, random_changes_lead_where_a_simple_model_leads) {
    std::mt19937 random(7);
    const auto pick = [&](const auto& rows) {
        return rows.empty() || random() % 5 == 0 ? nullptr : rows[random() % rows.size()];
    };
    Graph model;
    Graph saved;
    for (int step = 0; step < 4'000; ++step) {
        GXLessonData* lesson = pick(all<GXLessonData>(context()));
        GXHomeworkData* homework = pick(all<GXHomeworkData>(context()));
        GXProfessorData* teacher = pick(all<GXProfessorData>(context()));
        const NSInteger key = lesson ? lesson->rowKey() : 0;
        const auto isUnder = [&](const auto& row) { return row.second == key; };
        const bool fromAbove = lesson && random() % 2;
        const std::size_t action = random() % 10;
        if (action == 0) {
            model.lessons.insert(add<GXLessonData>(context()).rowKey());
            model.homework[add<GXHomeworkData>(context()).rowKey()] = 0;
            model.teachers[add<GXProfessorData>(context()).rowKey()] = 0;
        } else if (action < 5 && homework) {
            model.homework[homework->rowKey()] = key;
            fromAbove ? lesson->homework.addObject(*homework) : void(homework->lesson = lesson);
        } else if (action < 7 && teacher) {
            for (auto& [row, former] : model.teachers)
                former = former == key ? 0 : former;
            model.teachers[teacher->rowKey()] = key;
            fromAbove ? void(lesson->professor = teacher) : void(teacher->lesson = lesson);
        } else if (action == 7 && lesson) {
            context().deleteObject(*lesson);
            std::erase_if(model.homework, isUnder);
            std::erase_if(model.teachers, isUnder);
            model.lessons.erase(key);
        } else if (action == 7 && homework) {
            model.homework.erase(homework->rowKey());
            context().deleteObject(*homework);
        } else if (action == 8) {
            save(context());
            saved = model;
        } else if (action == 9) {
            reopen();
            model = saved;
        }
        ASSERT_EQ(graphOf(context(), false), model) << "after step " << step;
        ASSERT_EQ(graphOf(context(), true), model) << "after step " << step;
    }
}

}  // namespace
}  // namespace gexlo::test
