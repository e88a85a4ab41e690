// The grid area: its pages, the room it makes for panels, today's mark, and odd timetables.
#include <random>
#include <set>
#include <sstream>

#include "platform/views/scroll_view.h"
#include "support/grid.h"
#include "time/periods_controller.h"

namespace gexlo::test {

namespace {

class Pallet : public Grid {
protected:
    void show(int days, int weeks, bool onLeft) {
        phone.timetable().lastDay = days;
        phone.timetable().numWeeks = weeks;
        phone.timetable().daysOnLeft = onLeft;
        redraw();
    }
    static UIScrollView& main() { return part<UIScrollView>("mainScrollView"); }
    static UIScrollView& sub() { return part<UIScrollView>("subScrollView"); }
};

TEST_F(Pallet, the_weeks_take_a_page_each_or_share_one) {
    const struct {
        int days, weeks;
        bool onLeft;
        CGSize pages, content;
        CGRect sub;
        CGPoint grid{}, strip{}, corner{}, page{};  // of the second week
    } cases[] = {
        {5, 1, false, {381, 553}, {381, 513}, {0, 40, 381, 513}},
        {5, 9, true, {325, 4977}, {469, 4977}, {44, 0, 336, 4977}},
        {5, 2, false, {762, 553}, {762, 513}, {0, 40, 762, 513}, {384}, {420, 5}, {384, 5}, {380}},
        {4,
         2,
         true,
         {325, 1106},
         {469, 1106},
         {44, 0, 336, 1106},
         {0, 558},
         {5, 601},
         {5, 558},
         {0, 553}},
        {3, 2, true, {325, 553}, {469, 553}, {44, 0, 336, 553}, {0, 281}, {5, 321}, {5, 281}},
    };
    for (const auto& at : cases) {
        SCOPED_TRACE(testing::Message() << at.days << " days, on left " << at.onLeft);
        show(at.days, at.weeks, at.onLeft);
        EXPECT_TRUE(main().contentSize() == at.pages && main().alwaysBounceVertical() == at.onLeft);
        EXPECT_TRUE(sub().contentSize() == at.content && sub().frame() == at.sub);
        EXPECT_EQ(part("blinkIndex").isHidden(), at.weeks == 2);
        for (const char* second : {"btnIndexA", "btnIndexB", "daysView2", "timetable2"})
            EXPECT_EQ(part(second).isHidden(), at.weeks != 2) << second;
        CGRect column = part("day_0_1").frameInWindow(), row = part("period_0_1").frameInWindow();
        if (at.onLeft) std::swap(column, row);
        EXPECT_EQ(cell(2, 1).frameInWindow(), (CGRect{column.x, row.y, column.width, row.height}));
        mainView().setTimetablePosition(7);
        EXPECT_EQ(main().contentOffset(), at.page) << "of any number but 0";
        mainView().setTimetablePosition(0);
        if (at.weeks != 2) continue;
        EXPECT_EQ(part("timetable2").frame().origin(), at.grid);
        EXPECT_EQ(part("daysView2").frame().origin(), at.strip);
        EXPECT_EQ(part("btnIndexB").frame().origin(), at.corner);
        tap(part("btnIndexA"));
        EXPECT_EQ(main().contentOffset(), at.page);
        tap(part("btnIndexB"));
        EXPECT_EQ(main().contentOffset(), CGPoint{});
        for (const int second : {0, 1}) {
            main().setContentOffset(at.onLeft ? CGPoint{0, 273.0 + second}
                                              : CGPoint{159.0 + second});
            EXPECT_EQ(mainView().timetablePosition(), second);
        }
    }
}

TEST_F(Pallet, a_tapped_lesson_comes_above_the_panel_and_the_page_goes_back_behind_it) {
    GXLessonData& lesson = phone.addSubject("M");
    const struct {
        int days;
        bool onLeft;
        int week, positionY;
        double offset, height, offsetAfter, heightAfter;
    } cases[] = {
        {5, false, 0, 50, 0, 634, 0, 513},       {5, false, 1, 250, 54, 634, 0, 513},
        {5, false, 0, 400, 121, 634, 0, 513},    {5, true, 0, 20, 0, 1226, 0, 1106},
        {5, true, 0, 250, 78, 1226, 0, 1106},    {5, true, 0, 400, 120, 1226, 0, 1106},
        {5, true, 1, 20, 553, 1226, 553, 1106},  {5, true, 1, 250, 631, 1226, 553, 1106},
        {5, true, 1, 400, 673, 1226, 553, 1106}, {3, true, 0, 50, 0, 673, 0, 553},
        {3, true, 1, 5, 112, 673, 0, 553},       {3, true, 1, 20, 120, 673, 0, 553},
    };
    for (const auto& at : cases) {
        SCOPED_TRACE(testing::Message() << at.days << " days, y " << at.positionY);
        show(at.days, 2, at.onLeft);
        const UIScrollView& moved = at.onLeft ? main() : sub();
        post(GX_NOTI_BEGIN_ADD_LESSON);
        EXPECT_TRUE(moved.contentOffset().y == 0 && moved.contentSize().height == at.height);
        post(GX_NOTI_LESSON_INFO_OPEN,
             {{"lessonData", &lesson}, {"weekNo", at.week}, {"positionY", at.positionY}});
        EXPECT_EQ(moved.contentOffset().y, at.offset);
        EXPECT_NE(main().isPagingEnabled(), at.onLeft);
        post(GX_NOTI_LESSON_INFO_CLOSE);
        phone.advance(0.2);
        EXPECT_EQ(moved.contentOffset().y, at.offsetAfter);
        EXPECT_EQ(moved.contentSize().height, at.heightAfter);
        EXPECT_TRUE(main().isPagingEnabled());
    }
}

TEST_F(Pallet, an_editor_that_closes_leaves_the_grid_where_it_is_or_at_its_end) {
    phone.timetable().lastPeriod = 20;
    show(5, 1, false);
    GXLessonData& lesson = phone.addSubject("M");
    for (const bool adds : {true, false}) {
        for (const bool saves : {true, false}) {
            for (const auto& [open, closed] : {std::pair{400, 400}, {671, 550}}) {
                adds ? manager().openAddLessonView() : manager().openEditLessonView(&lesson);
                sub().dragTo({0, static_cast<double>(open)});
                saves ? save("M") : manager().cancelLessonEditing();
                EXPECT_EQ(sub().contentSize().height, 1060) << adds << saves;
                EXPECT_EQ(sub().contentOffset().y, closed) << adds << saves;
            }
        }
    }
}

TEST_F(Pallet, a_load_pages_whatever_was_open_over_the_former_grid) {
    GXLessonData& lesson = phone.addSubject("M");
    show(5, 2, true);
    post(GX_NOTI_LESSON_INFO_OPEN, {{"lessonData", &lesson}, {"weekNo", 0}, {"positionY", 9}});
    EXPECT_FALSE(main().isPagingEnabled());
    show(5, 2, false);
    post(GX_NOTI_CLOSE_ALL_SUBVIEWS);
    EXPECT_TRUE(main().isPagingEnabled());
    phone.timetable().lastPeriod = 20;
    redraw();
    sub().dragTo({0, 100});
    redraw();
    EXPECT_EQ(sub().contentOffset(), CGPoint{}) << "and begins at the top";
}

TEST_F(Pallet, days_are_named_in_the_bold_face_of_the_language_or_numbered) {
    const UIFont bold14 = UIFont::boldSystemFontOfSize(14), bold15 = {"", 15, true};
    const UIFont korean14{"NanumGothicOTFBold", 14}, korean15{"NanumGothicOTFBold", 15};
    const struct {
        const char* language;
        int lastDay;  // from Sunday on
        bool numbers, onLeft;
        const char *first, *last;
        UIFont font;
        int above = 0;  // the cell
    } cases[] = {
        {"en", 4, false, false, "Sun", "Thu", bold15},
        {"en", 5, true, false, "7", "5", bold14},
        {"en", 4, true, true, "Day 7", "Day 4", bold14},
        {"ko", 4, false, false, "일", "목", korean15, 2},
        {"ko", 5, true, true, "7", "5", korean14, 2},
        {"ko", 5, true, false, "7", "5", bold14, 2},
    };
    for (const auto& at : cases) {
        phone.facts.languages = {at.language};
        relaunch();
        phone.timetable().firstDay = 0;
        phone.timetable().daysToNumbers = at.numbers;
        show(at.lastDay, 1, at.onLeft);
        UIView& last = part(stringWithFormat("day_0_%d", at.lastDay));
        const auto& label = part<UILabel>("label", last);
        EXPECT_EQ(part<UILabel>("label", part("day_0_0")).text(), at.first);
        EXPECT_EQ(label.text(), at.last);
        EXPECT_EQ(label.font(), at.font) << at.first << at.onLeft;
        EXPECT_EQ(label.frame().height, last.frame().height + at.above);
    }
}

TEST_F(Pallet, the_mark_of_today_moves_on_at_midnight) {
    show(5, 2, false);
    const auto marked = [](const char* day) { return !part("mask", part(day)).isHidden(); };
    phone.advance(16 * 3600 - 2);
    EXPECT_TRUE(marked("day_0_0") && marked("day_1_0") && !marked("day_0_1"));
    phone.advance(1);
    EXPECT_TRUE(marked("day_0_1") && marked("day_1_1") && !marked("day_0_0"));
}

class OddTimetables : public Grid {
protected:
    NSInteger below(std::size_t end) { return static_cast<NSInteger>(random() % end); }
    template <typename T>
    T oneOf(std::initializer_list<T> values) {
        return values.begin()[below(values.size())];
    }

