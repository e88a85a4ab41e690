// What rings, and whether the host hears of it.
#include "platform/services/application.h"

#include <gtest/gtest.h>

#include "platform/services/local_notification.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

UIApplication& application() {
    return UIApplication::sharedApplication();
}

UILocalNotification schedule(const char* body, double delay, NSInteger repeat = 0) {
    UILocalNotification note;
    note.fireDate = NSDate::date().dateByAddingTimeInterval(delay);
    note.alertBody = body;
    note.repeatInterval = repeat;
    note.userInfo = {{"lessonIndex", -1}};
    application().scheduleLocalNotification(note);
    return note;
}

TEST(Application, what_rings_unseen_reaches_the_host_once_and_together_after_a_pause) {
    Phone phone;
    std::vector<std::string> heard;
    // The list is kept whatever a host does, so the one that rings stands there already.
    const auto hear = [&](const std::vector<UILocalNotification>& notes) {
        EXPECT_EQ(application().rungLocalNotifications().back(), notes.back());
        heard.emplace_back();
        for (const UILocalNotification& note : notes)
            heard.back() += note.alertBody + ";";
    };
    const auto start = [&] {
        application().setRingHandler(hear);
        phone.launch();
    };
    start();
    const std::pair<const char*, double> notes[] = {{"in the background", 10},
                                                    {"active", 20},
                                                    {"in the background again", 30},
                                                    {"off", 40},
                                                    {"off too", 41}};
    for (const auto& [body, delay] : notes)
        schedule(body, delay);
    phone.background();
    phone.advance(15);
    application().enterForeground();
    phone.advance(10);
    phone.background();
    phone.advance(10);
    phone.restart();
    phone.advance(10);
    for (int twice = 0; twice < 2; ++twice) {
        start();
        phone.restart();
    }
    EXPECT_EQ(heard, (std::vector<std::string>{"in the background;", "in the background again;",
                                               "off;off too;"}));
}

TEST(Application, what_rang_while_no_host_listened_is_told_to_the_first_that_does) {
    Phone phone;
    phone.launch();
    schedule("off", 10);
    phone.restart();
    phone.advance(20);
    phone.launch();
    int told = 0;
    for (int twice = 0; twice < 2; ++twice) {
        phone.restart();
        application().setRingHandler([&](const auto&) { ++told; });
        phone.launch();
    }
    EXPECT_EQ(told, 1);
}

TEST(Application, a_tap_opens_what_still_stands_among_what_rang_and_takes_it_out) {
    Phone phone;
    phone.launch();
    std::vector<UILocalNotification> shown;
    const auto rung = [] { return application().rungLocalNotifications().size(); };
    application().setRingHandler([&](const auto& notes) { shown = notes; });
    const UILocalNotification cancelled = schedule("cancelled", 10, kRepeatWeekly);
    schedule("weekly", 11, kRepeatWeekly);
    schedule("once", 12);
    phone.restart();
    phone.advance(20);
    application().setRingHandler([&](const auto& notes) { shown = notes; });
    phone.launch();
    ASSERT_EQ(shown.size(), 3U);
    application().cancelLocalNotification(cancelled);
    phone.background();
    application().openRung({shown[0]});
    EXPECT_EQ(application().applicationState(), UIApplicationState::background);
    application().openRung(shown);
    EXPECT_EQ(application().applicationState(), UIApplicationState::active);
    EXPECT_EQ(rung(), 0U);
    const auto scheduled = application().scheduledLocalNotifications();
    ASSERT_EQ(scheduled.size(), 1U) << "what was cancelled came back";
    EXPECT_EQ(scheduled[0].alertBody, "weekly");
}

/// One that does nothing of what ours does by itself.
struct Idle final : UIApplicationDelegate {
    bool application_didFinishLaunchingWithOptions() override { return true; }
    void applicationWillResignActive() override {}
    void applicationDidEnterBackground() override {}
    void applicationWillEnterForeground() override {}
    void applicationDidBecomeActive() override {}
    void applicationWillTerminate() override {}
    void application_didReceiveLocalNotification(const UILocalNotification&) override {
        ++taps;
        lying = application().rungLocalNotifications().size();
    }
    bool application_openURL_options(const std::string&,
                                     const UIApplicationOpenURLOptions&) override {
        return true;
    }
    int taps = 0;
    std::size_t lying = 0;  // at the last tap
};

TEST(Application, what_is_tapped_no_longer_lies_there_whatever_the_application_does_with_it) {
    Idle idle;
    Phone phone;
    application().launch(idle);
    const UILocalNotification note = schedule("weekly", 10, kRepeatWeekly);
    phone.background();
    phone.advance(7 * 86400 + 20.0);
    for (const std::size_t left : {1U, 0U}) {
        application().openRung({note});
        EXPECT_EQ(application().rungLocalNotifications().size(), left);
        EXPECT_EQ(idle.lying, left) << "not even while it is told";
    }
    application().openRung({note});
    EXPECT_EQ(idle.taps, 2);
}

}  // namespace
}  // namespace gexlo::test
