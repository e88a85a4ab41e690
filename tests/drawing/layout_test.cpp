// Where everything on the main screen and in its panels lies and is painted, where it is tightest:
// with names that are too long for their places and with none at all.
#include <QPainter>

#include "hosts/drawing/alert_view.h"
#include "hosts/drawing/qt_text_measure.h"
#include "hosts/drawing/text_layout.h"
#include "hosts/drawing/view_painter.h"
#include "platform/views/table_view.h"
#include "presentation/panels/pd_alert_view.h"
#include "presentation/panels/pd_loading_view.h"
#include "support/grid.h"
#include "support/pictures.h"

namespace gexlo::test {

namespace {

constexpr double kThumb = 40;      // points that a finger needs each way
constexpr int kVisible = 8;        // of 255, from which on ink counts
constexpr double kRounding = 0.5;  // points by which nobody sees a difference

/// What may be smaller, and why.
constexpr std::pair<const char*, const char*> kSmallTargets[] = {
    {"timetablePallet", "days times periods divide the screen, whatever comes out"},
    {"alertField", "the frame of that field is told"},
};

/// What a view writes, and how far from the edges it is painted.
using Text = std::tuple<std::string, UIFont, double>;
Text textOf(const UIView& view) {
    if (const auto* label = dynamic_cast<const UILabel*>(&view))
        return {label->text(), label->font(), 0};
    if (const auto* button = dynamic_cast<const UIButton*>(&view))
        return {button->title(), button->font(), 6};
    if (const auto* field = dynamic_cast<const UITextInput*>(&view))
        return {field->text().empty() ? field->placeholder() : field->text(), field->font(), 7};
    return {};
}

bool isWithin(const CGRect& inner, const CGRect& outer) {
    return inner.x >= outer.x - kRounding && inner.y >= outer.y - kRounding &&
           inner.maxX() <= outer.maxX() + kRounding && inner.maxY() <= outer.maxY() + kRounding;
}

/// Walks a tree from bottom to top, as it is painted, and checks what can be seen of it.
class Inspection {
public:
    Inspection(UIView& root, std::string name) : root_(root), name_(std::move(name)) {
        walk(root, {}, root_.frame(), false);
        for (std::size_t i = 0; i < seen_.size(); ++i) {
            if (seen_[i].isControl) checkTarget(seen_[i]);
            for (std::size_t k = 0; k < i; ++k)
                checkOverlap(seen_[k], seen_[i]);
        }
        checkInk();
    }

private:
    struct Seen {
        const UIView* view;
        CGRect place;  // of the text's ink, or the whole frame
        bool isControl = false;
        bool scrolls = false;
        friend std::ostream& operator<<(std::ostream& out, const Seen& seen) {
            for (const UIView* up = seen.view; up; up = up->superview())
                out << up->className() << ' ' << up->accessibilityIdentifier() << " < ";
            const auto [x, y, width, height] = seen.place;
            return out << x << ' ' << y << ' ' << width << ' ' << height;
        }
    };

    void walk(const UIView& view, CGPoint origin, const CGRect& clip, bool scrolls) {
        if (view.isHidden() || view.alpha() <= 0) return;
        const CGRect frame = view.frame().offsetBy(origin);
        cover(view, frame);
        add(view, frame, clip, scrolls);
        scrolls = scrolls || dynamic_cast<const UIScrollView*>(&view);
        const CGPoint offset = view.contentOffset();
        const CGRect inner = view.clipsToBounds() ? clip.intersection(frame) : clip;
        for (const auto& child : view.subviews())
            walk(*child, {frame.x - offset.x, frame.y - offset.y}, inner, scrolls);
    }

