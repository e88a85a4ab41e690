// The items of the window, kept in step with a tree that changes, beside those built anew.
#include "hosts/desktop/view_mirror.h"

#include <random>
#include <sstream>

#include "desktop/window_fixture.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/scroll_view.h"
#include "platform/views/window.h"

namespace gexlo::test {
namespace {

class Mirror : public Toolkit, public ::testing::Test {
protected:
    struct Shown {
        explicit Shown(Mirror& test) : mirror(test.engine, root, test.painter, {}) {}
        QQuickItem root;
        ViewMirror mirror;
    };

    std::size_t below(std::size_t end) { return random() % end; }
    double place(int end) { return static_cast<double>(below(static_cast<std::size_t>(end))); }

    std::shared_ptr<UIView> newView() {
        const CGRect frame{place(500) - 60, place(900) - 60, place(300), place(200)};
        const std::shared_ptr<UIView> kinds[] = {
            std::make_shared<UILabel>(frame), std::make_shared<UIButton>(frame),
            std::make_shared<UIScrollView>(frame), std::make_shared<UIView>(frame)};
        return kinds[below(4)];
    }
    UIView& anyView() {
        UIView* view = &window;
        while (!view->subviews().empty() && (view == &window || below(3) > 0))
            view = view->subviews()[below(view->subviews().size())].get();
        return *view;
    }
    void change() {
        UIView& view = anyView();
        auto* scroll = dynamic_cast<UIScrollView*>(&view);
        auto* label = dynamic_cast<UILabel*>(&view);
        const std::size_t what = below(9);
        if (what == 0) view.setClipsToBounds(!view.clipsToBounds());
        if (what == 1 && scroll) scroll->setContentOffset({place(400) - 200, place(400) - 200});
        if (what == 2 && label) label->setText(std::to_string(below(99)));
        if (what > 6) view.insertSubview_atIndex(newView(), below(view.subviews().size() + 1));
        if (&view == &window) return;
        if (what == 3) view.setHidden(!view.isHidden());
        if (what == 4) view.setFrame(newView()->frame());
        if (what == 4) view.setAlpha(place(4) / 3);
        if (what == 5) view.superview()->bringSubviewToFront(view);
        if (what == 6) view.removeFromSuperview();
    }
    /// All items, each with those upon it from bottom to top.
    static void tell(const QQuickItem& item, std::ostream& out) {
        out << '(' << item.x() << ' ' << item.y() << ' ' << item.width() << ' ' << item.height()
            << ' ' << item.opacity() << item.clip();
        if (const auto* view = qobject_cast<const ViewItem*>(&item))
            out << view->spokenName().toStdString();
        for (const QQuickItem* child : item.childItems())
            tell(*child, out);
        out << ')';
    }
    std::string told(Shown& shown) {
        shown.mirror.synchronize(window);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::ostringstream out;
        tell(shown.root, out);
        return out.str();
    }

    Phone phone;
    UIWindow& window = UIWindow::keyWindow();
    QQmlEngine engine;
    ViewPainter painter{GEXLO_RESOURCES "/images"};
    std::mt19937 random{3};
};

TEST_F(Mirror, follows_changes_to_what_it_would_show_of_the_tree_anew) {
    Shown kept(*this);
    for (int i = 0; i < 400; ++i) {
        const bool takesTime = below(2) == 0;
        window.animateWithDuration(takesTime ? 1 : 0, [&] {
            for (std::size_t changes = below(4); changes > 0; --changes)
                change();
        });
        phone.advance(place(80) / 100);
        const std::string followed = told(kept);
        Shown anew(*this);
        ASSERT_EQ(followed, told(anew)) << i;
    }
}

TEST_F(Mirror, shows_what_slides_out_in_and_by_while_it_is_in_sight) {
    UIView& panel = window.add<UIView>(window.frame());
    panel.add<UILabel>(CGRect{0, 10, 100, 20}).setText("on the panel");
    auto& scroll = window.add<UIScrollView>(window.frame());
    scroll.add<UILabel>(CGRect{0, 10, 100, 20}).setText("above");
    scroll.add<UILabel>(CGRect{0, 2000, 100, 20}).setText("below");
    for (const double x : {0, 100, 200})
        scroll.add<UILabel>(CGRect{x, 1000, 100, 20}).setText("between");
    Shown shown(*this);
    const auto countAfter = [&](double seconds) {
        phone.advance(seconds);
        told(shown);
        return shown.root.findChildren<ViewItem*>().size();
    };
    const auto atRest = countAfter(0);
    window.animateWithDuration(1, [&] {
        scroll.setContentOffset({0, 1900});
        panel.setFrame(window.frame().offsetBy({0, 1000}));
    });
    EXPECT_EQ(countAfter(0), atRest);
    EXPECT_EQ(countAfter(0.5), atRest + 2) << "the panel still, and what is between";
    EXPECT_TRUE(shown.mirror.isAnimating());
    EXPECT_EQ(countAfter(0.5), atRest - 2) << "without the panel and its label";
    EXPECT_FALSE(shown.mirror.isAnimating());
}

}  // namespace
}  // namespace gexlo::test
