// The window as a person meets it: played by commands, and looked at.
#include "support/driven_program.h"
#include "support/pictures.h"

namespace gexlo::test {

namespace {

class Window : public DrivenProgram {
protected:
    auto play(const std::string& program, const std::string& lines) {
        data = program == GEXLO_WINDOW ? "window" : "headless";
        std::vector<std::string> command{"/usr/bin/env", "QT_QPA_PLATFORM=offscreen",
                                         "QT_QUICK_BACKEND=software", "LC_ALL=C.UTF-8", program};
        if (program == GEXLO_WINDOW) command.emplace_back("--driver");
        auto answers = DrivenProgram::play(
            command, lines,
            {"--scale", "1", "--screen", "375x667", "--now", "2026-03-02T08:00:00"});
        EXPECT_EQ(result.code, 0) << result.errors;
        EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'),
                  static_cast<std::ptrdiff_t>(answers.size()));
        for (const auto& answer : answers)
            EXPECT_EQ(answer["ok"], true) << answer;
        return answers;
    }
    QImage picture(const std::string& name) const {
        const QImage image(QString::fromStdString(path(name)));
        EXPECT_FALSE(image.isNull()) << name;
        return image.convertToFormat(QImage::Format_RGB32);
    }
    std::string shoot(const std::string& name) const {
        return R"({"cmd":"screenshot","path":")" + path(name) + "\"}\n";
    }
};

const std::string kWait = "{\"cmd\":\"advance\",\"seconds\":2}\n";
const std::string kLaunch = "{\"cmd\":\"launch\"}\n" + kWait;

std::string tap(const std::string& id, const std::string& panel = "") {
    const std::string within = panel.empty() ? "" : R"("within":")" + panel + "\",";
    return "{" + within + R"("cmd":"tap","id":")" + id + "\"}\n" + kWait;
}

/// Adds a subject by touch alone.
std::string addSubject() {
    return kLaunch + tap("btnAdd") + tap("cell_0_1_0") + tap("cell_0_1_1") + tap("cell_0_3_4") +
           tap("tfName") + R"({"cmd":"type","text":"수학 Maths"}
{"cmd":"return"}
)" + tap("btnRoom1") +
           R"({"cmd":"answer","button":1,"texts":["Room 7"]}
)" + tap("colorButtonDidPush") +
           tap("subjectColor_4") + tap("fontColor_1") + tap("btnOK", "GXColorSelector") +
           tap("btnOK", "titleView");
}

double partThatDiffers(const QImage& left, const QImage& right) {
    return static_cast<double>(differing(left, right, 64)) / (left.width() * left.height());
}

TEST_F(Window, a_subject_added_by_touch_is_there_after_a_restart) {
    play(GEXLO_WINDOW, addSubject() + shoot("window.png"));
    const auto again = play(GEXLO_WINDOW, kLaunch + "{\"cmd\":\"find\",\"text\":\"수학 Maths\"}\n" +
                                              shoot("again.png"));
    EXPECT_EQ(again[2]["views"].size(), 2U) << "a block of two, and a single slot";
    EXPECT_EQ(picture("window.png").size(), QSize(375, 667));
    EXPECT_LT(partThatDiffers(picture("window.png"), picture("again.png")), 0.0005);
}

TEST_F(Window, shows_what_the_painted_screen_shows) {
    const std::pair<std::string, std::string> screens[] = {
        {"grid", addSubject()},
        {"editor", tap("btnAdd")},
        {"menu", tap("btnCancel", "titleView") + tap("btnMore")},
        {"sheet", tap("btnShare", "GXMoreMenu")},
        {"list", "{\"cmd\":\"answer\",\"button\":4}\n" + tap("closeButton") + tap("btnEdit") +
                     tap("editButton")},
    };
    for (const std::string program : {GEXLO_WINDOW, GEXLO_HEADLESS}) {
        std::string lines;
        for (const auto& [name, commands] : screens)
            lines += commands + shoot((program == GEXLO_WINDOW ? "shown-" : "painted-") + name);
        play(program, lines);
    }
    for (const auto& [name, commands] : screens) {
        const QImage shown = picture("shown-" + name);
        const QImage painted = picture("painted-" + name);
        ASSERT_EQ(shown.size(), painted.size()) << name;
        // Texts upon a layer of their own have slightly other edges.
        EXPECT_LT(partThatDiffers(shown, painted), 0.004) << name;
    }
}

TEST_F(Window, without_a_display_leaves_a_picture) {
    std::vector<QImage> pictures;
    for (const char* file : {"", "no such file.gexlo"}) {
        result = runProgram(
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
