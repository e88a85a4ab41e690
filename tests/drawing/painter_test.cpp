// The screen as it is seen, and texts as they are measured for it.
#include "hosts/drawing/view_painter.h"

#include <gtest/gtest.h>

#include <random>

#include "hosts/drawing/qt_text_measure.h"
#include "platform/views/button.h"
#include "platform/views/scroll_view.h"
#include "platform/views/slider.h"
#include "platform/views/switch.h"
#include "platform/views/text_input.h"
#include "platform/views/window.h"
#include "support/child_process.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

constexpr UIColor kRed{1, 0, 0, 1}, kGreen{0, 1, 0, 1}, kYellow{1, 1, 0, 1};

/// The smallest rectangle around the pixels of that colour, or around all the others.
QRect placeOf(const QImage& image, QColor color, bool others = false) {
    QRect place;
    for (int at = 0; at < image.width() * image.height(); ++at) {
        const QPoint pixel(at % image.width(), at / image.width());
        if ((image.pixel(pixel) == color.rgba()) != others) place |= QRect(pixel, pixel);
    }
    return place;
}
QRect inkOf(const QImage& image) {
    return placeOf(image, Qt::white, true);
}

/// A white sheet, painted with two pixels a point where nothing else is said.
class Painter : public ::testing::Test {
protected:
    Painter() { sheet->setBackgroundColor(UIColor::whiteColor()); }
    template <typename View = UIView>
    View& add(CGRect frame, UIColor color = {}, UIView* parent = nullptr) {
        auto view = std::make_shared<View>(frame);
        view->setBackgroundColor(color);
        (parent ? parent : sheet.get())->addSubview(view);
        return *view;
    }
    /// A text alone on the sheet.
    UILabel& write(const std::string& text, CGRect frame) {
        sheet->removeAllSubviews();
        auto& label = add<UILabel>(frame);
        label.setText(text);
        return label;
    }
    QImage painted(double scale = 2) { return ViewPainter(directory.path()).paint(*sheet, scale); }
    Phone phone;
    QtTextMeasure measure;
    TemporaryDirectory directory;
    std::shared_ptr<UIView> sheet = std::make_shared<UIView>(CGRect{0, 0, 400, 200});
};

TEST_F(Painter, views_cover_their_frames_at_every_scale) {
    auto& scroll = add<UIScrollView>({10, 5, 30, 20});
    scroll.setContentOffset({4, -2});
    add({6, 3, 10, 8}, kRed, &scroll);
    UIView& bordered = add({42, 6, 10, 10});
    bordered.setBorder(2, {0, 0, 1, 1});
    add({0, 0, 10, 10}, kGreen, &bordered);
    sheet->setStrokes({{{0, 39}, {60, 39}, 2, {1, 0, 1, 1}}, {{200, 0}, {300, 100}, 4, kYellow}});
    for (int i = 0; i < 20; ++i)
        add({100 + i * 3.0, 0, 3, 40}, UIColor::blackColor());
    const std::pair<QColor, QRect> cases[] = {{Qt::red, {12, 10, 10, 8}},
                                              {Qt::blue, {42, 6, 10, 10}},
                                              {Qt::green, {44, 8, 6, 6}},
                                              {Qt::magenta, {0, 38, 60, 2}}};
    for (const auto& [color, place] : cases) {
        EXPECT_EQ(placeOf(painted(1), color), place);
        EXPECT_EQ(placeOf(painted(2), color), QRect(place.topLeft() * 2, place.size() * 2));
    }
    for (const int scale : {1, 2}) {
        const QImage row = painted(scale).copy(0, 50 * scale, 400 * scale, 1);
        // Without what its edges mix with the white.
        EXPECT_NEAR(placeOf(row, Qt::yellow).width() + 2.5, 5.7 * scale, 1) << "a slanting line";
    }
    add({0, 50.2, 30, 0.2}, {0, 1, 1, 1});
    for (const int scale : {1, 2})
        EXPECT_EQ(placeOf(painted(scale), Qt::cyan).size(), QSize(30 * scale, 1)) << "a thin line";
    for (const double scale : {0.7, 1.5, 2.6}) {
        const QImage row = painted(scale).copy(QRectF(101 * scale, 2, 58 * scale, 9).toRect());
        EXPECT_TRUE(placeOf(row, Qt::black, true).isEmpty()) << "a seam between neighbours";
    }
}

