// The driver as scripts meet it: a program, lines in and lines out.
#include "hosts/headless/driver.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "hosts/headless/driver_options.h"
#include "platform/foundation/installation_lock.h"
#include "support/child_process.h"
#include "support/phone.h"

namespace gexlo::test {

namespace {

using nlohmann::json;

class DriverProgram : public ::testing::Test {
protected:
    std::vector<json> play(const std::string& lines, std::vector<std::string> options = {}) {
        std::vector<std::string> command{GEXLO_HEADLESS, "--data",
                                         (directory.path() / "data").string(), "--time-zone",
                                         "Asia/Seoul"};
        command.insert(command.end(), options.begin(), options.end());
        result = runProgram(command, lines);
        std::vector<json> answers;
        std::istringstream out(result.output);
        for (std::string line; std::getline(out, line);)
            answers.push_back(json::parse(line));
        return answers;
    }

    TemporaryDirectory directory;
    ChildResult result;
};

TEST_F(DriverProgram, state_and_settings_come_out_and_outlive_the_run) {
    const std::vector<std::string> standing{"--now", "2026-03-02T08:00:00", "--languages", "ko,en"};
    const auto first =
        play("{\"cmd\":\"launch\"}\n{\"cmd\":\"store\"}\n{\"cmd\":\"log\"}\n{\"cmd\":\"log\"}",
             standing);
    ASSERT_EQ(first.size(), 4U);
    const json& timetable = first[1]["store"]["TimetableInfo"][0];
    EXPECT_EQ(timetable["name"], "새 시간표");
    EXPECT_EQ(timetable["alphaBorder"], 0.8);
    EXPECT_EQ(timetable["lessons"], json::array());
    EXPECT_FALSE(timetable.contains("titleRoom"));
    EXPECT_EQ(first[2]["lines"].back(), "data update no : 1");
    EXPECT_EQ(first[3]["lines"], json::array());
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.errors, "");

    const auto second = play(
        "{\"cmd\":\"defaults\"}\n{\"cmd\":\"launch\"}\n{\"cmd\":\"background\"}\n"
        "{\"cmd\":\"defaults\"}\n{\"cmd\":\"keychain\"}\n",
        {"--bundle-version", "48"});
    ASSERT_EQ(second.size(), 5U);
    EXPECT_EQ(second[0]["standard"]["app_version"], "47");
    EXPECT_EQ(second[3]["standard"]["app_version"], "48");
    EXPECT_EQ(second[3]["standard"]["last_timetable_index"], 0);
    EXPECT_EQ(second[4]["items"], json::array());
}

TEST_F(DriverProgram, each_fault_of_a_line_has_its_error_and_changes_nothing) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "not JSON"},
        {"{", "not JSON"},
        {"\xff\xfe", "not JSON"},
        {"{\"cmd\":\"\xed\xa0\x80\"}", "not JSON"},
        {std::string("{\"cmd\":\"launch\"}\0", 17), "not JSON"},
        {"[]", "no JSON object"},
        {"{}", "\"cmd\" is missing"},
        {"{\"cmd\":5}", "\"cmd\" is no text"},
        {"{\"cmd\":\"Launch\"}", "unknown command"},
        {"{\"cmd\":\"store\"}", "not launched"},
        {"{\"cmd\":\"background\"}", "not launched"},
        {"{\"cmd\":\"advance\"}", "\"seconds\" is missing"},
        {"{\"cmd\":\"advance\",\"seconds\":\"5\"}", "no number"},
        {"{\"cmd\":\"advance\",\"seconds\":-1}", "outside"},
        {"{\"cmd\":\"advance\",\"seconds\":1e308}", "outside"},
    };
    std::string lines;
    for (const auto& [line, error] : cases)
        lines += line + "\n";
    const auto answers = play(lines);
    ASSERT_EQ(answers.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(answers[i]["ok"], false) << cases[i].first;
        EXPECT_NE(answers[i]["error"].get<std::string>().find(cases[i].second), std::string::npos)
            << answers[i];
    }
    const auto twice = play(
        "{\"cmd\":\"launch\"}\n{\"cmd\":\"launch\"}\n{\"cmd\":\"foreground\"}\n"
        "{\"cmd\":\"background\"}\n{\"cmd\":\"background\"}\n");
    const std::vector<bool> expected{true, false, false, true, false};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(twice[i]["ok"], expected[i]) << i;
}

