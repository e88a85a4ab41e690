// Thousands of touches without a plan: nothing breaks, nothing stays locked, nothing is lost.
#include <random>
#include <set>
#include <tuple>

#include "platform/views/scroll_view.h"
#include "platform/views/table_view.h"
#include "platform/views/text_input.h"
#include "presentation/panels/bottom_menu.h"
#include "support/grid.h"
#include "support/trial_flow.h"

namespace gexlo::test {

namespace {

constexpr int kSteps = 9000;

class RandomWalk : public Grid {
protected:
    std::size_t below(std::size_t end) { return random() % end; }
    void turn(const std::function<void()>& act) { Device::current().perform(act); }
    static UIWindow& window() { return UIWindow::keyWindow(); }
    CGPoint pointWithin(CGSize size) {
        const std::size_t x = below(static_cast<std::size_t>(size.width));
        return {static_cast<double>(x),
                static_cast<double>(below(static_cast<std::size_t>(size.height)))};
    }

    template <typename View>
    static std::vector<View*> visible() {
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
    template <typename View>
    View* any() {
        const auto views = visible<View>();
        return views.empty() ? nullptr : views[below(views.size())];
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
            return answer(button, {std::to_string(below(4))});
        }
        const std::size_t choice = below(12);
        if (choice == 0) return phone.advance(static_cast<double>(below(600)) / 1000);
        UITextInput* field = choice == 1 ? window().firstResponder() : nullptr;
        if (field) return turn([&] { field->insertText("가b"); });
        if (UITableView* table = choice == 2 ? any<UITableView>() : nullptr) {
            const NSIndexPath row{0, static_cast<NSInteger>(below(8))};
            const NSIndexPath last{0, table->numberOfRowsInSection(0) - 1};
            const bool reorders = below(2) == 0;
            return turn([&] { reorders ? table->dragRow(row, last) : table->requestDelete(row); });
        }
        UIScrollView* view = choice == 3 ? any<UIScrollView>() : nullptr;
        if (view) return turn([&] { view->dragTo(pointWithin({500, 500})); });
        UIControl* control = choice > 3 && choice < 7 ? any<UIControl>() : nullptr;
        touch(control ? control->visibleRect().center() : pointWithin(window().frame().size()));
    }

    /// What a person does to get out of everything: says no, cancels, closes.
    void leaveEverything() {
        for (int i = 0; i < 20; ++i) {
            while (!window().alerts().empty())
                answer(window().alerts().back().buttons.size() - 1);
            // A list that is being edited is closed only when that is done.
            for (const char* way : {"doneButton", "closeButton", "btnCancel"}) {
                for (const UIControl* control : visible<UIControl>()) {
                    if (control->accessibilityIdentifier() != way) continue;
                    touch(control->visibleRect().center());
                    break;
                }
            }
            phone.advance(2);
        }
    }

    void checkStore() {
        for (const GXLessonData* lesson : phone.manager().dataList<GXLessonData>()) {
            EXPECT_TRUE(lesson->timetable && lesson->professor);
            EXPECT_FALSE(lesson->name.get().empty());
            EXPECT_EQ(lesson->memo.count(), 1U);
        }
        std::set<std::tuple<NSInteger, NSInteger, float>> slots;
        for (const GXDayNPeriodData* placement : phone.manager().dataList<GXDayNPeriodData>()) {
            const std::tuple slot(placement->week.get(), placement->day.get(),
                                  placement->period.get());
            EXPECT_TRUE(placement->lesson);
            EXPECT_TRUE(slots.insert(slot).second) << "two subjects on one slot";
        }
    }

    std::mt19937 random{7};
};

TEST_F(RandomWalk, leaves_a_sound_store_and_a_menu_that_can_be_used) {
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
    EXPECT_EQ(manager().appState(), AppState::normal);
    const auto menus = visible<GXBottomMenu>();
    ASSERT_EQ(menus.size(), 1U) << "something lies over the menu";
    EXPECT_FALSE(menus[0]->isLocked());
    checkStore();
    phone.relaunch();
    checkStore();
}

TEST_F(RandomWalk, leaves_no_screen_behind) {
    UIViewController& root = *window().rootViewController();
    std::vector<std::weak_ptr<UIViewController>> flows;
    std::size_t deepest = 0;
    for (int i = 0; i < 4000 && !HasFailure(); ++i) {
        if (!root.presentedViewController()) {
            const auto flow = trialFlow();
            turn([&] { root.presentViewController_animated_completion(flow, below(2) == 0); });
            flows.push_back(flow);
        }
        step();
        std::size_t depth = 0;
        for (UIViewController* at = root.presentedViewController(); at;
             at = at->presentedViewController()) {
            ++depth;
            EXPECT_EQ(at->isInSight(), !at->presentedViewController());
            EXPECT_EQ(at->view()->window(), &window());
        }
        deepest = std::max(deepest, depth);
    }
    EXPECT_GT(deepest, 2U) << "the walk never nested its flows";
    EXPECT_GT(flows.size(), 2U) << "the walk never left one";
    turn([&] { root.dismissViewControllerAnimated_completion(true); });
    phone.advance(2);
    for (const auto& flow : flows)
        EXPECT_TRUE(flow.expired());
    EXPECT_TRUE(root.isInSight() && visible<UINavigationBar>().empty());
    EXPECT_TRUE(window().alerts().empty() && !window().firstResponder());
    EXPECT_EQ(visible<GXBottomMenu>().size(), 1U);
}

}  // namespace

}  // namespace gexlo::test