    /// A new timetable on screen; with a slot for more than one subject only if told so.
    void makeTimetable(bool sharesSlots) {
        GXTimetableData& timetable = phone.manager().addNewTimetable();
        phone.manager().setCurrentTimetableNo(timetable.index.get());
        const bool isFull = below(8) == 0;
        timetable.firstPeriod = isFull ? 1 : below(4);
        timetable.lastPeriod = isFull ? 34 : below(9);
        timetable.useHalfPeriods = isFull || below(2) == 1;
        timetable.firstDay = below(8);
        timetable.lastDay = below(8);
        timetable.numWeeks = oneOf({0, 1, 2, 2, 9});
        timetable.daysOnLeft = below(2) == 1;
        timetable.showClasstimes = below(2) == 1;
        timetable.colorBorder = oneOf({"#12", "none", "red", "#191919"});
        timetable.textSize.clear();
        for (float n = 0; n < 35; ++n) {
            for (const float tenth : {0.1F, 0.6F, 0.3F}) {
                if (isFull || below(6) == 0) phone.addClasstime(timetable, mon(n + tenth), 9, 0);
            }
        }
        redraw();  // the rows are known from here on
        std::set<std::tuple<NSInteger, NSInteger, float>> taken;
        GXLessonData* subject = nullptr;
        for (int i = 0; i < 30; ++i) {
            if (i % 5 == 0) subject = &phone.addSubject("M");
            subject->color = oneOf({"#C2DEF2", "orange", "none", "#12", ""});
            Slot slot{below(8), 0, below(3), oneOf<const char*>({"", "", "A", nullptr})};
            NSInteger row = below(manager().periods()->numPeriods() + 1);
            for (NSInteger more = below(4); more >= 0; --more) {
                slot.period = below(9) == 0 ? 2.3F : manager().periods()->periodNo(row++);
                if (taken.emplace(slot.week, slot.day % 7, slot.period).second || sharesSlots)
                    phone.place(*subject, slot);
            }
        }
        redraw();
    }

