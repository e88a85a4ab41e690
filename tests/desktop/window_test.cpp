// The window as a person meets it: played by commands, and looked at.
#include <gtest/gtest.h>

#include <QImage>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/child_process.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

using nlohmann::json;

class Window : public ::testing::Test {
protected:
    std::vector<json> play(const std::vector<json>& commands, const std::string& data,
                           const std::vector<std::string>& program) {
        std::vector<std::string> command{"/usr/bin/env", "QT_QPA_PLATFORM=offscreen",
                                         "QT_QUICK_BACKEND=software", "LC_ALL=C.UTF-8"};
        command.insert(command.end(), program.begin(), program.end());
        const std::vector<std::string> options{"--data",      (directory.path() / data).string(),
                                               "--scale",     "1",
                                               "--screen",    "375x667",
                                               "--time-zone", "Asia/Seoul",
                                               "--now",       "2026-03-02T08:00:00"};
        command.insert(command.end(), options.begin(), options.end());
        std::string lines;
        for (const json& line : commands)
            lines += line.dump() + "\n";
        const ChildResult result = runProgram(command, lines);
        EXPECT_EQ(result.code, 0) << result.errors;
        std::vector<json> answers;
        std::istringstream out(result.output);
        for (std::string line; std::getline(out, line);) {
            answers.push_back(json::parse(line));
            EXPECT_EQ(answers.back()["ok"], true) << line;
        }
        EXPECT_EQ(answers.size(), commands.size());
        return answers;
    }
    std::vector<json> playWindow(const std::vector<json>& commands) {
        return play(commands, "window", {GEXLO_WINDOW, "--driver"});
    }
    std::vector<json> playHeadless(const std::vector<json>& commands) {
        return play(commands, "headless", {GEXLO_HEADLESS});
    }
    QImage picture(const std::string& name) const {
        return QImage(QString::fromStdString(path(name))).convertToFormat(QImage::Format_RGB32);
    }
    std::string path(const std::string& name) const { return (directory.path() / name).string(); }

    TemporaryDirectory directory;
};

json tap(const char* id) {
    return {{"cmd", "tap"}, {"id", id}};
}
json tapWithin(const char* panel, const char* id) {
    return {{"cmd", "tap"}, {"id", id}, {"within", panel}};
}
json wait() {
    return {{"cmd", "advance"}, {"seconds", 2}};
}

/// Adds a subject in two weeks' grid by touch alone.
std::vector<json> addSubject() {
    return {{{"cmd", "launch"}},
            wait(),
            tap("btnAdd"),
            wait(),
            tap("cell_0_1_0"),
            tap("cell_0_1_1"),
            tap("cell_0_3_4"),
            tap("tfName"),
            {{"cmd", "type"}, {"text", "수학 Maths"}},
            {{"cmd", "return"}},
            tap("btnRoom1"),
            {{"cmd", "answer"}, {"button", 1}, {"texts", {"Room 7"}}},
            tap("colorButtonDidPush"),
            wait(),
            tap("subjectColor_4"),
            tap("fontColor_1"),
            tapWithin("GXColorSelector", "btnOK"),
            wait(),
            tapWithin("titleView", "btnOK"),
            wait()};
}

double partThatDiffers(const QImage& left, const QImage& right) {
    constexpr int kVisible = 64;
    int differing = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QColor a = left.pixelColor(x, y);
            const QColor b = right.pixelColor(x, y);
            differing += std::abs(a.red() - b.red()) > kVisible ||
                         std::abs(a.green() - b.green()) > kVisible ||
                         std::abs(a.blue() - b.blue()) > kVisible;
        }
    }
    return static_cast<double>(differing) / (left.width() * left.height());
}