TEST_F(DriverProgram, views_are_found_touched_and_read_as_a_person_would) {
    const std::vector<std::pair<std::string, std::string>> lines{
        // A command, and a part of its answer.
        {R"({"cmd":"tree"})", "not launched"},
        {R"({"cmd":"launch"})", R"("ok":true)"},
        {R"({"cmd":"advance","seconds":1})", R"("ok":true)"},
        {R"({"cmd":"tap","id":"nobody"})", "no such view"},
        {R"({"cmd":"tap"})", "none of"},
        {R"({"cmd":"tap","x":1e300,"y":0})", "no place"},
        {R"({"cmd":"tap","id":"labelSubject","all":true})", "several such views"},
        {R"({"cmd":"tap","id":"labelSubject","within":"cell_0_1_0"})", R"("hit":"button")"},
        {R"({"cmd":"find","id":"cell_0_1_0","within":"nowhere"})", "no such view"},
        {R"({"cmd":"rows","id":"mainScrollView"})", "no table"},
        {R"({"cmd":"scroll","id":"subScrollView","x":0,"y":1e6})", R"("contentOffset":[0.0,0.0])"},
        {R"({"cmd":"type","text":"x"})", "no field has the focus"},
        {R"({"cmd":"answer","button":0})", "no alert is up"},
        {R"({"cmd":"tap","id":"btnShare"})", R"("hit":"btnShare")"},
        {R"({"cmd":"alert"})", R"("kind":"sheet")"},
        {R"({"cmd":"tap","id":"btnAdd"})", R"("hit":null)"},
        {R"({"cmd":"answer","button":"No such"})", "no such button"},
        {R"({"cmd":"answer","button":4,"texts":["x"]})", "fewer fields"},
        {R"({"cmd":"answer","button":"Cancel"})", R"("ok":true)"},
        {R"({"cmd":"touch","phase":"sideways"})", "none of down"},
        {R"({"cmd":"touch","phase":"down","id":"period_0_0"})", R"("hit":"period_0_0")"},
        {R"({"cmd":"find","id":"lblPeriodName"})", "Period 1"},
        {R"({"cmd":"touch","phase":"up","id":"period_0_0"})", R"("hit":"period_0_0")"},
        {R"({"cmd":"advance","seconds":1.45})", R"("ok":true)"},
        {R"({"cmd":"find","id":"lblPeriodName"})", "Period 1"},
        {R"({"cmd":"advance","seconds":0.1})", R"("ok":true)"},
        {R"({"cmd":"find","id":"lblPeriodName"})", R"("views":[])"},
        {R"({"cmd":"deliver","index":0})", "no such notification"},
    };
    std::string input;
    for (const auto& [line, answer] : lines)
        input += line + "\n";
    const auto answers = play(input, {"--now", "2026-03-02T08:00:00"});
    ASSERT_EQ(answers.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_NE(answers[i].dump().find(lines[i].second), std::string::npos)
            << lines[i].first << " gave " << answers[i];
    }
}

TEST_F(DriverProgram, rows_and_fields_reach_what_the_application_keeps) {
    std::string input = "{\"cmd\":\"launch\"}\n{\"cmd\":\"advance\",\"seconds\":1}\n";
    const auto press = [&](const std::string& id) {
        input +=
            R"({"cmd":"tap","id":")" + id + "\"}\n" + R"({"cmd":"advance","seconds":1})" + "\n";
    };
    for (const std::string name : {"A", "B", "C"}) {
        press("btnAdd");
        press("tfName");
        input += R"({"cmd":"type","text":")" + name + "\"}\n";
        press("btnOK");
    }
    press("btnEdit");
    press("editButton");
    const std::string list = R"("id":"SubjectListTableView")";
    const auto act = [&](const std::string& rest) { input += "{" + list + "," + rest + "}\n"; };
    act(R"("cmd":"move_row","section":0,"row":0,"to":2)");
    act(R"("cmd":"rows")");
    act(R"("cmd":"delete_row","section":0,"row":1)");
    input += R"({"cmd":"answer","button":0})"
             "\n";
    press("doneButton");
    press("closeButton");
    press("btnMore");
    press("btnExport");
    input += R"({"cmd":"answer","button":0})"
             "\n"
             R"({"cmd":"composer","result":"sent"})"
             "\n"
             R"({"cmd":"outbox"})"
             "\n"
             R"({"cmd":"outbox"})"
             "\n"
             R"({"cmd":"store"})"
             "\n";
    const auto answers = play(input, {"--now", "2026-03-02T08:00:00"});
    std::string rows;
    for (const json& answer : answers) {
        EXPECT_EQ(answer["ok"], true) << answer;
        if (answer.contains("sections")) rows = answer["sections"].dump();
    }
    // The last one made is at the top at first.
    EXPECT_EQ(rows, R"([{"header":"","rows":[["B"],["A"],["C"]]}])");
    std::string order;
    for (const json& lesson : answers.back()["store"]["Lesson"])
        order += lesson["name"].get<std::string>() + lesson["sortIndex"].dump() + " ";
    EXPECT_EQ(order, "B3 C1 ");
    const json& sent = answers[answers.size() - 3];
    EXPECT_EQ(sent["mail"][0]["attachments"][0]["name"], "20260302.gexlo");
    EXPECT_TRUE(sent["mail"][0]["attachments"][0]["data"].get<std::string>().starts_with(
        "U1FMaXRlIGZvcm1hdCAz"));
    json nothing{{"ok", true}};
    for (const char* kind : {"mail", "social", "album", "opened"})
        nothing[kind] = json::array();
    EXPECT_EQ(answers[answers.size() - 2], nothing);
}

