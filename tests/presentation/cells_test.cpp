// The slots of the grid: how placements merge, and what adding and editing do to them.
#include <random>
#include <set>

#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

class Cells : public Grid {};

TEST_F(Cells, placements_of_one_room_merge_along_the_rows_of_a_day) {
    phone.addClasstime(phone.timetable(), mon(5.1F), 10, 30);
    phone.timetable().numWeeks = 2;
    const struct {
        std::vector<Slot> slots;
        std::string first, second = "";
    } cases[] = {
        {{in("A", mon(1)), in("A", mon(2)), in("A ", mon(3))}, "MA2-|MA |"},
        {{in(nullptr, mon(1)), in(nullptr, mon(2)), mon(3)}, "M|M|M|"},
        {{mon(5), mon(6), mon(1), mon(3), tue(2)}, "M|.|M|.|M|.|M|"},
        {{mon(5), mon(5.1F), mon(6), mon(1, 1)}, ".|.|.|.|M3--|", "M|"},
        {{in("A", mon(2)), in("B", mon(2)), in("B", mon(3))}, ".|MB2-|"},
        {{mon(9), mon(10), mon(2.3F), mon(0.5F), {7, 1}}, ".|.|.|.|.|.|.|.|.|M|"},
    };
    for (const auto& at : cases) {
        GXLessonData& subject = phone.addSubject("M", at.slots);
        redraw();
        EXPECT_EQ(drawn(1), at.first);
        EXPECT_EQ(drawn(1, 1), at.second) << at.first;
        phone.manager().removeLesson_inTimetable(subject, phone.timetable());
    }
}

TEST_F(Cells, sunday_is_one_day_by_either_number_and_where_it_is_shown_twice) {
    phone.timetable().firstDay = 0;
    phone.timetable().lastDay = 7;
    GXLessonData& subject = phone.addSubject("M", {{7, 1}, {0, 2}, {7, 4}});
    for (GXDayNPeriodData* placement : subject.times)
        phone.manager().setAlarm_inClass(1, *placement);
    redraw();
    const auto again = [&](std::size_t row) -> GXCellView& {
        return *mainView().timetablePallet().timetable1().classCells()[7 * 9 + row];
    };
    EXPECT_EQ(drawn(0), "M2-|.|M|");
    EXPECT_TRUE(again(0).numBlocks() == 2 && again(3).lesson() == &subject);
    manager().openEditLessonView(&subject);
    manager().setSelectedRoom("B");
    for (int taps = 0; taps < 2; ++taps)
        tap(again(3));
    save("M");
    std::multiset<std::string> saved;
    for (const GXDayNPeriodData* at : subject.times)
        saved.insert(stringWithFormat("%ld %.0f %@ %ld", at->day.get(), at->period.get(),
                                      at->room.get(), at->alarmValue.get()));
    EXPECT_EQ(saved, (std::multiset<std::string>{"0 1  1", "0 2  0", "0 4 B 1"}));
}

TEST_F(Cells, only_the_head_of_a_block_rings_and_a_removed_subject_leaves_nothing) {
    GXLessonData& subject = phone.addSubject("M", {mon(1), mon(2), mon(3)});
    phone.addSubject("Late", {mon(1), mon(4)});
    for (GXDayNPeriodData* placement : subject.times)
        phone.manager().setAlarm_inClass(3, *placement);
    redraw();
    EXPECT_EQ(drawn(1), "M3--|Late|") << "the first subject keeps the slot";
    EXPECT_EQ(UIApplication::sharedApplication().scheduledLocalNotifications().size(), 1U);
    EXPECT_EQ(cell(1, 0).dayNPeriod()->alarmValue.get(), 3);
    post(GX_NOTI_REMOVE_LESSON, {{"lessonData", &subject}});
    EXPECT_EQ(drawn(1), ".|.|.|Late|");
}

