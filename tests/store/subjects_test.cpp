// Subjects and their items: numbers, order, removal and renumbering.
#include "support/launched_phone.h"

namespace gexlo::test {

namespace {

class Subjects : public LaunchedPhone {
protected:
    std::string listedNames() {
        std::string names;
        for (const GXLessonData* lesson : manager().lessonListForCurrentTimetable())
            names += lesson->name.get();
        return names;
    }
};

TEST_F(Subjects, a_subject_gets_the_next_number_of_the_store_and_the_next_place_of_its_timetable) {
    GXLessonData& first = phone.addSubject("A");
    EXPECT_EQ(first.id.get(), 0);
    phone.addSubject("B");
    GXLessonData& elsewhere = phone.addSubject(manager().addNewTimetable(), "C");
    EXPECT_EQ(elsewhere.id.get(), 2);
    EXPECT_EQ(elsewhere.sortIndex.get(), 1);
    manager().removeLesson_inTimetable(elsewhere, *elsewhere.timetable.get());
    EXPECT_EQ(phone.addSubject("D").id.get(), 3);
    EXPECT_EQ(listedNames(), "DBA");
    manager().removeLesson_inTimetable(first, phone.timetable());
    EXPECT_EQ(phone.addSubject("E").sortIndex.get(), 3) << "the place of D";
}

TEST_F(Subjects, subjects_never_ordered_are_numbered_by_descending_id) {
    GXLessonData& first = phone.addSubject("A");
    GXLessonData& second = phone.addSubject("B");
    GXLessonData& third = phone.addSubject("C");
    second.sortIndex.clear();
    EXPECT_EQ(listedNames(), "CAB") << "the first alone tells";
    first.sortIndex = 0;
    third.sortIndex = 1;
    EXPECT_EQ(listedNames(), "CBA");
    phone.relaunch();
    EXPECT_EQ(manager().lessonListForCurrentTimetable().front()->sortIndex.get(), 3);
    EXPECT_EQ(manager().lessonListForCurrentTimetable().back()->sortIndex.get(), 1);
}

TEST_F(Subjects, items_left_behind_are_numbered_from_0_again_and_saved) {
    GXLessonData& lesson = phone.addSubject("A");
    GXHomeworkData& first = phone.addHomework(lesson, "1");
    GXHomeworkData& second = phone.addHomework(lesson, "2");
    GXHomeworkData& third = phone.addHomework(lesson, "3");
    EXPECT_EQ(first.genDate.get(), NSDate::date());
    manager().removeHomework(second);
    EXPECT_EQ(first.index.get(), 0);
    EXPECT_EQ(third.index.get(), 1);

    GXLessonData& other = phone.addSubject("B");
    manager().removeHomework_fromLesson(first, lesson);
    EXPECT_FALSE(first.isDeleted());
    EXPECT_FALSE(first.lesson);
    EXPECT_EQ(third.index.get(), 0);
    other.homework.addObject(first);
    manager().saveContext();
    phone.relaunch();
    for (const GXHomeworkData* item : manager().dataList<GXHomeworkData>()) {
        EXPECT_EQ(item->index.get(), 0);
        EXPECT_EQ(item->lesson->homework.count(), 1U);
    }
}

TEST_F(Subjects, exams_of_a_timetable_are_renumbered_on_their_own) {
    GXTimetableData& timetable = phone.timetable();
    std::vector<GXExamData*> exams;
    for (int i = 0; i < 3; ++i) {
        exams.push_back(&manager().addNewExam());
        exams.back()->index = i;
        timetable.exam.addObject(*exams.back());
    }
    GXHomeworkData& homework = manager().addNewHomework();
    homework.index = 7;
    timetable.homework.addObject(homework);
    manager().removeExam_fromTimetable(*exams[0], timetable);
    EXPECT_EQ(exams[2]->index.get(), 1);
    manager().removeExam(*exams[1]);
    EXPECT_EQ(exams[2]->index.get(), 0);
    EXPECT_EQ(homework.index.get(), 7);
    manager().removeExam(*exams[0]);
    EXPECT_TRUE(exams[0]->isDeleted()) << "an item without an owner goes too";
}

}  // namespace

}  // namespace gexlo::test
