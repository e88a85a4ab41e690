#include <gtest/gtest.h>

#include "platform/foundation/calendar.h"
#include "platform/foundation/notification_center.h"
#include "support/phone.h"

namespace gexlo::test {
namespace {

class MainQueueTest : public testing::Test {
protected:
    static MainQueue& queue() { return Device::current().mainQueue(); }
    static NSNotificationCenter& center() { return NSNotificationCenter::defaultCenter(); }
    /// Work that leaves a word and the seconds that have passed.
    MainQueue::Work say(const std::string& word) {
        return [this, word] {
            said += word + stringWithFormat("%.0f ", NSDate::date().timeIntervalSinceDate(start));
        };
    }
    Phone phone;
    const NSDate start = NSDate::date();
    std::string said;
};

TEST_F(MainQueueTest, a_turn_runs_what_is_queued_in_order_and_its_hooks_last) {
    queue().atEndOfTurn([this, turns = 0]() mutable {
        if (++turns == 1) queue().atEndOfTurn(say("added"));
        say("first")();
        queue().async(say("later"));
    });
    queue().atEndOfTurn(say("second"));
    queue().turn([this] {
        queue().async([this] {
            say("a")();
            queue().async(say("c"));
        });
        queue().async(say("b"));
        say("now")();
    });
    queue().turn(say("now"));
    EXPECT_EQ(said, "now0 a0 b0 c0 first0 second0 added0 now0 later0 first0 second0 added0 ");
}

TEST_F(MainQueueTest, a_turn_within_a_turn_leaves_queue_and_hooks_to_the_outer_one) {
    queue().atEndOfTurn(say("end"));
    queue().turn([this] {
        queue().async(say("queued"));
        queue().turn(say("inner"));
        say("rest")();
    });
    EXPECT_EQ(said, "inner0 rest0 queued0 end0 ");
}

TEST_F(MainQueueTest, delayed_work_runs_when_it_falls_due_and_sees_that_time) {
    queue().atEndOfTurn([this] { said += "| "; });
    queue().after(10, say("b"));
    queue().after(5, [&] {
        say("a")();
        queue().after(5, say("d"));
        queue().after(0, say("soon"));
        queue().async(say("queued"));
    });
    queue().after(10, say("c"));
    queue().after(20, say("e"));
    queue().after(20.5, say("never"));
    EXPECT_EQ(queue().nextDue(), start.dateByAddingTimeInterval(5));
    phone.advance(20);
    EXPECT_EQ(said, "a5 queued5 | soon5 | b10 | c10 | d10 | e20 | ");
    EXPECT_EQ(NSDate::date(), start.dateByAddingTimeInterval(20));
    phone.restart();
    phone.advance(5);
    EXPECT_EQ(said.find("never"), said.npos);
}

TEST_F(MainQueueTest, each_local_midnight_is_told_once) {
    // From a noon the hours to the midnights of three days.
    const std::vector<std::tuple<std::string, const char*, std::vector<double>>> cases{
        {"Europe/Berlin", "2026-03-28T12:00:00", {12, 35, 59}},
        {"America/New_York", "2026-10-31T12:00:00", {12, 37, 61}},
        {"Asia/Seoul", "2026-12-30T12:00:00", {12, 36, 60}}};
    for (const auto& [zone, noon, expected] : cases) {
        phone.facts.timeZone = zone;
        phone.restart();
        const NSDate begin = dateFromLocalTime(noon, NSCalendar::currentCalendar()).value();
        queue().advanceTo(begin.dateByAddingTimeInterval(0.1234567));
        std::vector<double> hours;
        const auto token = center().addObserver(kSignificantTimeChangeNotification, [&](auto&) {
            hours.push_back(NSDate::date().timeIntervalSinceDate(begin) / 3600);
        });
        queue().advanceTo(begin.dateByAddingTimeInterval(expected.back() * 3600));
        EXPECT_EQ(hours, expected) << zone;
    }
}

TEST_F(MainQueueTest, observers_come_and_go_also_while_a_post_is_delivered) {
    std::map<std::string, NotificationToken> tokens;
    bool posted = false;
    const auto add = [&](
                         const std::string& name, const MainQueue::Work& work = [] {}) {
        tokens[name] = center().addObserver("news", [this, name, work](const NSNotification& post) {
            work();
            // What it holds is still there when it has ended itself.
            said += name + std::any_cast<const char*>(post.userInfo.at("text")) + " ";
        });
    };
    add("a", [&] {
        tokens.erase("a");
        tokens.erase("c");
        add("e");
        if (!std::exchange(posted, true)) center().postNotificationName("news", {{"text", "2"}});
    });
    for (const char* name : {"b", "c", "d"})
        add(name);
    NotificationToken moved = std::move(tokens["b"]);
    tokens.erase("b");
    center().postNotificationName("weather");
    center().postNotificationName("news", {{"text", "1"}});
    EXPECT_EQ(said, "b2 d2 e2 a1 b1 d1 ");
    moved = {};
    center().postNotificationName("news", {{"text", "3"}});
    EXPECT_EQ(said, "b2 d2 e2 a1 b1 d1 d3 e3 ");
}

}  // namespace
}  // namespace gexlo::test