TEST_F(Cells, labels_follow_the_height_of_the_block_and_the_settings) {
    phone.facts.screenHeight = 480;
    relaunch();
    const struct {
        int rows, lastDay, lastPeriod, textSize;
        bool onLeft, halves;
        double roomHeight;
        float roomFont, nameFont;
    } cases[] = {
        {1, 5, 6, 15, false, true, 10, 9, 14},  {1, 5, 9, 10, false, false, 12, 9, 12},
        {1, 5, 6, 5, false, false, 16, 10, 10}, {2, 5, 9, 7, false, false, 26, 10, 12},
        {4, 5, 9, 0, false, false, 40, 10, 12}, {1, 5, 9, 5, true, false, 20, 10, 10},
        {2, 7, 9, 5, true, false, 15, 10, 10},
    };
    for (const auto& at : cases) {
        GXTimetableData& timetable = phone.timetable();
        timetable.lastDay = at.lastDay;
        timetable.lastPeriod = at.lastPeriod;
        timetable.textSize = at.textSize;
        timetable.daysOnLeft = at.onLeft;
        timetable.useHalfPeriods = at.halves;
        GXLessonData& subject = phone.addSubject("M", {tue(1)});
        for (int row = 1; row <= at.rows; ++row)
            phone.place(subject, in("A", mon(static_cast<float>(row))));
        redraw();
        const auto& name = part<UILabel>("labelSubject", cell(1, 0));
        auto& room = part<UILabel>("labelRoom", cell(1, 0));
        const auto [width, height] = cell(1, 0).frame().size();
        EXPECT_EQ(room.frame(), (CGRect{0, name.frame().height, width, at.roomHeight}));
        EXPECT_EQ(name.frame(), (CGRect{0, 0, width, height - at.roomHeight})) << at.roomHeight;
        EXPECT_TRUE(name.font().size == at.nameFont && room.font().size == at.roomFont);
        EXPECT_EQ(part("labelSubject", cell(2, 0)).frame(), cell(2, 0).bounds()) << "no room";
        room.setText("shown");
        EXPECT_EQ(cell(1, 0).room(), "A") << "as it is saved, whatever is shown";
        phone.manager().removeLesson_inTimetable(subject, timetable);
    }
}

TEST_F(Cells, adding_and_editing_toggle_the_cells_that_are_free) {
    GXLessonData& held = phone.addSubject("H", {mon(1), mon(2)});
    redraw();
    const struct {
        bool adds;
        const char* room;
        std::vector<int> taps;  // rows
        std::string opened, tapped, saved;
    } steps[] = {
        {true, "r", {0, 2, 3, 4, 4}, "#H2#-|", "#H2#-|+r|+r|", "H2-|Nr2-|"},
        {false, "", {0, 2}, "+|+|#Nr2#-|", ".|+|#Nr2#-|", ".|H|Nr2-|"},
        {false, "B", {0}, ".|+|#Nr2#-|", "+B|+|#Nr2#-|", "HB|H|Nr2-|"},
        {false, "", {0, 0}, "+B|+|#Nr2#-|", "+|+|#Nr2#-|", "H2-|Nr2-|"},
    };
    for (const auto& step : steps) {
        const std::string before = drawn(1);
        for (const bool saves : {false, true}) {
            step.adds ? manager().openAddLessonView() : manager().openEditLessonView(&held);
            manager().setSelectedRoom(step.room);
            EXPECT_EQ(drawn(1), step.opened);
            for (const int row : step.taps)
                tap(cell(1, row));
            EXPECT_EQ(drawn(1), step.tapped);
            saves ? save(step.adds ? "N" : "H") : manager().cancelLessonEditing();
            EXPECT_EQ(drawn(1), saves ? step.saved : before);
        }
    }
}

