// Thousands of touches without a plan: nothing breaks, nothing stays locked, nothing is lost.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

#include "app/app_delegate.h"
#include "app/main_view.h"
#include "platform/views/scroll_view.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"
#include "presentation/panels/bottom_menu.h"
#include "presentation/ui_manager.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

constexpr int kSteps = 9000;

class RandomWalk : public ::testing::Test {
protected:
    std::size_t below(std::size_t end) { return random() % end; }
    void turn(const std::function<void()>& act) { Device::current().perform(act); }
    UIWindow& window() { return UIWindow::keyWindow(); }

    template <typename View>
    std::vector<View*> visible() {
        std::vector<View*> found;
        const auto collect = [&](const auto& self, UIView& view) -> void {
            if (view.isHidden()) return;
            auto* wanted = dynamic_cast<View*>(&view);
            if (wanted && window().canReach(view)) found.push_back(wanted);
            for (const auto& child : view.subviews())
                self(self, *child);
        };
        collect(collect, window());
        return found;
    }

    void touch(CGPoint point) {
        turn([&] {
            window().touchDown(point);
            if (below(20) == 0) return window().touchCancel();
            window().touchUp(point);
        });
    }

    void step() {
        if (!window().alerts().empty() && below(3) != 0) {
            const std::size_t button = below(window().alerts().back().buttons.size());
            return turn([&] { window().answer(button, {std::to_string(below(4))}); });
        }
        switch (below(12)) {
            case 0:
                return phone.advance(static_cast<double>(below(600)) / 1000);
            case 1:
                if (UITextInput* field = window().firstResponder()) {
                    return turn([&] { field->insertText("가b"); });
                }
                break;
            case 2:
                if (const auto tables = visible<UITableView>(); !tables.empty()) {
                    UITableView& table = *tables.back();
                    const NSInteger rows = table.numberOfRowsInSection(0);
                    const auto row = static_cast<NSInteger>(below(8));
                    const bool reorders = below(2) == 0;
                    return turn([&] {
                        reorders ? table.dragRow({0, row}, {0, rows - 1})
                                 : table.requestDelete({0, row});
                    });
                }
                break;
            case 3:
                if (const auto views = visible<UIScrollView>(); !views.empty()) {
                    UIScrollView& view = *views[below(views.size())];
                    const CGPoint offset{static_cast<double>(below(500)),
                                         static_cast<double>(below(500))};
                    return turn([&] { view.dragTo(offset); });
                }
                break;
            case 4:
            case 5:
            case 6:
                if (const auto controls = visible<UIControl>(); !controls.empty()) {
                    return touch(controls[below(controls.size())]->visibleRect().center());
                }
                break;
            default:
                break;
        }
        const CGSize screen = window().frame().size();
        touch({static_cast<double>(below(static_cast<std::size_t>(screen.width))),
               static_cast<double>(below(static_cast<std::size_t>(screen.height)))});
    }

    /// What a person does to get out of everything: says no, cancels, closes.
    void leaveEverything() {
        for (int i = 0; i < 20; ++i) {
            while (!window().alerts().empty()) {
                turn([&] { window().answer(window().alerts().back().buttons.size() - 1); });
            }
            // A list that is being edited is closed only when that is done.
            for (const char* way : {"doneButton", "closeButton", "btnCancel"}) {
                const auto controls = visible<UIControl>();
                const auto found = std::find_if(
                    controls.begin(), controls.end(),
                    [&](UIControl* at) { return at->accessibilityIdentifier() == way; });
                if (found != controls.end()) touch((*found)->visibleRect().center());
            }
            phone.advance(2);
        }
    }

    void checkStore() {
        const auto lessons = phone.manager().dataList<GXLessonData>();
        for (const GXLessonData* lesson : lessons) {
            EXPECT_TRUE(lesson->timetable);
            EXPECT_TRUE(lesson->professor);
            EXPECT_FALSE(lesson->name.get().empty());
            EXPECT_EQ(lesson->memo.count(), 1U);
        }
        std::set<std::tuple<NSInteger, NSInteger, float>> slots;
        for (const GXDayNPeriodData* placement : phone.manager().dataList<GXDayNPeriodData>()) {
            EXPECT_TRUE(placement->lesson);
            EXPECT_TRUE(
                slots.emplace(placement->week.get(), placement->day.get(), placement->period.get())
                    .second)
                << "two subjects on one slot";
        }
    }

    Phone phone;
    std::mt19937 random{7};
};

TEST_F(RandomWalk, leaves_a_sound_store_and_a_menu_that_can_be_used) {
    phone.launch();
    phone.timetable().numWeeks = 2;
    phone.manager().saveContext();
    phone.relaunch();
    std::size_t most = 0;
    for (int i = 0; i < kSteps && !HasFailure(); ++i) {
        step();
        most = std::max(most, phone.timetable().lessons.count());
    }
    EXPECT_GT(most, 2U) << "the walk never got as far as saving subjects";
    leaveEverything();
    EXPECT_EQ(GXUIManager::manager().appState(), AppState::normal);
    const auto menus = visible<GXBottomMenu>();
    ASSERT_EQ(menus.size(), 1U) << "something lies over the menu";
    EXPECT_FALSE(menus[0]->isLocked());
    checkStore();
    phone.relaunch();
    checkStore();
}

}  // namespace

}  // namespace gexlo::test
