// What exists after each kind of first start, and what each start repairs.
#include <gtest/gtest.h>

#include "app/app_delegate.h"
#include "app/main_view.h"
#include "platform/foundation/user_defaults.h"
#include "presentation/style/color_manager.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

NSDictionary standardDefaults() {
    return NSUserDefaults::standardUserDefaults().dictionaryRepresentation();
}

TEST(Start, a_new_install_holds_one_fixed_timetable_and_its_counters) {
    Phone phone;
    phone.launch();
    const auto settings = phone.manager().dataList<GXAppSettingData>();
    ASSERT_EQ(settings.size(), 1U);
    EXPECT_EQ(settings[0]->dataVersion.get(), 4.0F);
    EXPECT_EQ(settings[0]->lastTimetableIndex.get(), 0);
    EXPECT_EQ(settings[0]->lastLessonIndex.get(), -1);
    EXPECT_TRUE(phone.manager().fixedStartingTimetable());

    ASSERT_EQ(phone.manager().timetableList().size(), 1U);
    const GXTimetableData& timetable = phone.timetable();
    EXPECT_EQ(timetable.index.get(), 0);
    EXPECT_EQ(timetable.sortIndex.get(), 0);
    EXPECT_EQ(timetable.name.get(), "New timetable");
    EXPECT_TRUE(timetable.classtimes.isEmpty() && timetable.lessons.isEmpty());
    EXPECT_FALSE(timetable.titleRoom.isSet());

    const NSDictionary expected{
        {"app_version", "47"}, {"first_starting", 1}, {"data_update_no", 1}, {"T0", 1}};
    EXPECT_EQ(standardDefaults(), expected);
    EXPECT_EQ(phone.manager().versionInfo(), "NEW INSTALL : 47");
    EXPECT_FALSE(std::filesystem::exists(phone.facts.root / "Documents" / "Vetra.sqlite"));
}

TEST(Start, an_upgrade_between_stored_versions_keeps_the_store_and_notes_both) {
    Phone phone;
    phone.facts.bundleVersion = "45";
    phone.relaunch();
    phone.addSubject("Maths", {mon(1)});
    phone.manager().appSettingData().dataVersion = 3.0F;
    phone.manager().saveContext();
    phone.upgrade("47");
    EXPECT_EQ(phone.manager().versionInfo(), "45 to 47");
    EXPECT_EQ(phone.manager().appSettingData().dataVersion.get(), 4.0F);
    EXPECT_EQ(phone.timetable().lessons.count(), 1U);
    const NSDictionary expected{{"app_version", "47"}, {"pre_app_version", "45"},
                                {"now_updated", 0},    {"first_starting", 1},
                                {"data_update_no", 1}, {"T0", 1}};
    EXPECT_EQ(standardDefaults(), expected);
}

TEST(Start, an_upgrade_from_before_versions_were_stored_tells_the_data_model) {
    Phone phone;
    phone.launch();
    phone.addSubject("Maths", {mon(1)});
    phone.quit();
    std::filesystem::remove(phone.facts.root / "Preferences" / "standard.plist");
    phone.relaunch();
    EXPECT_EQ(phone.manager().versionInfo(), "4.0 to 47");
    EXPECT_EQ(phone.timetable().lessons.count(), 1U);
    const NSDictionary expected{{"app_version", "47"},
                                {"now_updated", 0},
                                {"first_starting", 1},
                                {"data_update_no", 1},
                                {"T0", 1}};
    EXPECT_EQ(standardDefaults(), expected);
}