TEST_F(Painter, a_view_clips_when_told_and_fades_with_all_upon_it_as_one) {
    UIView& parent = add({10, 10, 20, 20}, kGreen);
    add({-5, 5, 60, 60}, kRed, &parent);
    parent.setAlpha(0.5);
    add({200, 10, 20, 20}, kGreen);
    EXPECT_EQ(placeOf(painted(1), Qt::green), QRect(200, 10, 20, 20)) << "faded as its neighbour";
    const QColor pink = painted(1).pixelColor(50, 50);
    EXPECT_NEAR(pink.green(), 127, 2);
    EXPECT_EQ(placeOf(painted(1), pink), QRect(5, 15, 60, 60));
    parent.setClipsToBounds(true);
    EXPECT_EQ(placeOf(painted(2), pink), QRect(20, 30, 40, 30));
    parent.setCornerRadius(8);
    EXPECT_EQ(painted(1).pixelColor(11, 28), QColor(Qt::white));
}

TEST_F(Painter, images_stretch_between_their_caps_tile_and_take_a_tint) {
    const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'>";
    const std::string edges = "<path fill='#f00' d='M0 0h2v10h-2zM8 0h2v10h-2z'/></svg>";
    writeFile(directory.path() / "edged.svg", svg + edges);
    writeFile(directory.path() / "dotted.svg", svg + "<path fill='#00f' d='M0 0h5v5H0z'/></svg>");
    auto& button = add<UIButton>({0, 0, 40, 10});
    button.setBackgroundImage(
        UIImage::imageNamed("edged").stretchableImageWithLeftCapWidth_topCapHeight(3, 0));
    button.setImage(UIImage::imageNamed("missing"));
    add<UIButton>({80, 0, 10, 10}).setTintColor(kRed);
    add({80, 12, 10, 10}, UIColor::colorWithPatternImage("missing"));
    add({80, 24, 10, 10}, kRed).setHidden(true);
    add({3, 25, 57, 10}, UIColor::colorWithPatternImage("dotted"));
    EXPECT_EQ(placeOf(painted().copy(0, 0, 80, 20), Qt::white), QRect(4, 0, 72, 20));
    EXPECT_EQ(placeOf(painted(), Qt::blue), QRect(6, 50, 110, 10));
    EXPECT_EQ(inkOf(painted()), QRect(0, 0, 116, 60)) << "nothing for what is missing or hidden";
    button.setTintColor(kGreen);
    EXPECT_EQ(placeOf(painted(), Qt::green), QRect(0, 0, 80, 20));
}

TEST_F(Painter, controls_show_their_value_and_their_press_within_their_shape) {
    auto& slider = add<UISlider>({0, 0, 128, 40});
    slider.setRange(10, 20);
    slider.setValue(15);
    EXPECT_GT(painted(1).pixelColor(40, 20).saturation(), 200);
    EXPECT_EQ(painted(1).pixelColor(90, 20).saturation(), 0) << "half of the way";
    auto& button = add<UIButton>({200, 0, 60, 60});
    button.setCornerRadius(20);
    button.setHighlighted(true);
    EXPECT_NE(painted(1).pixelColor(230, 30), Qt::white);
    EXPECT_EQ(painted(1).pixelColor(201, 1), Qt::white);
}

TEST_F(Painter, a_switch_shows_which_way_it_is_thrown) {
    auto& control = add<UISwitch>({10, 10, 51, 31});
    const auto halves = [&] {
        const QImage image = painted();
        return std::pair{image.pixelColor(2 * 25, 2 * 25), image.pixelColor(2 * 46, 2 * 25)};
    };
    const auto [knob, off] = halves();
    control.setOn(true);
    const auto [on, knobThen] = halves();
    EXPECT_EQ(knob, QColor(Qt::white));
    EXPECT_EQ(knobThen, knob);
    EXPECT_GT(on.saturation(), off.saturation());
    control.setEnabled(false);
    EXPECT_NE(halves().first, on);
}

