// The items of the window, kept in step with a tree that changes, beside those built anew.
#include "hosts/desktop/view_mirror.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QQmlEngine>
#include <random>
#include <sstream>

#include "hosts/drawing/gui_application.h"
#include "platform/views/button.h"
#include "platform/views/label.h"
#include "platform/views/scroll_view.h"
#include "platform/views/window.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

struct Toolkit {
    Toolkit() {
        qputenv("QT_QUICK_BACKEND", "software");
        needGuiApplication();
    }
};

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
        switch (below(4)) {
            case 0:
                return std::make_shared<UILabel>(frame);
            case 1:
                return std::make_shared<UIButton>(frame);
            case 2:
                return std::make_shared<UIScrollView>(frame);
            default:
                return std::make_shared<UIView>(frame);
        }
    }
    UIView& anyView() {
        UIView* view = &window;
        while (!view->subviews().empty() && (view == &window || below(3) > 0))
            view = view->subviews()[below(view->subviews().size())].get();
        return *view;
    }
    void change() {
        UIView& view = anyView();
        const bool isTop = &view == &window;
        switch (below(9)) {
            case 0:
                if (!isTop) view.removeFromSuperview();
                break;
            case 1:
                if (!isTop) view.setHidden(!view.isHidden());
                break;
            case 2:
                if (!isTop) view.setFrame(newView()->frame());
                break;
            case 3:
                view.setClipsToBounds(!view.clipsToBounds());
                break;
            case 4:
                if (!isTop) view.superview()->bringSubviewToFront(view);
                break;
            case 5:
                if (auto* scroll = dynamic_cast<UIScrollView*>(&view))
                    scroll->setContentOffset({place(400) - 200, place(400) - 200});
                break;
            case 6:
                if (auto* label = dynamic_cast<UILabel*>(&view))
                    label->setText(std::to_string(below(99)));
                break;
            default:
                view.insertSubview_atIndex(newView(), below(view.subviews().size() + 1));
        }
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
        for (std::size_t changes = below(4); changes > 0; --changes)
            change();
        const std::string followed = told(kept);
        Shown anew(*this);
        ASSERT_EQ(followed, told(anew)) << i;
    }
}

TEST_F(Mirror, keeps_what_slides_out_of_sight_until_it_has_come_to_rest) {
    UIView& panel = window.add<UIView>(window.frame());
    panel.add<UILabel>(CGRect{0, 10, 100, 20}).setText("on the panel");
    auto& scroll = window.add<UIScrollView>(window.frame());
    scroll.add<UILabel>(CGRect{0, 10, 100, 20}).setText("above");
    scroll.add<UILabel>(CGRect{0, 2000, 100, 20}).setText("below");
    scroll.add<UILabel>(CGRect{0, 1000, 100, 20}).setText("between");
    Shown shown(*this);
    const auto count = [&] {
        told(shown);
        return shown.root.findChildren<ViewItem*>().size();
    };
    const auto atRest = count();
    UIView::animateWithDuration(0.01, [&] {
        scroll.setContentOffset({0, 1900});
        panel.setFrame(window.frame().offsetBy({0, 1000}));
    });
    EXPECT_EQ(count(), atRest + 2) << "what slides out, in, and by";
    while (shown.mirror.isAnimating())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    scroll.setContentOffset({0, 1901});
    EXPECT_EQ(count(), atRest - 2) << "without the panel and its label";
}

}  // namespace
}  // namespace gexlo::test
