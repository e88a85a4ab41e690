// The driver as scripts meet it: a program, lines in and lines out.
#include "hosts/headless/driver.h"

#include <unistd.h>

#include <random>
#include <thread>

#include "hosts/headless/driver_options.h"
#include "hosts/headless/input_wait.h"
#include "platform/foundation/installation_lock.h"
#include "support/driven_program.h"

namespace gexlo::test {

namespace {

using nlohmann::json;

const std::string kLaunch = "{\"cmd\":\"launch\"}\n";

class DriverProgram : public DrivenProgram {
protected:
    std::vector<json> play(const std::string& lines, const std::vector<std::string>& options = {}) {
        return DrivenProgram::play({GEXLO_HEADLESS}, lines, options);
    }
    const std::string store = path("data/Group/Vetra.sqlite");
};

TEST_F(DriverProgram, state_and_settings_come_out_and_outlive_the_run) {
    const auto first = play(kLaunch + R"({"cmd":"store"}
{"cmd":"log"}
{"cmd":"log"})",
                            {"--now", "2026-03-02T08:00:00", "--languages", "ko,en"});
    ASSERT_EQ(first.size(), 4U);
    const json& timetable = first[1]["store"]["TimetableInfo"][0];
    EXPECT_EQ(timetable["name"], "새 시간표");
    EXPECT_EQ(timetable["alphaBorder"], 0.8);
    EXPECT_EQ(timetable["lessons"], json::array());
    EXPECT_FALSE(timetable.contains("titleRoom"));
    EXPECT_EQ(first[2]["lines"].back(), "data update no : 1");
    EXPECT_EQ(first[3]["lines"], json::array());
    EXPECT_EQ(std::pair(result.code, result.errors), std::pair(0, std::string()));

    const auto second = play(R"({"cmd":"defaults"}
{"cmd":"launch"}
{"cmd":"background"}
{"cmd":"defaults"}
{"cmd":"keychain"})",
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
        {R"({"cmd":5})", "\"cmd\" is no text"},
        {R"({"cmd":"Launch"})", "unknown command"},
        {R"({"cmd":"tree"})", "not launched"},
        {R"({"cmd":"background"})", "not launched"},
        {R"({"cmd":"advance"})", "\"seconds\" is missing"},
        {R"({"cmd":"advance","seconds":"5"})", "no number"},
        {R"({"cmd":"advance","seconds":-1})", "outside"},
        {R"({"cmd":"advance","seconds":1e308})", "outside"},
        {R"({"cmd":"launch"})", ""},
        {R"({"cmd":"launch"})", "launched already"},
        {R"({"cmd":"composer","result":"sent"})", "nothing is being composed"},
        {R"({"cmd":"composer","result":"lost"})", "neither"},
        {R"({"cmd":"foreground"})", "not in the background"},
        {R"({"cmd":"background"})", ""},
        {R"({"cmd":"background"})", "background already"},
    };
    std::string lines;
    for (const auto& [line, error] : cases)
        lines += line + "\n";
    const auto answers = play(lines);
    ASSERT_EQ(answers.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& [line, error] = cases[i];
        EXPECT_EQ(answers[i]["ok"], error.empty()) << line;
        const std::string told = answers[i].value("error", "");
        EXPECT_NE(told.find(error), std::string::npos) << line << " gave " << told;
    }
}

TEST_F(DriverProgram, what_is_typed_is_kept_and_what_is_sent_comes_out_once) {
    std::string lines = kLaunch;
    for (const std::string command :
         {R"("tap","id":"btnAdd")", R"("tap","id":"tfName")", R"("type","text":"Art")",
          R"("tap","id":"btnOK")", R"("tap","id":"btnMore")", R"("tap","id":"btnExport")",
          R"("answer","button":0)", R"("composer","result":"sent")"})
        lines += R"({"cmd":"advance","seconds":1})"
                 "\n{\"cmd\":" +
                 command + "}\n";
    const auto answers = play(lines + R"({"cmd":"outbox"}
{"cmd":"outbox"}
{"cmd":"store"})",
                              {"--now", "2026-12-31T08:00:00"});
    for (const json& answer : answers)
        EXPECT_EQ(answer["ok"], true) << answer;
    const json& sent = answers[answers.size() - 3]["mail"][0]["attachments"][0];
    EXPECT_EQ(sent["name"], "20261231.gexlo");
    EXPECT_TRUE(sent["data"].get<std::string>().starts_with("U1FMaXRlIGZvcm1hdCAz"));
    json nothing{{"ok", true}};
    for (const char* kind : {"mail", "social", "album", "opened"})
        nothing[kind] = json::array();
    EXPECT_EQ(answers[answers.size() - 2], nothing);
    EXPECT_EQ(answers.back()["store"]["Lesson"][0]["name"], "Art");
}

