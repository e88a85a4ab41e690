// Repair of rows that a move of the store has doubled.
#include <set>

#include "support/launched_phone.h"

namespace gexlo::test {

namespace {

class DoubledRows : public LaunchedPhone {
protected:
    GXTimetableData& timetableWithIndex(NSInteger index, const std::string& name) {
        GXTimetableData& timetable = manager().addNewTimetable();
        timetable.index = index;
        timetable.name = name;
        manager().saveContext();
        return timetable;
    }
};

TEST_F(DoubledRows, of_the_setting_rows_the_highest_subject_counter_stays) {
    // The counter and the starting timetable of each row, and which row stays.
    using Setting = std::pair<NSInteger, NSInteger>;
    const std::pair<std::vector<Setting>, std::size_t> cases[] = {
        {{{4, 0}, {9, 1}, {7, 2}}, 1}, {{{9, 0}, {4, 1005}}, 0}, {{{9, 3}, {9, 2}}, 0},
        {{{9, 2}, {9, 3}}, 1},         {{{9, 2}, {9, 2}}, 1},
    };
    for (const auto& [rows, kept] : cases) {
        const GXAppSettingData* expected = nullptr;
        for (GXAppSettingData* row : manager().dataList<GXAppSettingData>())
            manager().removeData(*row);
        for (const Setting& row : rows) {
            auto& setting = manager().addNewData<GXAppSettingData>();
            std::tie(setting.lastLessonIndex, setting.startingTimetable) = row;
            if (&row == &rows[kept]) expected = &setting;
        }
        manager().saveContext();
        manager().cleanOverlapData2();
        const auto left = manager().dataList<GXAppSettingData>();
        ASSERT_TRUE(left.size() == 1 && left[0] == expected) << rows[0].first << kept;
    }
}

TEST_F(DoubledRows, of_equal_twins_one_goes_and_the_other_moves_to_the_top) {
    GXTimetableData& first = timetableWithIndex(3, "A");
    timetableWithIndex(3, "A");
    GXTimetableData& kept = timetableWithIndex(3, "A");
    const NSInteger last = manager().appSettingData().lastTimetableIndex.get();
    manager().cleanOverlapData2();
    EXPECT_TRUE(first.isDeleted());
    EXPECT_FALSE(kept.isDeleted());
    EXPECT_EQ(kept.index.get(), last + 1);
    EXPECT_EQ(manager().timetableList().front(), &kept);
    EXPECT_EQ(manager().timetableList().size(), 2U);
}

TEST_F(DoubledRows, twins_that_differ_both_stay_and_the_first_of_the_list_moves) {
    // Each differs from the next in one thing alone.
    GXTimetableData& plain = timetableWithIndex(1, "A");
    GXTimetableData& named = timetableWithIndex(1, "B");
    GXTimetableData& withSubject = timetableWithIndex(1, "A");
    phone.addSubject(withSubject, "Maths");
    GXTimetableData& withItem = timetableWithIndex(1, "A");
    phone.addHomework(phone.addSubject(withItem, "Maths"), "Essay");
    GXTimetableData& withMemo = timetableWithIndex(1, "A");
    phone.addSubject(withMemo, "Maths").memo.anyObject()->content = "한글";
    manager().cleanOverlapData2();
    std::set<NSInteger> indexes;
    for (const GXTimetableData* timetable : {&plain, &named, &withSubject, &withItem, &withMemo}) {
        EXPECT_FALSE(timetable->isDeleted());
        indexes.insert(timetable->index.get());
    }
    EXPECT_EQ(indexes.size(), 5U);
    EXPECT_EQ(plain.index.get(), 1) << "the last of the list has no twin left";
    EXPECT_GE(manager().appSettingData().lastTimetableIndex.get(), *indexes.rbegin());
}

}  // namespace

}  // namespace gexlo::test
