// A person's own run: what comes to it from outside, and the bar above the phone's screen.
#include <QDropEvent>
#include <QMimeData>

#include "desktop/window_fixture.h"
#include "hosts/desktop/application_bar.h"
#include "hosts/desktop/desktop_session.h"
#include "hosts/desktop/event_loop.h"
#include "hosts/desktop/options.h"
#include "hosts/desktop/services/opened_url.h"
#include "platform/foundation/installation_lock.h"
#include "platform/views/table_view.h"
#include "support/child_process.h"
#include "support/grid.h"

namespace gexlo::test {
namespace {

class Session : public InAWindow {
protected:
    Session() {
        std::filesystem::current_path(directory.path());
        phone.advance(1);  // until the splash has gone
    }
    /// A start of the program while this one runs, to its end.
    void startAgain(const std::string& argument) {
        const ChildResult result = runBeside([&] {
            return runProgram({GEXLO_WINDOW, "--data", phone.facts.root.string(), argument}, "");
        });
        EXPECT_EQ(result.code, 0) << argument << ": " << result.errors;
    }
    static std::string alert() {
        const auto& alerts = UIWindow::keyWindow().alerts();
        return alerts.empty() ? "" : alerts.back().title + ": " + alerts.back().message;
    }
    std::size_t timetables() { return phone.manager().timetableList().size(); }
    static QUrl sample(const std::string& name) {
        std::filesystem::copy_file(GEXLO_SAMPLES "/university.gexlo", name);
        return QUrl(QString::fromStdString(fileUrl(name)));
    }
    /// Whether a drop was taken, which never moves the file.
    bool drop(const QList<QUrl>& urls, Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction) {
        QMimeData dragged;
        dragged.setUrls(urls);
        QDropEvent event({9, 9}, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        event.ignore();
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    }
    /// The window that shows a dialog of that title.
    static QWindow* dialog(const char* title) {
        for (QWindow* shown : QGuiApplication::topLevelWindows())
            if (shown->isVisible() && shown->title() == title) return shown;
        return nullptr;
    }

    TemporaryDirectory directory;
    InstallationLock lock{phone.facts.root};
    DesktopSession session{window, phone.facts.root};
    ApplicationBar bar{engine, window, [this](const std::string& url) { session.receive(url); }};
};

TEST_F(Session, takes_in_a_file_of_any_name_from_a_second_start) {
    phone.expectLog("file://");
    for (std::string name :
         {"a  b", "100%", "%41", "c#d?e", "시간표 1", "[a,b]", "x:y", "caf\xe9"}) {
        for (const std::string& argument : {name, sample(name).toEncoded().toStdString()}) {
            window.showMinimized();
            const std::size_t before = timetables();
            startAgain(argument);
            EXPECT_EQ(window.windowStates(), Qt::WindowNoState) << "still minimised";
            answer(1);
            EXPECT_EQ(timetables(), before + 1) << argument;
            EXPECT_EQ(alert(), "");
        }
    }
    window.hide();
    startAgain("tessaly://tessaly");
    EXPECT_TRUE(window.isVisible() && alert().empty());
}

TEST_F(Session, takes_in_the_last_file_of_a_drop_and_nothing_else) {
    phone.expectLog("file://");
    const QUrl right = sample("1 #.gexlo");
    const QUrl remote("https://example.org/a.gexlo");
    for (const QUrl& url : {remote, QUrl("file:///usr"), QUrl("file:///no.gexlo")})
        EXPECT_FALSE(drop({url}));
    EXPECT_FALSE(drop({right}, Qt::MoveAction));
    EXPECT_EQ(alert(), "");
    EXPECT_TRUE(drop({QUrl("file:///etc/hostname"), right, remote}));
    answer(1);
    EXPECT_EQ(phone.timetable().name.get() + alert(), "Autumn term");
}

TEST_F(Session, hears_at_once_of_what_another_thread_brings) {
    const EventLoop loop;
    std::string brought;
    MainQueue& queue = Device::current().mainQueue();
    auto request = Device::current().requests().begin(60, [&] { brought += "reply "; });
    runBeside([&] {
        request.finish({});
        queue.async([&] { brought += "work"; });
        return true;
    });
    runUntil([&] { return brought == "reply work"; });
}

TEST_F(Session, is_in_the_background_while_nobody_can_see_its_window) {
    using Act = std::function<void()>;
    const auto state = [] { return UIApplication::sharedApplication().applicationState(); };
    // Only the toolkit can make one, and nobody looks at it.
    alignas(std::max_align_t) std::array<std::byte, 256> none{};
    auto& manager = reinterpret_cast<QSessionManager&>(none);
    const std::pair<Act, UIApplicationState> steps[] = {
        {[&] { window.show(); }, UIApplicationState::active},
        {[&] { window.hide(); }, UIApplicationState::background},
        {[&] { window.showNormal(); }, UIApplicationState::active},
        {[&] { window.showMinimized(); }, UIApplicationState::background},
        {[&] { window.showMaximized(); }, UIApplicationState::active},
        {[&] { Q_EMIT qGuiApp->commitDataRequest(manager); }, UIApplicationState::background},
        {[] {}, UIApplicationState::active},
        {[&] { window.close(); }, UIApplicationState::background},
    };
    for (const auto& [act, expected] : steps) {
        act();
        runUntil([&, wanted = expected] { return state() == wanted; });
    }
}

TEST_F(Session, shows_an_alarm_beside_its_alert_only_where_a_person_works_elsewhere) {
    const UIApplication& application = UIApplication::sharedApplication();
    EXPECT_TRUE(application.becomesAlert({}));
    showActive();
    EXPECT_FALSE(application.becomesAlert({}));
}

TEST_F(Session, saves_what_a_mail_would_carry_and_asks_before_it_replaces) {
    TimetableFiles files({});
    const auto mailed = [&] {
        const auto file = GXUIManager::manager().generateDataFileFromTimetable_errorCode(
            phone.timetable(), nullptr);
        return std::string(file->begin(), file->end());
    };
    phone.timetable().name = "../1학기: A";
    const QUrl url = files.proposedFile(QUrl::fromLocalFile(QDir::currentPath()));
    const auto saved = [] { return readFile("-1학기- A.gexlo"); };
    files.save(url);
    const std::string first = mailed();
    EXPECT_EQ(saved(), first);
    phone.addSubject("Maths", {mon(1)});
    for (const std::size_t button : {0, 1}) {
        files.save(url);
        EXPECT_NE(alert().find("“-1학기- A.gexlo” exists"), std::string::npos) << alert();
        EXPECT_EQ(saved(), first);
        answer(button);
    }
    EXPECT_EQ(saved(), mailed());
    files.save(QUrl("file:///proc/no%20place/a.gexlo"));
    EXPECT_NE(alert().find("“a.gexlo” could not be written"), std::string::npos) << alert();
}

TEST_F(Session, keeps_all_where_it_was_told_to_wherever_the_process_goes) {
    const char* arguments[] = {"gexlo", "--data", "kept"};
    EXPECT_EQ(parseDesktopCommandLine(3, arguments).options->facts.root,
              std::filesystem::current_path() / "kept");
}

TEST_F(Session, names_a_file_so_that_every_file_system_takes_it) {
    std::string longest;
    while (longest.size() < 1000)
        longest += "표";
    const std::pair<std::string, std::string> cases[] = {{"", "Gexlo"},
                                                         {" .. ", "Gexlo"},
                                                         {".b/c\\d:e\n", "b-c-d-e-"},
                                                         {"Term 1  ", "Term 1"},
                                                         {longest, longest.substr(0, 198)}};
    for (const auto& [timetable, name] : cases)
        EXPECT_EQ(fileNameFor(timetable), name + ".gexlo");
}

TEST_F(Session, the_bar_is_reached_by_keys_and_leaves_touches_to_the_phone) {
    showActive();
    runUntil([&] { return window.contentItem()->childItems().size() > 1; });
    const auto opens = [&](std::initializer_list<Qt::Key> keys, const char* title) {
        for (const Qt::Key key : keys)
            QTest::keyClick(&window, key);
        ASSERT_TRUE(dialog(title)) << title;
        QTest::keyClick(dialog(title), Qt::Key_Escape);
        EXPECT_FALSE(dialog(title));
        window.requestActivate();
    };
    opens({Qt::Key_F10, Qt::Key_Down, Qt::Key_Return}, "Save timetable as file");
    for (const auto& [key, held] :
         {std::pair{Qt::Key_A, Qt::AltModifier}, {Qt::Key_Alt, Qt::ShiftModifier}}) {
        QTest::keyClick(&window, key, held);
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_FALSE(dialog("Open timetable file")) << key << " with another";
    }
    QTest::keyPress(&window, Qt::Key_Alt);
    QTest::mouseClick(&window, Qt::LeftButton, {}, {187, 300});
    QTest::keyRelease(&window, Qt::Key_Alt);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(dialog("Open timetable file")) << "held for a click";
    opens({Qt::Key_Alt, Qt::Key_Return}, "Open timetable file");

    // With margins at its sides.
    window.resize(750, 2 * 667 / 3 + ApplicationBar::kHeight);
    runUntil([&] { return window.screen().width() == 750; });
    const CGPoint add = part("btnAdd").visibleRect().center();
    const double scale = 2 / 3.0;
    QTest::mouseClick(&window, Qt::LeftButton, {},
                      {static_cast<int>((750 - 375 * scale) / 2 + add.x * scale),
                       static_cast<int>(ApplicationBar::kHeight + add.y * scale)});
    EXPECT_EQ(GXUIManager::manager().appState(), AppState::addLesson);
}

TEST_F(Session, the_second_click_of_two_does_not_reach_what_the_first_uncovered) {
    phone.addSubject("Maths", {mon(1)});
    GXAppDelegate::delegate().mainView()->setCurrentTimetableFromCoreData();
    window.show();
    const auto click = [&](CGPoint place, unsigned long time) {
        place.y += ApplicationBar::kHeight;
        mouse(QEvent::MouseButtonPress, place, time);
        mouse(QEvent::MouseButtonRelease, place, time);
    };
    const auto rowClickedAgainAfter = [&](unsigned long pause) {
        const unsigned long time = pause * 100;
        GXUIManager::manager().openLessonSelector();
        phone.advance(1);
        const CGPoint row =
            part<UITableView>("SubjectListTableView").cellForRow({0, 0})->visibleRect().center();
        click(row, time);
        EXPECT_EQ(GXUIManager::manager().appState(), AppState::editLesson);
        const std::size_t selected = GXUIManager::manager().selectedCells().size();
        click(row, time + pause);
        const bool reached = GXUIManager::manager().selectedCells().size() != selected;
        GXUIManager::manager().cancelLessonEditing();
        phone.advance(1);
        return reached;
    };
    EXPECT_FALSE(rowClickedAgainAfter(150));
    EXPECT_TRUE(rowClickedAgainAfter(1500)) << "which is another click";
}

}  // namespace
}  // namespace gexlo::test
