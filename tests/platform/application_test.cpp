// What rings, and whether the host hears of it.
#include "platform/services/application.h"

#include <gtest/gtest.h>

#include "platform/services/local_notification.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

TEST(Application, what_rings_reaches_the_host_only_while_the_application_runs_unseen) {
    Phone phone;
    std::vector<std::string> heard;
    // The list is kept whatever a host does, so the one that rings stands there already.
    const auto hear = [&](const UILocalNotification& note) {
        EXPECT_EQ(UIApplication::sharedApplication().rungLocalNotifications().back(), note);
        heard.push_back(note.alertBody);
    };
    const auto start = [&] {
        UIApplication::sharedApplication().setRingHandler(hear);
        phone.launch();
    };
    start();
    const std::pair<const char*, double> notes[] = {
        {"in the background", 10}, {"active", 20}, {"in the background again", 30}, {"off", 40}};
    for (const auto& [body, delay] : notes) {
        UILocalNotification note;
        note.fireDate = NSDate::date().dateByAddingTimeInterval(delay);
        note.alertBody = body;
        note.userInfo = {{"lessonIndex", -1}};
        UIApplication::sharedApplication().scheduleLocalNotification(note);
    }
    phone.background();
    phone.advance(15);
    UIApplication::sharedApplication().enterForeground();
    phone.advance(10);
    phone.background();
    phone.advance(10);
    phone.restart();
    phone.advance(10);
    start();
    EXPECT_EQ(heard, (std::vector<std::string>{"in the background", "in the background again"}));
    EXPECT_EQ(UIApplication::sharedApplication().rungLocalNotifications().back().alertBody, "off");
}

}  // namespace
}  // namespace gexlo::test