TEST_F(DriverProgram, any_bytes_get_an_answer_a_line) {
    std::mt19937 random(5);
    std::string lines = std::string(200'000, '[') + "\n";
    for (int i = 0; i < 20'000; ++i)
        lines += static_cast<char>(random());
    const auto answers = play(lines + "\n" + kLaunch);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(answers.size()),
              std::count(lines.begin(), lines.end(), '\n') + 2);
    EXPECT_EQ(answers.back()["ok"], true);
}

TEST_F(DriverProgram, bad_arguments_are_told_and_end_with_2) {
    const std::pair<const char*, const char*> cases[] = {
        {"--screen", "375"},     {"--screen", "375x"}, {"--now", "tomorrow"},
        {"--time-zone", "Mars"}, {"--scale", "x"},     {"--now", "2026-02-30T08:00:00"},
        {"--languages", "e"},    {"--nonsense", ""},   {"--keyboard-height", "-3"}};
    for (const auto& [option, value] : cases) {
        EXPECT_TRUE(play(kLaunch, {option, value}).empty());
        EXPECT_EQ(result.code, 2) << option;
        EXPECT_NE(result.errors, "");
    }
    EXPECT_FALSE(std::filesystem::exists(path("data")));
    EXPECT_EQ(runProgram({GEXLO_HEADLESS}, "").code, 2);
    EXPECT_EQ(runProgram({GEXLO_HEADLESS, "--data", "/dev/null"}, "").code, 2);
    EXPECT_EQ(runProgram({GEXLO_HEADLESS, "--help"}, "").code, 0);
}

TEST_F(DriverProgram, a_second_run_on_a_directory_says_so_and_touches_nothing) {
    play(kLaunch);
    const std::string before = readFile(store);
    {
        const InstallationLock firstRun(path("data"));
        EXPECT_TRUE(play(kLaunch, {"--bundle-version", "99"}).empty());
        EXPECT_EQ(result.code, 1);
        EXPECT_NE(result.errors.find("Another run"), std::string::npos);
        EXPECT_EQ(readFile(store), before);
    }
    EXPECT_EQ(play("{\"cmd\":\"defaults\"}\n")[0]["standard"]["app_version"], "47");
}

TEST_F(DriverProgram, a_fatal_end_prints_its_line_and_writes_no_answer) {
    play(kLaunch);
    writeFile(store, "this is no database, but a text");
    EXPECT_TRUE(play(kLaunch).empty());
    EXPECT_TRUE(result.wasKilled);
    EXPECT_EQ(result.errors.find("Unresolved error"), 0U) << result.errors;
}

TEST(InputWait, runs_what_another_thread_queues_until_a_line_comes) {
    Phone phone;
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    std::thread worker([queue = &Device::current().mainQueue(), in = pipe[1]] {
        queue->async([in] { EXPECT_EQ(::write(in, "\n", 1), 1); });
    });
    InputWait(Device::current(), pipe[0]).wait();
    worker.join();
    for (const int end : pipe)
        ::close(end);
}

TEST(DriverOptions, tell_the_device_what_it_is) {
    const char* arguments[] = {
        "",           "--data",   "kept",    "--now",      "2026-03-02T08:00:00", "--time-zone",
        "Asia/Seoul", "--screen", "320x480", "--no-watch", "--keyboard-height",   "258"};
    const DriverCommandLine line = parseDriverCommandLine(std::size(arguments), arguments);
    ASSERT_TRUE(line.options) << line.end.text;
    EXPECT_EQ(line.options->facts.root, std::filesystem::current_path() / "kept");
    EXPECT_EQ(line.options->facts.screenHeight, 480);
    EXPECT_EQ(line.options->facts.keyboardHeight, 258);
    EXPECT_EQ(line.options->clock.now().timeIntervalSince1970(), Phone::kStart);
    EXPECT_FALSE(line.options->facts.watchSupported);
}

}  // namespace

}  // namespace gexlo::test