TEST_F(DriverProgram, any_bytes_get_an_answer_a_line) {
    std::mt19937 random(5);
    std::string lines = std::string(200'000, '[') + "\n";
    for (int i = 0; i < 20'000; ++i)
        lines += static_cast<char>(random());
    const auto answers = play(lines + "\n{\"cmd\":\"launch\"}\n");
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(answers.size()),
              std::count(lines.begin(), lines.end(), '\n') + 2);
    EXPECT_EQ(answers.back()["ok"], true);
}

TEST_F(DriverProgram, bad_arguments_are_told_and_end_with_2) {
    const std::vector<std::vector<std::string>> cases{
        {"--screen", "375"},         {"--screen", "375x"},
        {"--now", "tomorrow"},       {"--now", "2026-02-30T08:00:00"},
        {"--time-zone", "Mars"},     {"--scale", "x"},
        {"--keyboard-height", "-3"}, {"--nonsense"},
        {"--languages", "e"},
    };
    for (const auto& options : cases) {
        EXPECT_TRUE(play("{\"cmd\":\"launch\"}\n", options).empty());
        EXPECT_EQ(result.code, 2) << options[0];
        EXPECT_NE(result.errors, "");
    }
    EXPECT_FALSE(std::filesystem::exists(directory.path() / "data"));
    EXPECT_EQ(runProgram({GEXLO_HEADLESS}, "").code, 2);
    EXPECT_EQ(runProgram({GEXLO_HEADLESS, "--data", "/dev/null"}, "").code, 2);
    EXPECT_EQ(runProgram({GEXLO_HEADLESS, "--help"}, "").code, 0);
}

TEST_F(DriverProgram, a_second_run_on_a_directory_says_so_and_touches_nothing) {
    play("{\"cmd\":\"launch\"}\n");
    const auto store = directory.path() / "data" / "Group" / "Vetra.sqlite";
    const std::string before = readFile(store);
    {
        const InstallationLock firstRun(directory.path() / "data");
        ASSERT_TRUE(firstRun.isHeld());
        EXPECT_TRUE(play("{\"cmd\":\"launch\"}\n", {"--bundle-version", "99"}).empty());
        EXPECT_EQ(result.code, 1);
        EXPECT_NE(result.errors.find("Another run"), std::string::npos);
        EXPECT_EQ(readFile(store), before);
    }
    EXPECT_EQ(play("{\"cmd\":\"defaults\"}\n")[0]["standard"]["app_version"], "47");
}

TEST_F(DriverProgram, a_fatal_end_prints_its_line_and_writes_no_answer) {
    play("{\"cmd\":\"launch\"}\n");
    writeFile(directory.path() / "data" / "Group" / "Vetra.sqlite",
              "this is no database, but a text");
    EXPECT_TRUE(play("{\"cmd\":\"launch\"}\n").empty());
    EXPECT_TRUE(result.wasKilled);
    EXPECT_EQ(result.errors.find("Unresolved error"), 0U) << result.errors;
}

TEST(DriverOptions, tell_the_device_what_it_is) {
    const char* arguments[] = {"gexlo-headless", "--data",     "/tmp/x",
                               "--screen",       "320x480",    "--languages",
                               "ja,zh-Hant",     "--now",      "2026-03-02T08:00:00",
                               "--time-zone",    "Asia/Seoul", "--no-watch"};
    const DriverCommandLine line = parseDriverCommandLine(std::size(arguments), arguments);
    ASSERT_TRUE(line.options) << line.text;
    EXPECT_EQ(line.options->facts.screenHeight, 480);
    EXPECT_EQ(line.options->facts.languages, (std::vector<std::string>{"ja", "zh-Hant"}));
    EXPECT_EQ(line.options->clock.now().timeIntervalSince1970(), Phone::kStart);
    EXPECT_FALSE(line.options->facts.watchSupported);
}

}  // namespace

}  // namespace gexlo::test