TEST_F(Cells, what_is_posted_without_what_belongs_to_it_changes_nothing) {
    phone.addSubject("M", {mon(1)});
    redraw();
    const auto postBadly = [](const char* name) {
        post(name);
        post(name, {{"lessonData", 5}, {"classtimes", true}, {"weekNo", 0L}, {"height", 300}});
    };
    for (const char* name :
         {GX_NOTI_SET_LESSONS, GX_NOTI_FINISH_ADD_NEW_LESSON, GX_NOTI_FINISH_EDIT_LESSON,
          GX_NOTI_BEGIN_EDIT_LESSON, GX_NOTI_REMOVE_LESSON, GX_NOTI_LESSON_INFO_OPEN})
        postBadly(name);
    EXPECT_EQ(drawn(1), "M|");
    manager().openAddLessonView();
    phone.advance(1);
    const CGRect editor = part("addLessonView").frame();
    postBadly(kKeyboardWillShowNotification);
    EXPECT_EQ(part("addLessonView").frame(), editor);
}

TEST_F(Cells, a_tap_opens_the_information_of_the_subject_and_lights_its_cells) {
    phone.addSubject("M", {mon(1), mon(2), mon(3), wed(2)});
    redraw();
    UserInfo opened;
    const auto token = NSNotificationCenter::defaultCenter().addObserver(
        GX_NOTI_LESSON_INFO_OPEN, [&](const auto& note) { opened = note.userInfo; });
    UIWindow::keyWindow().touchDown(cell(1, 0).visibleRect().center());
    EXPECT_EQ(drawn(1), "!M3--|");
    UIWindow::keyWindow().touchCancel();
    EXPECT_TRUE(drawn(1) == "M3--|" && opened.empty());
    tap(cell(1, 0));
    tap(cell(2, 4));
    EXPECT_EQ(std::any_cast<int>(opened["positionX"]), 33) << "nothing opens for an empty cell";
    EXPECT_EQ(std::any_cast<int>(opened["positionY"]), 85);
    EXPECT_EQ(drawn(1) + drawn(2) + drawn(3), "*M3*-*-|.|*M|");
    post(GX_NOTI_LESSON_INFO_CLOSE);
    EXPECT_EQ(drawn(1) + drawn(3), "M3--|.|M|");
}

/// The block on a row of a day, by a scan of the whole list.
std::optional<Block> scanned(const std::vector<PlacedSlot>& list, NSInteger week, NSInteger day,
                             NSInteger row, const PeriodAxis& axis) {
    const auto isOn = [&](const PlacedSlot& slot, NSInteger wanted) {
        return slot.week == week && slot.day == day && slot.period == axis.number(wanted);
    };
    std::optional<std::size_t> own;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (isOn(list[i], row)) own = i;
    Block block;
    for (std::size_t i = 0; own && i < list.size(); ++i) {
        const std::string *mine = list[*own].room, *other = list[i].room;
        const NSInteger next = row + block.count;
        if (!mine || !other || *mine != *other) continue;
        if (i < *own && row >= 1 && isOn(list[i], row - 1)) return Block{true, 1};
        if (i > *own && next < axis.count() && isOn(list[i], next))
            block.count += list[i].period <= axis.realLastPeriod();
    }
    return own ? std::optional(block) : std::nullopt;
}

TEST(Blocks, merging_gives_what_the_scan_gives_on_random_placements) {
    std::mt19937 random(11);
    const auto below = [&](unsigned end) { return static_cast<NSInteger>(random() % end); };
    const std::string rooms[] = {"A", "A ", "A", "A"};
    const PeriodAxis axis({1, 1.1F, 2, 2.5F, 3, 4, 5}, 4.1F);
    for (int round = 0; round < 300; ++round) {
        std::vector<PlacedSlot> list(random() % 25);
        for (PlacedSlot& slot : list) {
            slot = {below(2), below(2), axis.number(below(8)), &rooms[below(4)]};
            if (below(9) == 0) slot.room = nullptr;
        }
        std::ranges::stable_sort(list, comesBefore);
        for (NSInteger i = 0; i < 4 * axis.count(); ++i) {
            const NSInteger week = i % 2, day = i / 2 % 2, row = i / 4;
            const auto at = placementOn(list, week, day, axis.number(row));
            const auto block = at ? std::optional(blockAt(list, *at, row, axis)) : std::nullopt;
            ASSERT_EQ(block, scanned(list, week, day, row, axis)) << round;
        }
    }
}

}  // namespace

}  // namespace gexlo::test
