// The driver and alerts: what one holds back, and what is typed into it.
#include <gtest/gtest.h>

#include "hosts/headless/driver.h"
#include "platform/views/slider.h"
#include "support/grid.h"

namespace gexlo::test {

namespace {

class DriverAlerts : public Grid {
protected:
    std::string play(const std::string& line) { return driver.answer(line); }
    /// Each command, and a part of its answer.
    void expect(const std::vector<std::pair<std::string, std::string>>& lines) {
        for (const auto& [line, answer] : lines) {
            const std::string got = play(line);
            EXPECT_NE(got.find(answer), std::string::npos) << line << " gave " << got;
        }
    }

    Driver driver;
};

TEST_F(DriverAlerts, what_lies_under_is_not_reached) {
    for (const char* name : {"Maths", "Art", "Music", "Latin", "Greek", "Drama", "Sport", "Law",
                             "Ethics", "Logic", "Dance", "Physics"})
        phone.addSubject(name);
    manager().openLessonSelector();
    phone.advance(1);
    UIWindow& window = UIWindow::keyWindow();
    auto& slider = window.add<UISlider>(CGRect{0, 0, 200, 30});
    slider.setAccessibilityIdentifier("slider");
    auto& field = window.add<UITextField>(CGRect{0, 40, 200, 30});
    field.setAccessibilityIdentifier("field");
    field.becomeFirstResponder();
    std::string reached;
    field.addAction(UIControlEvent::touchDown, [&] { reached += "touch "; });
    field.addAction(UIControlEvent::editingChanged, [&] { reached += "text "; });
    slider.addAction(UIControlEvent::valueChanged, [&] { reached += "value "; });
    const std::vector<std::string> lines{
        R"({"cmd":"tap","id":"field"})",
        R"({"cmd":"tap","x":100,"y":50})",
        R"({"cmd":"touch","phase":"down","id":"field"})",
        R"({"cmd":"touch","phase":"up","id":"field"})",
        R"({"cmd":"type","text":"x"})",
        R"({"cmd":"paste","text":"x"})",
        R"({"cmd":"return"})",
        R"({"cmd":"clear"})",
        R"({"cmd":"set","id":"slider","value":1})",
        R"({"cmd":"scroll","id":"SubjectListTableView","x":0,"y":50})",
        R"({"cmd":"move_row","id":"SubjectListTableView","section":0,"row":0,"to":1})",
        R"({"cmd":"delete_row","id":"SubjectListTableView","section":0,"row":0})",
        R"({"cmd":"select_row","id":"SubjectListTableView","section":0,"row":0})",
    };
    const auto playAll = [&](bool isReached) {
        for (const std::string& line : lines) {
            const std::string got = play(line);
            const bool was = got.find(R"("ok":true)") != std::string::npos &&
                             got.find(R"("hit":null)") == std::string::npos;
            EXPECT_EQ(was, isReached) << line << " gave " << got;
            if (isReached && !window.alerts().empty()) play(R"({"cmd":"answer","button":1})");
            if (isReached && line.find("scroll") != std::string::npos)
                play(R"({"cmd":"tap","id":"editButton"})");
        }
    };
    UIAlert::notice("", "Message", "OK").show();
    playAll(false);
    window.answer(0);
    window.setCovered(true);
    playAll(false);
    window.setCovered(false);
    EXPECT_EQ(reached + field.text(), "");
    EXPECT_EQ(part<UIScrollView>("SubjectListTableView").contentOffset().y, 0);
    playAll(true);
    EXPECT_EQ(reached, "touch touch touch text text text value ");
    EXPECT_EQ(manager().appState(), AppState::editLesson) << "the row was selected";
}

TEST_F(DriverAlerts, keep_what_is_typed_for_their_answer) {
    std::string answered;
    UIAlert alert;
    alert.fields = {{"Name", "old ", false}, {"Secret", "", true}};
    alert.buttons = {{"Delete", UIAlert::Button::Style::destructive},
                     {"Add"},
                     {"Cancel", UIAlert::Button::Style::cancel}};
    alert.dismissed = [&](std::size_t button, const auto& fields) {
        answered = std::to_string(button) + fields[0].text + "," + fields[1].text;
    };
    UIAlert(alert).show();
    expect({
        {R"({"cmd":"type","text":"na\nme"})", R"("ok":true)"},
        {R"({"cmd":"return"})", R"("text":"old name")"},
        {R"({"cmd":"type","field":1,"text":"x"})", R"("ok":true)"},
        {R"({"cmd":"clear","field":1})", R"("text":"")"},
        {R"({"cmd":"paste","field":1,"text":"\nline\r\nbreak\u2028s\n"})", R"("line break s")"},
        {R"({"cmd":"type","field":2,"text":"x"})", "no such field"},
        {R"({"cmd":"alert"})", R"("busy":false)"},
        {R"({"cmd":"alert"})", R"("cancel":2,"destructive":0)"},
        {R"({"cmd":"alert"})", R"("secure":true,"text":"line break s")"},
        {R"({"cmd":"answer","button":"Add","texts":["a\nb"]})", R"("ok":true)"},
    });
    EXPECT_EQ(answered, "1a b,line break s");
    for (const char* message : {"below", "above"})
        UIAlert::notice("", message, "OK").show();
    expect({{R"({"cmd":"alert"})", R"("message":"above","title":""},"ok":true,"stack":[)"},
            {R"({"cmd":"answer","button":0})", R"("ok":true)"},
            {R"({"cmd":"answer","button":0})", R"("ok":true)"}});
    UIAlert().show();
    expect({{R"({"cmd":"alert"})", R"("busy":true,"buttons":[],"cancel":null,"destructive":null)"},
            {R"({"cmd":"type","text":"x"})", "no such field"}});
}

}  // namespace

}  // namespace gexlo::test
