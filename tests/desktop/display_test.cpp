// The program itself on a display and a session bus of the test's own, and what the desktop does
// to its window.
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <csignal>
#include <memory>

#include "app/app_delegate.h"
#include "app/main_view.h"
#include "desktop/notification_service.h"
#include "platform/foundation/user_defaults.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

/// A display without a window manager: what that would do to a window, the test does.
class Display {
public:
    Display() {
        server_.start("Xvfb",
                      {"-displayfd", "1", "-nolisten", "tcp", "-screen", "0", "800x800x24"});
        server_.waitForReadyRead();
        name_ = ":" + server_.readLine().trimmed();
        connection_ = xcb_connect(name_.constData(), nullptr);
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    ~Display() {
        xcb_disconnect(connection_);
        server_.terminate();
        server_.waitForFinished();
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    QString name() const { return QString::fromUtf8(name_); }
    /// The program's window that is shown, or 0.
    xcb_window_t window() const {
        const Answer<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
        const xcb_window_t* all = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
            const Answer<xcb_get_window_attributes_reply_t> is(xcb_get_window_attributes_reply(
                connection_, xcb_get_window_attributes(connection_, all[i]), nullptr));
            if (is && is->map_state == XCB_MAP_STATE_VIEWABLE) return all[i];
        }
        return 0;
    }
    void minimise(xcb_window_t window) {
        constexpr uint32_t iconic[] = {3, XCB_NONE};
        const xcb_atom_t state = atom("WM_STATE");
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, state, state, 32, 2,
                            iconic);
        xcb_unmap_window(connection_, window);
        xcb_flush(connection_);
    }
    /// As the button in its frame asks it.
    void close(xcb_window_t window) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom("WM_PROTOCOLS");
        event.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(connection_, 0, window, 0, reinterpret_cast<const char*>(&event));
        xcb_flush(connection_);
    }
    void press(int x, int y) {
        fake(XCB_MOTION_NOTIFY, 0, x, y);
        fake(XCB_BUTTON_PRESS, 1);
    }
    void moveTo(int x, int y) { fake(XCB_MOTION_NOTIFY, 0, x, y); }
    void release() { fake(XCB_BUTTON_RELEASE, 1); }

private:
    xcb_atom_t atom(std::string_view name) {
        const auto cookie =
            xcb_intern_atom(connection_, 0, static_cast<uint16_t>(name.size()), name.data());
        return Answer<xcb_intern_atom_reply_t>(xcb_intern_atom_reply(connection_, cookie, nullptr))
            ->atom;
    }
    void fake(uint8_t type, uint8_t detail, int x = 0, int y = 0) {
        xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, root_,
                            static_cast<int16_t>(x), static_cast<int16_t>(y), 0);
        xcb_flush(connection_);
    }

    QProcess server_;
    QByteArray name_;
    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = 0;
};

