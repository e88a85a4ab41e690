// The panels around the grid: what they show, and that each frees what it locked.
#include "platform/views/table_view.h"
#include "presentation/panels/pd_alert_view.h"
#include "presentation/panels/pd_loading_view.h"
#include "presentation/style/color_manager.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

class MainScreen : public Grid {
protected:
    static bool isSeen(const char* identifier) {
        const UIView* view = find(identifier);
        return view && view->visibleRect().width > 0;
    }
    static bool isMenuLocked() { return part<GXBottomMenu>("bottomMenu").isLocked(); }
    void openMoreMenu() {
        tap(part("btnMore", part("bottomMenu")));
        phone.advance(1);
    }
};

TEST_F(MainScreen, a_new_timetable_is_five_days_of_nine_periods_in_quiet_colours) {
    const GXColorManager& colors = GXColorManager::colorManager();
    const auto gray = [&](const char* name, float alpha = 1) {
        return colors.colorFromString(name).colorWithAlphaComponent(alpha);
    };
    UIView& lines = part("borderView", part("timetable1"));
    EXPECT_EQ(lines.backgroundColor(), gray("#FFFFFF", 0.3F));
    EXPECT_EQ(lines.subviews().front()->backgroundColor(), gray("#191919", 0.8F));
    const struct {
        const char *strip, *label;
        UIColor background, font;
    } strips[] = {{"day_0_0", "label", gray("#666666", 0.8F), gray("#FFFFFF")},
                  {"period_0_0", "labelName", gray("#FFFFFF", 0.6F), gray("#191919")}};
    for (const auto& at : strips) {
        EXPECT_EQ(part(at.strip).backgroundColor(), at.background) << at.strip;
        EXPECT_EQ(part<UILabel>(at.label, part(at.strip)).textColor(), at.font) << at.strip;
    }
    EXPECT_EQ(part("backgroundImageView").backgroundColor(), colors.backgroundColorAt(0));
    EXPECT_TRUE(find("cell_0_1_0") && find("cell_0_5_8"));
    for (const char* none : {"cell_0_0_0", "cell_0_6_0", "cell_0_1_9", "cell_1_1_0"})
        EXPECT_EQ(find(none), nullptr) << none;
    EXPECT_EQ(part<UILabel>("label", part("day_0_0")).text(), "Mon");
    EXPECT_EQ(part<UILabel>("labelTime", part("period_0_0")).text(), "");
    EXPECT_EQ(phone.timetable().textSize.get(), 10);
    EXPECT_EQ(phone.timetable().alphaSubject.get(), 0.95F);
    EXPECT_TRUE(phone.timetable().useSameClasshours.get());
}

TEST_F(MainScreen, the_bubble_stands_for_a_while_and_gives_back_what_it_hid) {
    const struct {
        double held, stands;  // seconds, the second from the release
    } cases[] = {{0.1, 1.45}, {1.06, 1.45}, {1.34, 1.45}, {1.45, 0}, {5, 0}};
    manager().openAddLessonView();
    for (const auto& [held, stands] : cases) {
        UIWindow::keyWindow().touchDown(part("period_0_0").visibleRect().center());
        EXPECT_FALSE(isSeen("dateView") || isSeen("btnCancel"));
        phone.advance(held);
        UIWindow::keyWindow().touchUp({});
        EXPECT_EQ(part<UILabel>("lblPeriodName").text(), stands > 0 ? "Period 1" : "") << held;
        phone.advance(stands);
        EXPECT_EQ(isSeen("btnCancel"), stands == 0) << held;
        phone.advance(0.1);
        EXPECT_TRUE(isSeen("dateView") && isSeen("btnCancel")) << held;
    }
    UIWindow::keyWindow().touchDown(part("period_0_0").visibleRect().center());
    UIWindow::keyWindow().touchCancel();
    phone.advance(1.6);
    EXPECT_TRUE(isSeen("dateView")) << "after a touch that was taken away too";
}

TEST_F(MainScreen, a_button_of_the_menu_is_dim_only_while_it_is_held) {
    const UIView& button = part("btnShare", part("bottomMenu"));
    UIWindow::keyWindow().touchDown(button.visibleRect().center());
    EXPECT_NEAR(button.alpha(), 0.6, 1e-6);
    UIWindow::keyWindow().touchUp({});
    EXPECT_EQ(button.alpha(), 1);
    tap(button);
    EXPECT_EQ(button.alpha(), 1);
}