TEST(Start, a_store_left_in_the_documents_directory_moves_beside_what_the_group_holds) {
    Phone phone;
    phone.launch();
    phone.addSubject("Maths", {mon(1), tue(3)});
    phone.quit();
    const auto documents = phone.facts.root / "Documents" / "Vetra.sqlite";
    std::filesystem::copy_file(phone.storeFile(), documents);
    phone.relaunch();
    EXPECT_FALSE(std::filesystem::exists(documents));
    // The same content twice: one of the two is taken, under a number of its own.
    ASSERT_EQ(phone.manager().timetableList().size(), 1U);
    EXPECT_EQ(phone.manager().timetableList()[0]->index.get(), 1);
    EXPECT_EQ(phone.manager().timetableList()[0]->lessons.count(), 1U);
    EXPECT_EQ(phone.manager().dataList<GXDayNPeriodData>().size(), 2U);
    EXPECT_EQ(phone.manager().dataList<GXAppSettingData>().size(), 1U);
    const std::size_t objects = phone.manager().dataList<GXLessonData>().size();
    phone.relaunch();
    EXPECT_EQ(phone.manager().dataList<GXLessonData>().size(), objects);
}

TEST(Start, without_group_containers_the_store_lives_and_stays_in_the_documents) {
    Phone phone;
    phone.facts.offersGroupContainer = false;
    phone.relaunch();
    phone.addSubject("Maths");
    phone.relaunch();
    EXPECT_EQ(phone.timetable().lessons.count(), 1U);
    EXPECT_TRUE(std::filesystem::exists(phone.facts.root / "Documents" / "Vetra.sqlite"));
    EXPECT_FALSE(std::filesystem::exists(phone.storeFile()));
}

TEST(Start, a_missing_starting_timetable_is_stood_in_for_by_the_top_of_the_list) {
    Phone phone;
    phone.launch();
    phone.manager().addNewTimetable();
    GXTimetableData& top = phone.manager().addNewTimetable();
    top.name = "Top";
    top.backgroundImage = "#9CBCDD";
    phone.addSubject(top, "Maths", {mon(1)});
    phone.manager().setStartingTimetable_fixed(7, false);
    const auto shown = [] {
        const UIView* cell = find("cell_0_1_0");
        return part<UILabel>("titleLabel", part("topMenu")).text() +
               (cell ? part<UILabel>("labelSubject", part("cell_0_1_0")).text() : "");
    };
    const UIColor blue = GXColorManager::colorManager().backgroundColorAt(10);
    phone.relaunch();
    EXPECT_EQ(part("backgroundImageView").backgroundColor(), blue);
    EXPECT_EQ(shown(), "") << "the number is still that of the missing one";
    EXPECT_TRUE(phone.manager().fixedStartingTimetable());
    phone.relaunch();
    EXPECT_EQ(part("backgroundImageView").backgroundColor(), blue);
    EXPECT_EQ(shown(), "TopMaths");
}

TEST(Start, absence_counting_follows_the_first_language_at_every_load) {
    Phone phone;
    phone.facts.languages = {"ja-JP", "en"};
    phone.facts.region = "US";
    phone.relaunch();
    EXPECT_TRUE(phone.timetable().useAbsenceCounting.get());
    EXPECT_EQ(phone.timetable().name.get(), "新しい時間割");
    phone.facts.languages = {"en", "ja"};
    phone.relaunch();
    EXPECT_FALSE(phone.timetable().useAbsenceCounting.get());
}

TEST(Start, the_page_of_the_grid_is_kept_for_the_starting_timetable_alone) {
    Phone phone;
    phone.launch();
    phone.timetable().numWeeks = 2;
    phone.manager().saveContext();
    const NSInteger starting = phone.timetable().index.get();
    // What is kept of a page that the grid is turned to, as the next start shows it.
    const auto keptOf = [&](NSInteger page) {
        GXAppDelegate::delegate().mainView()->setTimetablePosition(page);
        phone.background();
        phone.relaunch();
        return GXAppDelegate::delegate().mainView()->timetablePosition();
    };
    phone.relaunch();
    for (const NSInteger page : {1, 0, 1})
        EXPECT_EQ(keptOf(page), page);
    phone.manager().setCurrentTimetableNo(phone.manager().addNewTimetable().index.get());
    ASSERT_NE(phone.manager().currentTimetableNo(), starting);
    EXPECT_EQ(keptOf(0), 1) << "which is of the starting timetable";
}

}  // namespace

}  // namespace gexlo::test
