// The list of subjects: its order, what editing it does, and how it is left.
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "platform/views/image_view.h"
#include "platform/views/table_view.h"
#include "presentation/style/color_manager.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

class SubjectList : public Grid {
protected:
    SubjectList() {
        for (const char* name : {"A", "B", "C"})
            phone.addSubject(name, {mon(static_cast<float>(name[0] - '@'))});
        redraw();
        manager().openLessonSelector();
    }
    static UITableView& table() { return part<UITableView>("SubjectListTableView"); }
    static void press(const char* button) { tap(part(button, *table().superview())); }
    static bool isMenuLocked() { return part<GXBottomMenu>("bottomMenu").isLocked(); }
    static std::string names() {
        std::string all;
        for (NSInteger row = 0; row < table().numberOfRowsInSection(0); ++row)
            all += part<UILabel>("nameLabel", *table().cellForRow({0, row})).text();
        return all;
    }
};

TEST_F(SubjectList, rows_that_were_moved_stay_there) {
    EXPECT_EQ(names(), "CBA");
    press("editButton");
    GXLessonData& top = *phone.manager().lessonListForCurrentTimetable().front();
    top.sortIndex = 7;
    EXPECT_TRUE(table().dragRow({0, 0}, {0, 0}));
    EXPECT_EQ(top.sortIndex.get(), 7) << "nothing was moved, so nothing is written";
    EXPECT_TRUE(table().dragRow({0, 2}, {0, 0}));
    EXPECT_EQ(names(), "ACB");
    relaunch();
    manager().openLessonSelector();
    EXPECT_EQ(names(), "ACB");
    EXPECT_EQ(phone.timetable().lessons.anyObject()->sortIndex.get(), 3) << "the largest on top";
}

TEST_F(SubjectList, a_row_shows_its_subject_in_its_colour) {
    GXLessonData& lesson = *phone.manager().lessonListForCurrentTimetable().front();
    lesson.color = "#F04853";
    lesson.professor->name = "Ms Kim";
    table().reloadData();
    UITableViewCell& row = *table().cellForRow({0, 0});
    const GXColorManager& colors = GXColorManager::colorManager();
    EXPECT_EQ(part<UIImageView>("colorView", row).image(),
              colors.imageWithColor_width_height(colors.colorWithName("#F04853"), 18, 32));
    EXPECT_EQ(part<UILabel>("professorLabel", row).text(), "Ms Kim");
}

TEST_F(SubjectList, a_subject_goes_only_when_the_sheet_is_confirmed) {
    phone.manager().setAlarm_inClass(3, *cell(1, 1).dayNPeriod());
    const NSInteger number = phone.manager().getDataUpdateNo();
    for (const bool confirms : {false, true}) {
        press("editButton");
        table().requestDelete({0, 1});
        UIWindow::keyWindow().answer(confirms ? 0 : 1);
        EXPECT_EQ(table().isEditing(), confirms) << "else it is a list again";
        EXPECT_EQ(names() + drawn(1), confirms ? "CAA|.|C|" : "CBAA|B|C|");
    }
    EXPECT_EQ(phone.manager().getDataUpdateNo(), number + 1);
    EXPECT_TRUE(UIApplication::sharedApplication().scheduledLocalNotifications().empty());
    relaunch();
    EXPECT_EQ(phone.timetable().lessons.count(), 2U);
}

TEST_F(SubjectList, it_frees_the_menu_unless_the_editor_follows_and_edited_only_done_works) {
    for (const bool adds : {false, true}) {
        adds ? press("addButton") : tap(*table().cellForRow({0, 0}));
        EXPECT_EQ(drawn(1), adds ? "#A|#B|#C|" : "#A|#B|+|");
        EXPECT_TRUE(isMenuLocked());
        phone.advance(0.2);
        EXPECT_EQ(find("SubjectListTableView"), nullptr);
        manager().cancelLessonEditing();
        manager().openLessonSelector();
    }
    press("editButton");
    tap(*table().cellForRow({0, 0}));
    press("closeButton");
    press("addButton");
    EXPECT_TRUE(isMenuLocked() && manager().appState() == AppState::normal);
    press("doneButton");
    press("closeButton");
    EXPECT_FALSE(isMenuLocked()) << "at once";
    phone.advance(0.2);
    tap(cell(1, 0));
    EXPECT_EQ(drawn(1), "*A|B|C|");
    manager().openLessonSelector();
    EXPECT_EQ(drawn(1), "A|B|C|") << "what was open of a subject closes";
}

}  // namespace

}  // namespace gexlo::test