TEST_F(MainScreen, a_title_that_comes_while_another_goes_keeps_its_buttons) {
    manager().openAddLessonView();
    manager().cancelLessonEditing();
    phone.advance(0.2);
    manager().openEditLessonView(&phone.addSubject("A"));
    phone.advance(1);
    EXPECT_EQ(part<UILabel>("lblTitle").text(), "Edit subject");
    EXPECT_TRUE(isSeen("btnOK") && isSeen("btnCancel"));
    EXPECT_EQ(part("addLessonView").frame().y, 667 - 55 - 120);
}

TEST_F(MainScreen, the_more_menu_frees_what_it_locked_on_every_exit) {
    const std::pair<const char*, std::function<void()>> exits[] = {
        {"close", [] { tap(part("closeButton")); }},
        {"alarms", [] { tap(part("btnAlarm")); }},
        {"export",
         [] {
             tap(part("btnExport"));
             UIWindow::keyWindow().answer(0);
         }},
        {"close all", [] { post(GX_NOTI_CLOSE_ALL_SUBVIEWS); }},
    };
    for (const auto& [name, leave] : exits) {
        openMoreMenu();
        EXPECT_TRUE(isMenuLocked()) << name;
        leave();
        EXPECT_FALSE(isMenuLocked()) << name;
        phone.advance(0.1);
        EXPECT_EQ(find("GXMoreMenu"), nullptr) << name;
    }
    openMoreMenu();
    tap(part("btnShare", part("GXMoreMenu")));
    UIWindow::keyWindow().answer(0);
    tap(part("btnExport"));
    UIWindow::keyWindow().answer(1);
    for (const char* leadsNowhere : {"btnHomework", "btnExam", "btnSettings"})
        tap(part(leadsNowhere));
    EXPECT_TRUE(isSeen("GXMoreMenu") && isMenuLocked()) << "none leaves it";
    tap(part("closeButton"));
    phone.advance(1);
    tap(part("btnManage"));
    tap(part("btnTimetableList"));
    EXPECT_FALSE(isMenuLocked()) << "there is no list to unlock it";
}

TEST_F(MainScreen, what_a_panel_asks_goes_with_it_when_all_close) {
    GXLessonData& lesson = phone.addSubject("A", {mon(1)});
    const auto addSameRooms = [] {
        for (const char* button : {"btnRoom1", "btnRoom2"}) {
            tap(part(button));
            answer(1, {"A1"});
        }
    };
    const auto edit = [&] { manager().openEditLessonView(&lesson); };
    const auto list = [] { manager().openLessonSelector(); };
    const auto menu = [&] { openMoreMenu(); };
    const struct {
        const char* name;
        std::function<void()> open, ask;
    } questions[] = {
        {"add room", edit, [] { tap(part("btnRoom1")); }},
        {"same room", edit, addSameRooms},
        {"no name", edit, [] { save(""); }},
        {"remove", list,
         [] {
             part<UITableView>("SubjectListTableView").requestDelete({0, 0});
         }},
        {"share", menu, [] { tap(part("btnShare", part("GXMoreMenu"))); }},
        {"export", menu, [] { tap(part("btnExport")); }},
    };
    UIWindow& window = UIWindow::keyWindow();
    for (const auto& [name, open, ask] : questions) {
        open();
        phone.advance(1);
        ask();
        ASSERT_EQ(window.alerts().size(), 1U) << name;
        // As an import does that is confirmed above it.
        UIAlert::notice("", "of the application", "OK").show();
        post(GX_NOTI_CLOSE_ALL_SUBVIEWS);
        ASSERT_EQ(window.alerts().size(), 1U) << name;
        EXPECT_EQ(window.alerts().back().message, "of the application") << name;
        window.answer(0);
        phone.advance(1);
    }
    EXPECT_FALSE(isMenuLocked());
    EXPECT_EQ(phone.timetable().lessons.count(), 1U);
}

/// Tells when it is closed, and leaves as it was told to.
class Probe final : public Panel {
public:
    Probe(std::string name, std::string& told, std::function<void(Probe&)> leave)
        : Panel({0, 0, 9, 9}), name_(std::move(name)), told_(told), leave_(std::move(leave)) {}
    void close() override {
        leave_(*this);
        told_ += name_;  // still there, though it may have left within its own callback
    }
    void fade() { fadeOutAndLeave(0.1); }

private:
    std::string name_;
    std::string& told_;
    std::function<void(Probe&)> leave_;
};