TEST_F(Painter, the_driver_writes_the_screen_with_what_lies_over_it) {
    const std::string file = (directory.path() / "screen.png").string();
    const std::string shot = R"({"cmd":"screenshot","path":")" + file;
    const ChildResult result =
        runProgram({GEXLO_HEADLESS, "--data", directory.path(), "--now", "2026-03-02T08:00:00"},
                   "{\"cmd\":\"launch\"}\n" + shot + "\"}\n" + shot + "/no\"}\n");
    EXPECT_TRUE(result.output.ends_with("cannot be written\",\"ok\":false}\n")) << result.output;
    phone.launch();
    UIWindow& window = UIWindow::keyWindow();
    ViewPainter painter(phone.facts.resources / "images");
    const QImage screen = painter.paintScreen(window, 2);
    EXPECT_EQ(QImage(file.c_str()).convertToFormat(screen.format()), screen);
    UIAlert::notice("Title", "Message", "OK").show();
    EXPECT_LT(qRed(painter.paintScreen(window, 2).pixel(2, 2)), qRed(screen.pixel(2, 2)));
    EXPECT_GT(qRed(painter.paintScreen(window, 2).pixel(375, 667)), 200);
    const QImage one = painter.paintScreen(window, 2);
    UIAlert::notice("Another", "Message", "OK").show();
    EXPECT_NE(painter.paintScreen(window, 2), one) << "the topmost";
}

TEST_F(Painter, a_frame_of_the_measured_size_holds_all_of_a_text) {
    static constexpr const char* kWords[] = {"jelly",  "Wolf",   "ÅÄÖ",     "수학",    "과학실험",
                                             "物理学", "かがく", "(12:30)", "e\u0301", "\n"};
    std::mt19937 random(7);
    for (int i = 0; i < 40; ++i) {
        std::string text;
        for (std::size_t words = 1 + random() % 6; words > 0; --words)
            text += std::string(kWords[random() % std::size(kWords)]) + (random() % 4 ? " " : "");
        const UIFont font{"", 8 + static_cast<float>(random() % 36) / 4, random() % 2 == 0};
        const double width = i % 2 ? 350 : 60 + static_cast<double>(random() % 100);
        const CGSize size = measure.sizeOfText(text, font, width);
        EXPECT_LE(size.width, width);
        UILabel& label = write(text, {10, 10, size.width, size.height});
        label.setFont(font);
        label.setNumberOfLines(0);
        const QRect ink = inkOf(painted());
        // Letters lean out of their own width by a point at most.
        const QRectF room(18, 18, size.width * 2 + 4, size.height * 2 + 4);
        EXPECT_EQ(room.united(ink), room) << text;
        if (width == 350) label.setFrame({10, 10, size.width + 30, size.height});
        EXPECT_EQ(inkOf(painted()), ink) << text << " shows more where it has more room";
    }
}

TEST_F(Painter, a_text_keeps_to_its_place_by_ellipsis_or_shrinking) {
    const CGRect frame{100, 50, 100, 30};
    const auto widthOf = [&](const std::string& shown) {
        return measure.sizeOfText(shown, UIFont::systemFontOfSize(17), 1e5).width;
    };
    const std::string text = "Biology and chemistry for beginners";
    for (const int side : {0, 1, 2}) {
        write("HHH", frame).setTextAlignment(static_cast<NSTextAlignment>(side));
        const QRect ink = inkOf(painted());
        EXPECT_NEAR(ink.center().y(), 130, 2);
        const int edges[] = {ink.left(), ink.center().x(), ink.right()};
        EXPECT_NEAR(edges[side], 200 + side * 100, 6);
    }
    for (const double width : {40.0, 90.0, 133.0, 200.0}) {
        std::string shown = text;
        while (widthOf(shown + "…") > width || shown.ends_with(' '))
            shown.pop_back();
        write(text, {20, 20, width, 24});
        const QImage elided = painted();
        write(shown + "…", {20, 20, width + 60, 24});
        EXPECT_EQ(painted(), elided) << shown;
    }
    write(text, frame).setMinimumScaleFactor(0.2);
    EXPECT_NEAR(inkOf(painted()).width(), 195, 5);
    EXPECT_LT(inkOf(painted()).height(), 20);
}