    /// A panel hides what lies below it, but never half of it, nor anything of its own panel.
    void cover(const UIView& view, const CGRect& frame) {
        const float alpha = view.backgroundColor().alpha;
        const bool coversAll = alpha > 0 && isWithin(root_.frame(), frame);
        if (!coversAll && alpha < 0.9F) return;
        std::erase_if(seen_, [&](const Seen& below) {
            if (view.isDescendantOf(*below.view) || !below.place.intersects(frame)) return false;
            const bool covers =
                isWithin(below.place, frame) && view.superview() != below.view->superview();
            EXPECT_TRUE(coversAll || below.scrolls || covers) << below << "\n  is covered by\n"
                                                              << Seen{&view, frame};
            return true;
        });
    }

    void add(const UIView& view, const CGRect& frame, const CGRect& clip, bool scrolls) {
        const auto* image = dynamic_cast<const UIImageView*>(&view);
        const bool isControl = dynamic_cast<const UIControl*>(&view) ||
                               dynamic_cast<const UITextInput*>(&view) ||
                               dynamic_cast<const UITableViewCell*>(&view);
        Seen seen{&view, frame, isControl, scrolls};
        const bool writes = !std::get<std::string>(textOf(view)).empty();
        if (writes) {
            seen.place = checkText(seen);
            texts_.push_back({&view, seen.place.intersection(clip), isControl});
        }
        const bool isThing = isControl || writes || (image && !image->image().isNone());
        const bool isArea = view.backgroundColor().alpha > 0 || view.borderWidth() > 0;
        // What lies wholly beyond the screen waits there for its turn.
        if ((!isThing && !isArea) || !seen.place.intersects(root_.frame())) return;
        EXPECT_TRUE(scrolls || isWithin(seen.place, clip)) << seen << " is cut off";
        if (isThing) seen_.push_back(seen);
    }

    /// Gives the rectangle of the ink. A name may end in an ellipsis, a text of our own not.
    CGRect checkText(const Seen& seen) const {
        const auto [text, font, inset] = textOf(*seen.view);
        CGRect box = seen.place;
        box = {box.x + inset, box.y, box.width - 2 * inset, box.height};
        const auto* label = dynamic_cast<const UILabel*>(seen.view);
        const int most = label ? label->numberOfLines() : 1;
        const double scale = label ? label->minimumScaleFactor() : 1;
        const TextLayout shown(text, font, {box.width, most, scale, true, box.height});
        const auto heightOf = [](const TextLayout& layout) {
            return (static_cast<double>(layout.lines().size()) - 1) * layout.lineHeight() +
                   layout.fontSize();
        };
        UIFont shrunk = font;
        shrunk.size = static_cast<float>(shown.fontSize());
        const TextLayout whole(text, shrunk, {box.width, most == 1 ? 1 : 0, 1, false});
        const auto lines = static_cast<int>(whole.lines().size());
        const double size = shown.fontSize();
        const double width = whole.size().width;
        const double height = heightOf(whole);
        const bool fits = width <= box.width + kRounding && height <= box.height + kRounding &&
                          (most == 0 || lines <= most);
        const bool isName = !name_.empty() && text.find(name_) != std::string::npos;
        const bool endsReadably = box.width >= 3 * size && box.height >= size;
        EXPECT_TRUE(fits || (isName && endsReadably))
            << seen << " needs " << width << ' ' << height;
        if (seen.isControl) return seen.place;
        const CGSize ink{std::min(shown.size().width, box.width),
                         std::min(heightOf(shown), box.height)};
        const double side = static_cast<double>(label->textAlignment()) / 2;
        const CGPoint rest{box.width - ink.width, box.height - ink.height};
        return {box.x + rest.x * side, box.y + rest.y / 2, ink.width, ink.height};
    }

    void checkTarget(const Seen& seen) const {
        for (const auto& [exception, why] : kSmallTargets)
            if (UIView* known = find(exception, root_); known && seen.view->isDescendantOf(*known))
                return;
        if (const auto* cell = dynamic_cast<const UITableViewCell*>(seen.view)) {
            for (const CGRect& mark : {cell->frame(), cell->deleteMark(), cell->reorderMark()})
                EXPECT_TRUE(mark.width == 0 || std::min(mark.width, mark.height) >= kThumb) << seen;
            return;
        }
        constexpr double reach = kThumb / 2 - kRounding;
        for (const CGPoint way : {CGPoint{-reach, 0}, {reach, 0}, {0, -reach}, {0, reach}}) {
            const CGPoint middle = seen.place.center();
            const UIView* hit = root_.hitTest({middle.x + way.x, middle.y + way.y});
            EXPECT_TRUE(hit && hit->isDescendantOf(*seen.view)) << seen << " is too small";
        }
    }