    /// Adds, edits or removes a subject, or begins to and cancels.
    void change() {
        const auto all = phone.timetable().lessons.allObjects();
        GXLessonData* subject = all.empty() || below(3) == 0 ? nullptr : all[random() % all.size()];
        if (subject && below(3) == 0) {
            post(GX_NOTI_REMOVE_LESSON, {{"lessonData", subject}});
            return phone.manager().removeLesson_inTimetable(*subject, phone.timetable());
        }
        subject ? manager().openEditLessonView(subject) : manager().openAddLessonView();
        const GXTimetablePallet& pallet = mainView().timetablePallet();
        const auto& cells =
            (below(2) == 0 ? pallet.timetable1() : pallet.timetable2()).classCells();
        for (NSInteger taps = cells.empty() ? 0 : below(8); taps > 0; --taps) {
            manager().setSelectedRoom(oneOf({"", "A"}));
            const auto& selected = manager().selectedCells();
            const auto& among = below(2) == 0 && !selected.empty() ? selected : cells;
            const auto name = among[random() % among.size()]->accessibilityIdentifier();
            for (const auto& cell : cells) {  // a Sunday can be shown twice
                if (cell->accessibilityIdentifier() == name)
                    part<UIControl>("button", *cell).sendActions(UIControlEvent::touchUpInside);
            }
        }
        below(3) > 0 ? save("N") : manager().cancelLessonEditing();
    }