TEST_F(Painter, inputs_write_in_the_middle_or_from_the_top_and_hide_what_is_secret) {
    const CGRect frame{20, 20, 200, 100};
    auto& field = add<UITextField>(frame);
    field.setText("가a🎒");
    EXPECT_NEAR(inkOf(painted()).center().y(), 140, 6);
    field.setSecureTextEntry(true);
    const QImage hidden = painted();
    field.setSecureTextEntry(false);
    field.setText("•••");
    EXPECT_EQ(painted(), hidden);
    field.removeFromSuperview();
    add<UITextView>(frame).setText("HHH");
    EXPECT_NEAR(inkOf(painted()).top(), 64, 6);
}

TEST_F(Painter, the_same_text_in_another_face_looks_as_it_would_alone) {
    ViewPainter kept(directory.path());
    UILabel& label = write("Maths", {20, 20, 60, 24});
    for (const UIFont& font : {UIFont{"", 15}, {"", 15, true}, {"", 16}, {"NanumGothic", 15}}) {
        label.setFont(font);
        EXPECT_EQ(kept.paint(*sheet, 2), painted()) << font.family << font.size << font.bold;
    }
}

TEST_F(Painter, a_text_of_several_lines_shrinks_so_that_its_words_stay_whole) {
    const struct {
        const char *text, *lines;
        CGSize room;
        double scale;
    } cases[] = {
        {"Biology lab", "Biology lab", {80, 23}, 1},
        {"Biology lab", "Biology lab", {60, 23}, 0.88},
        {"Lunch break", "Lunch\nbreak", {28, 35}, 0.77},
        {"Physical Education", "Physical\nEducation", {57, 23}, 0.85},
        {"물리학", "물리학", {30, 40}, 0.9},
        {"Fremdsprache", "Fremds\nprache", {46, 40}, 1},
        {"Introduction to Computer Science", "Introduction\nto Compute…", {57, 21}, 0.7},
    };
    for (const auto& at : cases) {
        const auto written = [&](const char* text, double scale) {
            UILabel& label = write(text, {10, 10, at.room.width, at.room.height});
            label.setFont(UIFont::boldSystemFontOfSize(static_cast<float>(12 * scale)));
            label.setNumberOfLines(0);
            return &label;
        };
        written(at.text, 1)->setMinimumScaleFactor(0.7);
        const QImage shrunk = painted();
        double scale = 1;
        for (; scale > 0.695; scale -= 0.01) {
            written(at.lines, scale);
            if (painted() == shrunk) break;
        }
        EXPECT_NEAR(scale, at.scale, 0.02) << at.text;
    }
}

TEST_F(Painter, every_script_has_glyphs_and_han_follows_the_language) {
    std::vector<QImage> seen;
    const auto isNew = [&](const char* text) {
        write(text, {20, 20, 60, 24});
        seen.push_back(painted());
        return std::count(seen.begin(), seen.end(), seen.back()) == 1;
    };
    for (const char* text : {"", "\U0010FFFF", "A", "한", "か", "カ", "骨返", "语", "體", "…"})
        EXPECT_TRUE(isNew(text)) << text;
    for (const char* language : {"zh-Hans-CN", "zh-TW", "ja-JP"}) {
        phone.facts.languages = {language};
        phone.restart();
        EXPECT_TRUE(isNew("骨返")) << language;
    }
    const auto korean = [&](UIFont font) {
        write("월", {20, 20, 40, 24}).setFont(font);
        return painted();
    };
    const QImage bold = korean(UIFont::fontWithName_size("NanumGothicOTFBold", 15));
    EXPECT_TRUE(bold == korean({"NanumGothic", 15, true}) && bold != korean({"NanumGothic", 15}));
}

}  // namespace

}  // namespace gexlo::test