    static void checkOverlap(const Seen& below, const Seen& above) {
        const CGRect shared = below.place.intersection(above.place);
        const bool touch = std::min(shared.width, shared.height) > kRounding;
        if (!touch || above.view->isDescendantOf(*below.view)) return;
        // A control without a face lies over what it makes touchable.
        const auto* button = dynamic_cast<const UIButton*>(above.view);
        const bool isBare = !button || (button->title().empty() && button->image().isNone());
        if (above.isControl && isBare && isWithin(below.place, above.place)) return;
        ADD_FAILURE() << above << "\n  overlaps\n" << below;
    }

    /// Makes what labels and buttons write invisible.
    static void wipe(UIView& view) {
        if (auto* label = dynamic_cast<UILabel*>(&view)) label->setTextColor({});
        if (auto* button = dynamic_cast<UIButton*>(&view)) button->setTitleColor({});
        for (const auto& child : view.subviews())
            wipe(*child);
    }

    /// What goes from the picture with the texts has stood at their places, and at each of them.
    void checkInk() {
        ViewPainter painter(GEXLO_RESOURCES "/images");
        QImage full = painter.paint(root_, 1);
        wipe(root_);
        QImage bare = painter.paint(root_, 1);
        for (const Seen& text : texts_) {
            const auto isIt = [&](const Seen& seen) { return seen.view == text.view; };
            const auto [x, y, width, height] = text.place;
            if (width < 4 || height < 4 || dynamic_cast<const UITextInput*>(text.view)) continue;
            if (std::none_of(seen_.begin(), seen_.end(), isIt)) continue;
            const QRect place = QRectF(x - 3, y - 3, width + 6, height + 6).toRect();
            EXPECT_NE(differing(full.copy(place), bare.copy(place), kVisible), 0)
                << text << " has no ink";
        }
        for (QImage* image : {&full, &bare}) {
            QPainter over(image);
            for (const auto& [view, place, isControl, scrolls] : texts_)  // letters lean out
                over.fillRect(QRectF(place.x - 3, place.y - 3, place.width + 6, place.height + 6),
                              Qt::black);
        }
        EXPECT_EQ(differing(full, bare, kVisible), 0) << "ink beyond the places of texts";
    }

