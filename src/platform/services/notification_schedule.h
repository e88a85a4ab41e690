// What is scheduled to ring, kept over restarts and rung by the clock.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/services/local_notification.h"

namespace gexlo {

/// Lives in a file that is written at the end of a turn. A notification with a time zone keeps its
/// time of day in the device's, whichever that becomes, a weekly one over summer time as well.
class NotificationSchedule {
public:
    using Ring = std::function<void(const UILocalNotification&)>;
    using Missed = std::function<void()>;

    NotificationSchedule();
    ~NotificationSchedule();
    NotificationSchedule(const NotificationSchedule&) = delete;
    NotificationSchedule& operator=(const NotificationSchedule&) = delete;

    /// Rings by the clock from now on. What fell due while nobody rang joins `rung`: of each
    /// notification the newest 100 times, of all together the newest 1,000. So does later what
    /// falls due while the machine or the process sleeps, and `missed` is called then.
    void start(Ring ring, Missed missed);

    /// Takes the notification and marks it as scheduled; the mark is part of its archive. One
    /// that is scheduled anew keeps its mark. A date that has passed is due at once, a weekly
    /// one at its next time.
    void add(UILocalNotification& note);
    /// Takes out the notification that was marked so, and what rang of it; does nothing for
    /// any other.
    void remove(const UILocalNotification& note);
    void removeAll();
    /// In the order in which they were first scheduled.
    std::vector<UILocalNotification> scheduled() const;

    /// What rang while the application was not there to see, oldest first.
    const std::vector<UILocalNotification>& rung() const { return rung_; }
    void addRung(const UILocalNotification& note);
    void removeRung(std::size_t index);
    /// What rang and was not given here before, oldest first.
    std::vector<UILocalNotification> takeUnshown();

    /// When the fire date's time of day is here: the fire date itself as long as the device stays
    /// in the notification's zone.
    static NSDate fireDateHere(const UILocalNotification& note);

private:
    struct Entry {
        UILocalNotification note;
        NSDate due;
    };

    static NSDictionary record(const UILocalNotification& note);
    static UILocalNotification recorded(const NSDictionary& record);
    void read();
    void write();
    void mark(UILocalNotification& note);
    void put(UILocalNotification note, NSDate due);
    /// Takes what is due, and sets it to its next time or forgets it.
    std::optional<Entry> takeDue(NSDate now);
    void skipLongPast(NSDate now);
    void armClock();
    void runDue(NSDate armed);

    std::map<NSInteger, Entry> entries_;            // by identifier
    std::set<std::pair<NSDate, NSInteger>> byDue_;  // of the same
    std::vector<UILocalNotification> rung_;
    NSInteger lastIdentifier_ = 0;
    std::optional<NSDate> armedFor_;
    Ring ring_;
    Missed missed_;
    bool changed_ = false;
};

}  // namespace gexlo