TEST_F(MainScreen, panels_close_once_from_the_bottom_and_may_take_each_other_along) {
    PanelStack& panels = mainView().panels();
    std::string told;
    const auto present = [&](const char* name, std::function<void(Probe&)> leave) {
        const auto panel = std::make_shared<Probe>(name, told, std::move(leave));
        panels.present(panel);
        return std::weak_ptr<Panel>(panel);
    };
    present("a", [&](Probe& a) {
        panels.top()->removeFromSuperview();
        a.removeFromSuperview();
    });
    const auto fading = present("b", [](Probe& b) { b.fade(); });
    const auto staying = present("c", [](Probe&) {});
    const auto takenAlong = present("d", [](Probe&) {});
    EXPECT_EQ(panels.top(), takenAlong.lock());
    mainView().view()->bringSubviewToFront(*fading.lock());
    EXPECT_EQ(panels.top(), fading.lock());
    mainView().view()->bringSubviewToFront(*takenAlong.lock());
    post(GX_NOTI_CLOSE_ALL_SUBVIEWS);
    EXPECT_EQ(told, "acb");
    EXPECT_TRUE(takenAlong.expired());
    EXPECT_EQ(panels.top(), staying.lock()) << "one that fades out no longer counts";
    post(GX_NOTI_CLOSE_ALL_SUBVIEWS);
    EXPECT_EQ(told, "acbc");
    phone.advance(0.1);
    EXPECT_TRUE(fading.expired());
}

TEST_F(MainScreen, a_country_writes_its_date_and_a_language_has_its_community) {
    const struct {
        const char *language, *region, *date;
        bool community;
    } cases[] = {
        {"en", "PH", "Mar  2", false},        {"en", "GB", "2  Mar", false},
        {"en", "CA", "Mar  2", false},        {"en", "VI", "Mar  2", false},
        {"ko-KR", "US", "3월  2일", true},    {"ja-JP", "JP", "3月  2日", true},
        {"zh-Hant", "TW", "3月  2日", false},
    };
    for (const auto& [language, region, date, community] : cases) {
        phone.facts.languages = {language};
        phone.facts.region = region;
        relaunch();
        EXPECT_EQ(part<UILabel>("lblDate").text(), date) << language << region;
        EXPECT_EQ(isSeen("btnTessaly"), community) << language << region;
    }
    phone.advance(16 * 3600);
    EXPECT_EQ(part<UILabel>("lblWeekday").text(), "星期二");
}

TEST_F(MainScreen, colours_change_nothing_before_they_are_confirmed) {
    manager().openAddLessonView();
    tap(cell(1, 0));
    const UIColor before = cell(1, 0).backgroundColor();
    mainView().lessonEditing().showColorSelectViewWithColorIndex_andFontColorIndex(-1, -1);
    const auto marked = [](const char* swatch) { return !part("mark", part(swatch)).isHidden(); };
    EXPECT_FALSE(marked("subjectColor_0") || marked("fontColor_0")) << "nothing is chosen";
    tap(part("subjectColor_3"));
    tap(part("subjectColor_16"));
    tap(part("fontColor_1"));
    EXPECT_TRUE(marked("subjectColor_16") && !marked("subjectColor_3") && marked("fontColor_1"));
    const UIView& confirms = part("btnOK", part("GXColorSelector"));
    UIWindow::keyWindow().touchDown(confirms.visibleRect().center());
    part<UIButton>("btnCancel", part("GXColorSelector")).sendActions(UIControlEvent::touchUpInside);
    UIWindow::keyWindow().touchUp(confirms.frameInWindow().center());
    phone.advance(0.1);
    EXPECT_EQ(find("GXColorSelector"), nullptr);
    EXPECT_EQ(cell(1, 0).backgroundColor(), before);
    EXPECT_EQ(manager().appState(), AppState::addLesson) << "the selector's own cancel";
}

TEST_F(MainScreen, an_alert_tells_one_press_and_one_stop_ends_all_loading) {
    struct Presses : PDAlertViewDelegate {
        int count = 0;
        void positiveButtonPressed(PDAlertView&) override { ++count; }
    };
    const auto presses = std::make_shared<Presses>();
    std::make_shared<PDAlertView>("Title", "", presses, "Send")->show();
    auto& button = part<UIButton>("positiveButton");
    for (int i = 0; i < 2; ++i)
        button.sendActions(UIControlEvent::touchUpInside);
    EXPECT_EQ(presses->count, 1);
    phone.advance(0.2);
    EXPECT_EQ(find("PDAlertView"), nullptr);
    PDLoadingView::start();
    PDLoadingView::start();
    PDLoadingView::stop();
    EXPECT_EQ(find("PDLoadingView"), nullptr);
}

}  // namespace

}  // namespace gexlo::test