    /// What is seen of a view and within. Lines are left out that share their tag, and so hide
    /// together: with more than a hundred rows the last of a day and the first of the next.
    using Seen = std::vector<std::tuple<std::string, std::string, CGRect, UIColor, UIColor>>;
    static void see(const UIView& view, int rows, Seen& seen) {
        const auto* label = dynamic_cast<const UILabel*>(&view);
        const bool isShared = view.tag() % 999 > 0 && (view.tag() - 1) % 100 + 101 <= rows;
        if (view.isHidden() || isShared || (label && label->text().empty())) return;
        seen.emplace_back(view.accessibilityIdentifier(), label ? label->text() : "", view.frame(),
                          view.backgroundColor(), label ? label->textColor() : UIColor());
        for (const auto& inner : view.subviews())
            see(*inner, rows, seen);
    }
    static Seen seenOf(const GXTimetablePallet& pallet) {
        Seen seen;
        for (const GXTimetableView* week : {&pallet.timetable1(), &pallet.timetable2()})
            see(*week, pallet.geometry().numPeriods, seen);
        return seen;
    }
    /// All of a grid, seen or not.
    static void tell(const UIView& view, std::ostream& out) {
        const auto [x, y, width, height] = view.frame();
        const auto [red, green, blue, alpha, pattern] = view.backgroundColor();
        out << view.accessibilityIdentifier() << ' ' << view.tag() << view.isHidden() << x << ' '
            << y << ' ' << width << ' ' << height << ' ' << red << green << blue << alpha;
        if (const auto* label = dynamic_cast<const UILabel*>(&view))
            out << label->text() << label->font().size << ' ' << label->textColor().red;
        if (const auto* cell = dynamic_cast<const GXCellView*>(&view))
            out << cell->lesson() << cell->dayNPeriod() << cell->numBlocks() << cell->hiddenCell()
                << static_cast<int>(cell->state()) << cell->slot().periodNo;
        out << '\n';
        for (const auto& inner : view.subviews())
            tell(*inner, out);
    }
    static std::string allOf(const GXTimetablePallet& pallet) {
        std::ostringstream all;
        for (const GXTimetableView* week : {&pallet.timetable1(), &pallet.timetable2()})
            if (!week->isHidden()) tell(*week, all);
        return all.str();
    }

    std::mt19937 random{5};
};

TEST_F(OddTimetables, changes_leave_the_grid_as_one_that_is_built_anew) {
    for (int round = 0; round < 40; ++round) {
        const bool sharesSlots = round % 4 == 0;  // which of two subjects shows may then differ
        makeTimetable(sharesSlots);
        for (int i = 0; i < 6; ++i) {
            change();
            const Seen changed = seenOf(mainView().timetablePallet());
            GXTimetablePallet anew;
            anew.updateFromData();
            if (sharesSlots) continue;
            ASSERT_TRUE(changed == seenOf(anew)) << "round " << round << '.' << i;
        }
    }
}

TEST_F(OddTimetables, filling_again_gives_all_that_a_new_grid_has) {
    // Rows are low there, so that rooms have more than one size.
    phone.facts.screenWidth = 320;
    phone.facts.screenHeight = 480;
    relaunch();
    for (int round = 0; round < 40; ++round) {
        makeTimetable(true);
        for (NSInteger i = below(3); i > 0; --i) {
            redraw();
            change();
        }
        const auto& cells = mainView().timetablePallet().timetable1().classCells();
        // With masks on them, and now and then selected.
        for (const UIControlEvent event :
             {UIControlEvent::touchUpInside, UIControlEvent::touchDown})
            for (const auto& cell : cells)
                part<UIControl>("button", *cell).sendActions(event);
        if (below(2) == 0) manager().openEditLessonView(phone.timetable().lessons.anyObject());
        redraw();
        GXTimetablePallet anew;
        anew.updateFromData();
        ASSERT_EQ(allOf(mainView().timetablePallet()), allOf(anew)) << round;
        if (manager().appState() != AppState::normal) manager().cancelLessonEditing();
    }
}

TEST_F(Pallet, a_finger_on_a_cell_that_is_filled_anew_has_lost_it) {
    phone.addSubject("Maths", {mon(1)});
    redraw();
    const CGPoint place = cell(1, 0).visibleRect().center();
    UIWindow::keyWindow().touchDown(place);
    EXPECT_NE(drawn(1).find('!'), std::string::npos);
    redraw();
    EXPECT_EQ(drawn(1).find('!'), std::string::npos);
    EXPECT_EQ(UIWindow::keyWindow().touchUp(place), nullptr);
}

}  // namespace

}  // namespace gexlo::test