    UIView& root_;
    std::string name_;
    std::vector<Seen> seen_;
    std::vector<Seen> texts_;  // those that are covered as well
};

using Screen = std::array<int, 3>;  // width, height and height of the status bar
constexpr Screen kSmallest{320, 480, 20};
/// A language, and a name in it that nothing has room for.
using Language = std::pair<std::string_view, std::string_view>;
constexpr Language kLanguages[] = {
    {"en", "Introduction to Comparative Constitutional Jurisprudence and Methods"},
    {"ko", "고등학교 화법과작문 및 심화국어 종합연습 그리고 논술대비 특별강좌"},
    {"ja", "コミュニケーション英語表現演習特別講座・大学入学共通試験対策"},
    {"zh-Hans", "马克思主义基本原理概论与当代中国社会发展问题专题研究讨论课程"},
    {"zh-Hant", "馬克思主義基本原理概論與當代中國社會發展問題專題研究討論課程"}};

class Layout : public Grid,
               public ::testing::WithParamInterface<std::tuple<Screen, Language, bool>> {
public:
    Layout() {
        const auto& [screen, language, named] = GetParam();
        std::tie(phone.facts.screenWidth, phone.facts.screenHeight, phone.facts.statusBarHeight) =
            std::tuple_cat(screen);
        phone.facts.languages = {std::string(language.first)};
        phone.services.textMeasure = std::make_shared<QtTextMeasure>();
        relaunch();
        if (named) name = language.second;
        phone.timetable().name = name;
        auto& lesson = phone.addSubject(name, {mon(1), mon(2), tue(4), in(name.c_str(), tue(5))});
        for (auto* text : {&lesson.professor->name, &lesson.room1, &lesson.room2, &lesson.room3})
            *text = name;
        auto& lunch = phone.addClasstime(phone.timetable(), mon(4.1F), 12, 0);
        lunch.shortName = "Lunch break";
        phone.manager().saveContext();
    }
    void ask(bool forText) const {
        const std::weak_ptr<PDAlertViewDelegate> nobody;
        const auto alert = std::make_shared<PDAlertView>(name, name, nobody, "OK");
        const auto field = std::make_shared<UITextField>();
        field->setAccessibilityIdentifier("alertField");
        if (forText) alert->setTextField(field);
        alert->show();
    }
    void exportAll() const {
        mainView().openMoreMenu();
        tap(part("btnExport"));
    }
    void showHour() const { manager().showClassHour_periodName("12:30 - 13:20", name); }

    std::string name;
};

/// What a person may have before them: the taps that lead there, and the call.
const struct {
    const char* what;
    std::vector<const char*> taps;
    void (*call)(Layout&) = [](Layout&) {};
} kSights[] = {
    {"the grid", {}},
    {"a new room", {"btnAdd", "btnRoom1"}},
    {"typing", {"btnEdit", "nameLabel", "tfName"}},
    {"colours", {"btnEdit", "nameLabel", "colorButtonDidPush"}},
    {"subjects to be ordered", {"btnEdit", "editButton"}},
    {"a deletion",
     {"btnEdit"},
     [](Layout&) { part<UITableView>("SubjectListTableView").requestDelete({}); }},
    {"export", {}, [](Layout& on) { on.exportAll(); }},
    {"share", {"btnShare"}},
    {"a class hour", {}, [](Layout& on) { on.showHour(); }},
    {"a class hour while adding", {"btnAdd"}, [](Layout& on) { on.showHour(); }},
    {"a title", {}, [](Layout& on) { part<GXTitleView>("titleView").show(on.name); }},
    {"notes", {}, [](Layout&) { GXUIManager::manager().openTopTitleViewWithScheduleIndex(1); }},
    {"absences", {}, [](Layout&) { part<GXDateView>("dateView").openAbsenceView(nullptr); }},
    {"a question", {}, [](Layout& on) { on.ask(false); }},
    {"a question for a text", {}, [](Layout& on) { on.ask(true); }},
    {"waiting", {}, [](Layout&) { PDLoadingView::start(); }},
};

TEST_P(Layout, everything_has_its_place_and_can_be_read_and_touched) {
    for (const auto& [what, taps, call] : kSights) {
        SCOPED_TRACE(what);
        relaunch();
        for (const char* button : taps) {
            tap(part(button));
            phone.advance(1);
        }
        call(*this);
        phone.advance(0.5);
        Inspection(UIWindow::keyWindow(), name);
        for (const UIAlert& alert : UIWindow::keyWindow().alerts())
            Inspection(*alertView(alert, UIWindow::keyWindow().frame().size()).view, name);
    }
}

/// Every language where there is least room, and every other rule of layout once.
INSTANTIATE_TEST_SUITE_P(OnTheSmallest, Layout,
                         ::testing::Combine(::testing::Values(kSmallest),
                                            ::testing::ValuesIn(kLanguages),
                                            ::testing::Values(true)));
INSTANTIATE_TEST_SUITE_P(, Layout,
                         ::testing::Values(std::tuple(kSmallest, kLanguages[0], false),
                                           std::tuple(Screen{375, 667, 20}, kLanguages[1], true),
                                           std::tuple(Screen{414, 736, 20}, kLanguages[0], true),
                                           std::tuple(Screen{375, 812, 44}, kLanguages[2], false)));

}  // namespace

}  // namespace gexlo::test
