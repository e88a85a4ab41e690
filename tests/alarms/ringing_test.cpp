// What is scheduled rings at its time, whatever the application does by then.
#include "alarms/alarms.h"
#include "platform/views/window.h"

namespace gexlo::test {
namespace {

class Ringing : public Alarms {
protected:
    UILocalNotification schedule(NSDate fireDate, NSInteger repeat, const std::string& body) {
        UILocalNotification note;
        note.fireDate = fireDate;
        note.timeZone = phone.facts.timeZone;
        note.alertBody = body;
        note.repeatInterval = repeat;
        note.userInfo = {{"lessonIndex", -1}};
        application().scheduleLocalNotification(note);
        return note;
    }
    static Texts rung() { return names(application().rungLocalNotifications()); }
};

TEST_F(Ringing, a_weekly_one_keeps_its_time_of_day_over_every_change_of_the_clock) {
    // When the phone starts, what is scheduled, and when that rings.
    const std::pair<const char*, Texts> cases[] = {
        {"Europe/Berlin",
         {"2026-03-22T02:00", "2026-03-22T02:30", "2026-03-22T02:30", "2026-03-29T03:30",
          "2026-04-05T02:30"}},
        {"Europe/Berlin",
         {"2026-10-18T09:00", "2026-03-01T09:00", "2026-10-25T09:00", "2026-11-01T09:00"}},
        {"America/New_York",
         {"2026-03-07T23:59", "2026-02-22T00:00", "2026-03-08T00:00", "2026-03-15T00:00"}},
        {"Asia/Seoul",
         {"2026-12-13T08:00", "2026-12-26T23:59", "2026-12-26T23:59", "2027-01-02T23:59"}}};
    for (const auto& [zone, times] : cases) {
        phone.facts.timeZone = zone;
        phone.launchAt(times[0] + ":00");
        application().cancelAllLocalNotifications();
        schedule(at(times[1] + ":00"), kRepeatWeekly, zone);
        for (std::size_t i = 2; i < times.size(); ++i) {
            phone.background();
            const std::size_t before = rung().size();
            phone.advance(at(times[i] + ":00").timeIntervalSinceDate(NSDate::date()) - 1);
            EXPECT_EQ(rung().size(), before) << "too early before " << times[i];
            phone.advance(1);
            EXPECT_EQ(rung().size(), before + 1) << times[i];
            phone.relaunch();
        }
    }
}

TEST_F(Ringing, while_active_an_alert_is_shown_unless_one_that_rings_once_is_late) {
    UIWindow& window = UIWindow::keyWindow();
    schedule(at("2026-03-02T07:59:56"), 0, "just now");
    schedule(at("2026-03-02T07:59:55"), 0, "late");
    schedule(at("2026-02-16T08:30:00"), kRepeatWeekly, "weekly");
    schedule(at("2026-03-02T08:30:00"), 0, "in time");
    phone.advance(1799);
    EXPECT_EQ(window.alerts().size(), 1U);
    phone.advance(1);
    Texts shown;
    for (const UIAlert& alert : window.alerts())
        shown.push_back(alert.title + "|" + alert.message + "|" + alert.buttons.at(0).title);
    EXPECT_EQ(shown, (Texts{"|just now|OK", "|weekly|OK", "|in time|OK"}));
    EXPECT_EQ(names(), Texts{"weekly"});
}

TEST_F(Ringing, what_a_sleep_passes_over_rang_unseen_and_is_told_together) {
    std::vector<Texts> told;
    application().setRingHandler([&](const auto& notes) { told.push_back(names(notes)); });
    schedule(at("2026-03-02T08:10:00"), 0, "once");
    schedule(at("2026-02-23T08:20:00"), kRepeatWeekly, "weekly");
    schedule(at("2026-03-02T08:29:54"), 0, "too late for an alert");
    schedule(at("2026-03-02T08:29:58"), 0, "just now");
    schedule(at("2026-03-02T08:40:00"), 0, "later");
    // The clock goes on while nothing runs.
    Device::current().clock().turnTo(at("2026-03-02T08:30:00"));
    Device::current().mainQueue().runDue();
    const Texts missed{"once", "weekly", "too late for an alert"};
    EXPECT_EQ(told, (std::vector<Texts>{missed}));
    EXPECT_EQ(rung(), missed);
    ASSERT_EQ(UIWindow::keyWindow().alerts().size(), 1U);
    EXPECT_EQ(UIWindow::keyWindow().alerts()[0].message, "just now");
    phone.advance(600);
    EXPECT_EQ(UIWindow::keyWindow().alerts().size(), 2U);
    EXPECT_EQ(rung(), missed);
}

TEST_F(Ringing, the_time_of_day_stays_when_the_zone_changes_between_two_runs) {
    // The zones of the runs, each with the time at which it begins; the last begins just before
    // what was scheduled in the first falls due.
    using Run = std::pair<const char*, const char*>;
    const std::vector<Run> journeys[] = {
        {{"Asia/Seoul", "2026-03-02T08:00"}, {"America/New_York", "2026-03-04T08:59"}},
        {{"America/New_York", "2026-03-02T08:00"}, {"Asia/Seoul", "2026-03-04T08:59"}},
        {{"Asia/Seoul", "2026-03-02T08:00"},
         {"Europe/Berlin", "2026-03-02T12:00"},
         {"America/New_York", "2026-03-04T08:59"}},
        {{"Asia/Seoul", "2026-03-02T08:00"},
         {"America/New_York", "2026-03-02T12:00"},
         {"Asia/Seoul", "2026-03-04T08:59"}}};
    for (const auto& runs : journeys) {
        for (const NSInteger repeat : {NSInteger{0}, kRepeatWeekly}) {
            for (const Run& run : runs) {
                phone.facts.timeZone = run.first;
                phone.launchAt(std::string(run.second) + ":00");
                if (&run == &runs.front()) {
                    application().cancelAllLocalNotifications();
                    schedule(at("2026-03-04T09:00:00"), repeat, "nine");
                }
                schedule(at("2027-01-01T00:00:00"), 0, "so that the file is written");
            }
            const auto alerts = [] { return UIWindow::keyWindow().alerts().size(); };
            phone.advance(59);
            EXPECT_EQ(alerts() + rung().size(), 0U) << runs.front().first << repeat;
            phone.advance(1);
            EXPECT_EQ(alerts(), 1U) << runs.front().first << repeat;
        }
    }
}

TEST_F(Ringing, one_without_a_zone_rings_at_its_moment_wherever_the_phone_is) {
    UILocalNotification note;
    note.fireDate = NSDate::date().dateByAddingTimeInterval(3600);
    application().scheduleLocalNotification(note);
    phone.facts.timeZone = "Europe/Berlin";
    phone.relaunch();
    phone.advance(3599);
    EXPECT_TRUE(UIWindow::keyWindow().alerts().empty());
    phone.advance(1);
    EXPECT_EQ(UIWindow::keyWindow().alerts().size(), 1U);
}

TEST_F(Ringing, what_rang_unseen_can_be_tapped_later_and_stays_within_reach_of_its_archive) {
    const UILocalNotification note = schedule(at("2026-02-25T09:00:00"), kRepeatWeekly, "weekly");
    schedule(at("2026-03-03T09:00:00"), 0, "once");
    phone.background();
    phone.advance(2 * 86400);
    phone.launchAt("2026-03-12T12:00:00");
    phone.relaunch();
    phone.background();
    EXPECT_EQ(rung(), (Texts{"once", "weekly", "weekly"}));
    while (!rung().empty()) {
        const UILocalNotification tapped = application().rungLocalNotifications().front();
        application().removeRungLocalNotification(0);
        application().open(tapped);
        EXPECT_EQ(names(), Texts{"weekly"});
    }
    EXPECT_TRUE(UIWindow::keyWindow().alerts().empty());
    application().cancelLocalNotification(note);
    EXPECT_TRUE(scheduled().empty());
}

TEST_F(Ringing, an_archive_cancels_its_own_after_a_relaunch_and_no_equal_one) {
    const NSDate date = at("2026-03-03T09:00:00").dateByAddingTimeInterval(0.1);
    for (const char* body : {" a ", "\n(x) & <b> ]]>", "\x01\r\n\t", "", "수업"}) {
        const UILocalNotification first = schedule(date, 0, body);
        const UILocalNotification second = schedule(date, 0, body);
        phone.relaunch();
        const auto restored = UILocalNotification::fromArchive(first.archive());
        for (int twice = 0; twice < 2; ++twice)
            application().cancelLocalNotification(restored.value());
        EXPECT_EQ(scheduled(), std::vector{second}) << body;
        application().cancelLocalNotification(second);
    }
}

TEST_F(Ringing, an_upgrade_rebuilds_what_is_lost_and_a_new_install_sheds_what_is_left) {
    manager().setAlarm_inClass(3, addPlacement("Maths", mon(1)));
    phone.quit();
    std::filesystem::remove(phone.facts.notificationsFile());
    phone.relaunch();
    schedule(at("2026-03-03T09:00:00"), 0, "foreign");
    phone.upgrade("48");
    EXPECT_EQ(names(), Texts{"Maths"});
    phone.quit();
    std::filesystem::remove_all(phone.facts.preferencesDirectory());
    std::filesystem::remove_all(phone.facts.groupDirectory());
    phone.relaunch();
    EXPECT_TRUE(scheduled().empty());
}

TEST_F(Ringing, a_damaged_file_costs_no_more_than_what_is_damaged) {
    const auto entry = [](const char* identifier, const char* due, const std::string& more = "") {
        return "<dict>" + more + "<key>identifier</key><integer>" + identifier +
               "</integer><key>due</key><real>" + due + "</real></dict>";
    };
    const std::string weekly = "<key>repeatInterval</key><integer>8192</integer>";
    const std::pair<std::string, std::size_t> cases[] = {
        {"</plist>", 0},
        {"<true/><string/>" + entry("3", "1773e6") + entry("3", "1774e6"), 2},
        {entry("9223372036854775807", "1773e6", weekly) + entry("-1", "1773e6"), 2},
        {entry("1", "nan") + entry("2", "1e300"), 0},
        {entry("1", "1773e6", weekly + "<key>fireDate</key><real>-1e300</real>"), 0},
        {entry("1", "1773e6", weekly + "<key>timeZone</key><string>x</string>"), 1}};
    phone.expectLog("Notifications.plist cannot be read and is kept as ");
    for (const auto& [entries, kept] : cases) {
        phone.quit();
        writeFile(phone.facts.notificationsFile(),
                  "<plist><dict><key>scheduled</key><array>" + entries + "</array></dict></plist>");
        phone.launchAt("2026-03-02T08:00:00");
        EXPECT_EQ(scheduled().size(), kept) << entries;
        const UILocalNotification added = schedule(at("2026-04-20T09:00:00"), 0, "added");
        phone.background();
        phone.advance(30 * 86400);
        phone.relaunch();
        application().cancelLocalNotification(added);
        EXPECT_TRUE(names().empty() || names().back() != "added") << entries;
    }
}

}  // namespace
}  // namespace gexlo::test