class OnADisplay : public NotificationService {
protected:
    OnADisplay() { phone.launch(); }
    ~OnADisplay() override {
        program.kill();
        program.waitForFinished();
    }
    /// Seconds from now, in the program's time; the phone's clock stands long before.
    static void schedule(const char* body, double seconds) {
        UILocalNotification note;
        note.fireDate = NSDate::dateWithTimeIntervalSince1970(
            Clock::real().now().timeIntervalSince1970() + seconds);
        note.alertBody = body;
        UIApplication::sharedApplication().scheduleLocalNotification(note);
    }
    /// Starts the program over the phone's files, and gives its window.
    xcb_window_t start() {
        phone.quit();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        const std::pair<const char*, QString> ours[] = {{"DISPLAY", display.name()},
                                                        {"DBUS_SESSION_BUS_ADDRESS", address},
                                                        {"QT_QPA_PLATFORM", "xcb"},
                                                        {"QT_QUICK_BACKEND", "software"},
                                                        {"QT_XCB_GL_INTEGRATION", "none"}};
        for (const auto& [name, value] : ours)
            environment.insert(name, value);
        program.setProcessEnvironment(environment);
        program.start(GEXLO_WINDOW, {"--data", QString::fromStdString(phone.facts.root.string())});
        program.waitForStarted();
        runUntil([&] { return display.window() != 0 || hasEnded(); });
        return display.window();
    }
    /// Starts the program with an alarm that falls due when its window is there and prepared; on a
    /// slow machine once more, with more time.
    template <typename Prepare>
    void startBefore(const char* body, Prepare prepare) {
        const auto now = [] { return Clock::real().now().timeIntervalSince1970(); };
        const std::size_t before = shown.size();
        for (double lead = 2;; lead *= 2) {
            phone.relaunch();
            schedule(body, lead);
            const double due = now() + lead;
            prepare(start());
            if (now() < due - 0.5) return;
            runUntil([&] { return shown.size() > before; });
            stop();
            shown.resize(before);
        }
    }
    bool hasEnded() const { return program.state() == QProcess::NotRunning; }
    /// The exit code, once it has ended in order.
    int end() {
        runUntil([&] { return hasEnded() && display.window() == 0; });
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }
    int stop() {
        program.terminate();
        return end();
    }

    Phone phone;
    Display display;
    QProcess program;
};

using Texts = std::vector<std::string>;

TEST_F(OnADisplay, what_rings_is_told_once_wherever_the_window_is) {
    schedule("first;", -60);
    schedule("second;", -30);
    start();
    runUntil([&] { return shown.size() == 1; });
    EXPECT_EQ(stop(), 0);

    startBefore("beside", [](xcb_window_t) {});
    runUntil([&] { return shown.size() == 2; });
    EXPECT_TRUE(closed.empty());
    // The alert's button lies somewhere below the middle, once it is drawn.
    runUntil([&, step = 0]() mutable {
        display.press(187, 360 + step++ % 5 * 20);
        display.release();
        return !closed.empty();
    });
    EXPECT_EQ(closed, std::vector<uint>{2});
    EXPECT_EQ(stop(), 0);

    startBefore("unseen", [&](xcb_window_t window) { display.minimise(window); });
    runUntil([&] { return shown.size() == 3; });
    const auto isKept = [&] {
        return readFile(phone.facts.notificationsFile()).find("unseen") != std::string::npos;
    };
    EXPECT_TRUE(isKept());
    runUntil([&] {
        // A person is slower: the program may not know its number yet.
        signal("service", "ActionInvoked", 3, "default");
        return !isKept();
    });
    runUntil([&] { return display.window() != 0; });
    EXPECT_EQ(stop(), 0);
    EXPECT_EQ(texts(), (Texts{"first;\nsecond;", "beside", "unseen"}));
    phone.relaunch();
    EXPECT_EQ(UIApplication::sharedApplication().rungLocalNotifications().size(), 2U);
}

TEST_F(OnADisplay, the_page_on_which_the_window_is_closed_is_there_at_the_next_start) {
    phone.timetable().numWeeks = 2;
    phone.manager().saveContext();
    const xcb_window_t window = start();
    display.press(320, 400);
    display.moveTo(50, 400);
    display.release();
    display.close(window);
    EXPECT_EQ(end(), 0);
    phone.relaunch();
    EXPECT_EQ(GXAppDelegate::delegate().mainView()->timetablePosition(), 1);
}

TEST_F(OnADisplay, a_signal_that_ends_the_program_lets_it_keep_its_page) {
    constexpr NSInteger someOther = 7;  // as good as 1
    constexpr const char* key = "last_timetable_index";
    phone.timetable().numWeeks = 2;
    phone.manager().saveContext();
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        phone.relaunch();
        NSUserDefaults::standardUserDefaults().setInteger_forKey(someOther, key);
        start();
        ::kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_EQ(end(), 0);
        phone.restart();
        EXPECT_EQ(NSUserDefaults::standardUserDefaults().integerForKey(key), 1);
    }
}

}  // namespace
}  // namespace gexlo::test
