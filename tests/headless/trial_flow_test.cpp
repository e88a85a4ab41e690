// A flow as the coming ones will be, played by the driver.
#include <gtest/gtest.h>

#include "hosts/headless/driver.h"
#include "platform/views/window.h"
#include "support/launched_phone.h"
#include "support/trial_flow.h"

namespace gexlo::test {

namespace {

using TrialFlow = LaunchedPhone;

TEST_F(TrialFlow, is_played_by_lines) {
    Device::current().perform([] {
        UIWindow::keyWindow().rootViewController()->presentViewController_animated_completion(
            trialFlow(), true);
    });
    Driver driver;
    const struct {
        const char* line;
        const char* answer;
    } steps[] = {
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"tap","id":"back"})", R"("hit":null)"},
        {R"({"cmd":"select_row","id":"UITableView","section":0,"row":7777})", "true"},
        {R"({"cmd":"find","class":"UITableView"})", R"("views":[])"},
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"find","id":"nameField"})", R"("focused":true)"},
        {R"({"cmd":"type","text":"!"})", R"("text":"Name 7777!")"},
        {R"({"cmd":"tap","id":"timeButton"})", R"("hit":"timeButton")"},
        {R"({"cmd":"find","id":"back"})", R"("text":"Name")"},
        {R"({"cmd":"set","id":"picker","component":0,"row":8})", "true"},
        {R"({"cmd":"set","id":"picker","component":1,"row":45})", "true"},
        {R"({"cmd":"find","id":"chosen"})", R"("text":"08:45")"},
        // The same over itself, and away again.
        {R"({"cmd":"tap","id":"right"})", R"("hit":"right")"},
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"find","id":"chosen"})", R"("views":[])"},
        {R"({"cmd":"tap","id":"left"})", R"("hit":"left")"},
        {R"({"cmd":"find","id":"chosen"})", R"("text":"08:45")"},
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"tap","id":"back"})", R"("hit":"back")"},
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"tap","id":"right"})", R"("hit":"right")"},
        {R"({"cmd":"tap","id":"back"})", R"("hit":null)"},
        {R"({"cmd":"answer","button":"Yes"})", "true"},
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"find","text":"Name 7777!"})", R"("class":"UILabel")"},
        {R"({"cmd":"tap","id":"left"})", R"("hit":"left")"},
        {R"({"cmd":"advance","seconds":1})", ""},
        {R"({"cmd":"find","class":"UINavigationBar","all":true})", R"("views":[])"},
    };
    for (const auto& [line, expected] : steps) {
        const std::string answer = driver.answer(line);
        EXPECT_NE(answer.find(expected), std::string::npos) << line << " gave " << answer;
    }
}

}  // namespace

}  // namespace gexlo::test