/// Each view with an opaque colour of its own, where nothing lies over its corner.
void checkColors(const json& view, const QImage& screen, int& checked) {
    const bool isCell = view["class"] == "GXCellView";
    if (isCell && view.contains("color")) {
        const auto& frame = view["frame"];
        const int x = frame[0].get<int>() + 2;
        const int y = frame[1].get<int>() + 2;
        const QColor drawn = screen.pixelColor(x, y);
        EXPECT_NEAR(drawn.redF(), view["color"][0].get<double>(), 0.1) << view["id"];
        EXPECT_NEAR(drawn.blueF(), view["color"][2].get<double>(), 0.1) << view["id"];
        ++checked;
    }
    for (const json& child : view.value("children", json::array()))
        checkColors(child, screen, checked);
}

TEST_F(Window, a_subject_added_by_touch_is_there_after_a_restart) {
    auto commands = addSubject();
    commands.push_back({{"cmd", "screenshot"}, {"path", path("window.png")}});
    commands.push_back({{"cmd", "tree"}});
    const auto answers = playWindow(commands);
    const QImage screen = picture("window.png");
    ASSERT_EQ(screen.size(), QSize(375, 667));
    int checked = 0;
    checkColors(answers.back()["tree"], screen, checked);
    EXPECT_EQ(checked, 2) << "a block of two, and a single slot";

    const auto again = playWindow({{{"cmd", "launch"}},
                                   wait(),
                                   {{"cmd", "find"}, {"text", "수학 Maths"}},
                                   {{"cmd", "screenshot"}, {"path", path("again.png")}}});
    EXPECT_EQ(again[2]["views"].size(), 2U);
    EXPECT_LT(partThatDiffers(screen, picture("again.png")), 0.0005);
}

TEST_F(Window, shows_what_the_painted_screen_shows) {
    const std::vector<std::pair<const char*, std::vector<json>>> screens{
        {"grid", {}},
        {"editor", {tap("btnAdd"), wait()}},
        {"menu", {tapWithin("titleView", "btnCancel"), wait(), tap("btnMore"), wait()}},
        {"sheet", {tapWithin("GXMoreMenu", "btnShare"), wait()}},
        {"list",
         {{{"cmd", "answer"}, {"button", 4}},
          tap("closeButton"),
          wait(),
          tap("btnEdit"),
          wait(),
          tap("editButton"),
          wait()}},
    };
    std::vector<json> window = addSubject();
    std::vector<json> headless = window;
    for (const auto& [name, commands] : screens) {
        for (auto* script : {&window, &headless}) {
            script->insert(script->end(), commands.begin(), commands.end());
            const std::string host = script == &window ? "window-" : "headless-";
            script->push_back({{"cmd", "screenshot"}, {"path", path(host + name + ".png")}});
        }
    }
    playWindow(window);
    playHeadless(headless);
    for (const auto& [name, commands] : screens) {
        const QImage shown = picture(std::string("window-") + name + ".png");
        const QImage painted = picture(std::string("headless-") + name + ".png");
        ASSERT_FALSE(shown.isNull());
        ASSERT_EQ(shown.size(), painted.size()) << name;
        // Texts upon a layer of their own have slightly other edges.
        EXPECT_LT(partThatDiffers(shown, painted), 0.004) << name;
    }
}

TEST_F(Window, without_a_display_leaves_a_picture) {
    std::vector<QImage> pictures;
    for (const char* file : {"", "no such file.gexlo"}) {
        const ChildResult result = runProgram(
            {"/usr/bin/env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM",
             GEXLO_WINDOW, "--data", path("pictured"), "--screen", "320x480", file},
            "");
        EXPECT_EQ(result.code, 0) << result.errors;
        EXPECT_NE(result.output.find("first-screen.png"), std::string::npos) << result.output;
        pictures.push_back(picture("pictured/tmp/first-screen.png"));
        EXPECT_EQ(pictures.back().size(), QSize(320, 480));
    }
    EXPECT_GT(partThatDiffers(pictures[0], pictures[1]), 0.2) << "no question about the file";
}

}  // namespace

}  // namespace gexlo::test
