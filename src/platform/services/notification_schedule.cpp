#include "platform/services/notification_schedule.h"

#include <algorithm>

#include "platform/foundation/calendar.h"
#include "platform/foundation/device.h"
#include "platform/foundation/property_list.h"

namespace gexlo {

namespace {

constexpr std::size_t kNewestOfOne = 100;
constexpr std::size_t kNewestOfAll = 1000;
constexpr double kWeek = 7 * 86400.0;
/// So much later than due, a turn was not just busy: the machine or the process slept. Less than
/// what makes an alarm too late for an alert, so that none falls between the two.
constexpr double kAsleepAfter = 3;
/// Beyond these a calendar is of no use: the year 1, and ten thousand years from now.
constexpr double kEarliestDate = -62135596800;
constexpr double kFarthestDate = 4e11;
/// A file or an archive can hold any number; up to here marks can be counted on from it.
constexpr NSInteger kLargestMark = NSInteger{1} << 53;

bool isSane(NSDate date) {
    const double seconds = date.timeIntervalSince1970();
    return seconds > kEarliestDate && seconds < kFarthestDate;
}

bool isMark(NSInteger identifier) {
    return identifier > 0 && identifier <= kLargestMark;
}

/// The time of day that a date has in another zone, on the same day in the device's.
NSDate dateHere(NSDate date, const std::string& zone, int daysLater = 0) {
    const bool isHere = !isTimeZone(zone) || zone == Device::current().facts().timeZone;
    // Exactly the same, fractions and doubled hours included.
    if (!isSane(date) || (isHere && daysLater == 0)) return date;
    const NSCalendar here = NSCalendar::currentCalendar();
    NSDateComponents parts =
        (isHere ? here : NSCalendar::calendarInTimeZone(zone)).componentsFromDate(date);
    parts.day += daysLater;
    return here.dateFromComponents(parts);
}

/// The n-th weekly time: the same time of day, counted in calendar days from the first.
NSDate occurrence(const UILocalNotification& note, int weeks) {
    return dateHere(note.fireDate, note.timeZone, 7 * weeks);
}

/// The first time after `now`.
NSDate nextOccurrence(const UILocalNotification& note, NSDate now) {
    const NSDate first = occurrence(note, 0);
    if (first > now) return first;
    auto weeks = static_cast<int>(now.timeIntervalSinceDate(first) / kWeek);
    NSDate next = occurrence(note, weeks);
    while (next <= now)
        next = occurrence(note, ++weeks);
    return next;
}

/// A field of a dictionary; absent where it has none.
Object field(const NSDictionary& dictionary, std::string_view key) {
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? Object() : found->second;
}

/// Calls `visit` with each dictionary of a list; what is none is left out.
template <typename Visit>
void forEachIn(const Object& list, Visit visit) {
    const auto* entries = list.as<NSArray>();
    if (!entries) return;
    for (const Object& entry : *entries) {
        if (const auto* dictionary = entry.as<NSDictionary>()) visit(*dictionary);
    }
}

}  // namespace

NotificationSchedule::NotificationSchedule() {
    read();
    Device::current().mainQueue().atEndOfTurn([this] { write(); });
}

NotificationSchedule::~NotificationSchedule() {
    write();
}

NSDictionary NotificationSchedule::record(const UILocalNotification& note) {
    return {{"identifier", note.identifier_},
            {"fireDate", note.fireDate.timeIntervalSince1970()},
            {"timeZone", note.timeZone},
            {"alertBody", note.alertBody},
            {"alertAction", note.alertAction},
            {"soundName", note.soundName},
            {"repeatInterval", note.repeatInterval},
            {"userInfo", note.userInfo}};
}

UILocalNotification NotificationSchedule::recorded(const NSDictionary& record) {
    UILocalNotification note;
    note.identifier_ = field(record, "identifier").integerValue();
    note.fireDate = NSDate::dateWithTimeIntervalSince1970(field(record, "fireDate").doubleValue());
    note.timeZone = field(record, "timeZone").stringValue();
    note.alertBody = field(record, "alertBody").stringValue();
    note.alertAction = field(record, "alertAction").stringValue();
    note.soundName = field(record, "soundName").stringValue();
    note.repeatInterval = field(record, "repeatInterval").integerValue();
    const Object info = field(record, "userInfo");
    if (const auto* userInfo = info.as<NSDictionary>()) note.userInfo = *userInfo;
    return note;
}

void NotificationSchedule::read() {
    const NSDictionary file = dictionaryFromFile(Device::current().facts().notificationsFile());
    const NSInteger last = field(file, "lastIdentifier").integerValue();
    if (isMark(last)) lastIdentifier_ = last;
    const std::string zone = field(file, "timeZone").stringValue();
    forEachIn(field(file, "scheduled"), [&](const NSDictionary& entry) {
        UILocalNotification note = recorded(entry);
        mark(note);
        const NSDate due = NSDate::dateWithTimeIntervalSince1970(field(entry, "due").doubleValue());
        // One without a zone is due at a moment, wherever the device is by then.
        const bool followsZone = isTimeZone(note.timeZone) && !zone.empty();
        const NSDate dueHere = dateHere(due, followsZone ? zone : note.timeZone);
        put(std::move(note), dueHere);
    });
    forEachIn(field(file, "rung"), [&](const NSDictionary& entry) {
        rung_.push_back(recorded(entry));
        rung_.back().isShown_ = field(entry, "shown").integerValue() != 0;
    });
    changed_ = false;
}

void NotificationSchedule::write() {
    if (!changed_) return;
    NSArray scheduled;
    for (const auto& [identifier, entry] : entries_) {
        NSDictionary dictionary = record(entry.note);
        dictionary.emplace("due", entry.due.timeIntervalSince1970());
        scheduled.emplace_back(std::move(dictionary));
    }
    NSArray rung;
    for (const UILocalNotification& note : rung_) {
        NSDictionary dictionary = record(note);
        dictionary.emplace("shown", note.isShown_);
        rung.emplace_back(std::move(dictionary));
    }
    const NSDictionary file{{"lastIdentifier", lastIdentifier_},
                            {"timeZone", Device::current().facts().timeZone},
                            {"scheduled", std::move(scheduled)},
                            {"rung", std::move(rung)}};
    if (writeDictionary(file, Device::current().facts().notificationsFile())) changed_ = false;
}

/// A mark stays for good: archives made when it was given still have to cancel what bears it.
void NotificationSchedule::mark(UILocalNotification& note) {
    const bool isFree = isMark(note.identifier_) && !entries_.contains(note.identifier_);
    if (!isFree) note.identifier_ = lastIdentifier_ + 1;
    lastIdentifier_ = std::max(lastIdentifier_, note.identifier_);
}

void NotificationSchedule::put(UILocalNotification note, NSDate due) {
    if (!isSane(note.fireDate) || !isSane(due)) return;
    const NSInteger identifier = note.identifier_;
    byDue_.emplace(due, identifier);
    entries_.insert_or_assign(identifier, Entry{std::move(note), due});
    changed_ = true;
}

/// Jumps to the newest times of a weekly one that nobody rang for years.
void NotificationSchedule::skipLongPast(NSDate now) {
    const NSDate oldest = now.dateByAddingTimeInterval(-kWeek * kNewestOfOne);
    if (byDue_.empty() || byDue_.begin()->first >= oldest) return;
    for (auto& [identifier, entry] : entries_) {
        if (entry.note.repeatInterval == 0 || entry.due >= oldest) continue;
        byDue_.erase({entry.due, identifier});
        entry.due = nextOccurrence(entry.note, oldest);
        byDue_.emplace(entry.due, identifier);
    }
}

void NotificationSchedule::start(Ring ring, Missed missed) {
    const NSDate now = NSDate::date();
    std::vector<UILocalNotification> due;
    skipLongPast(now);
    while (auto entry = takeDue(now))
        due.push_back(std::move(entry->note));
    const std::size_t dropped = due.size() - std::min(due.size(), kNewestOfAll);
    for (std::size_t i = dropped; i < due.size(); ++i)
        addRung(due[i]);
    ring_ = std::move(ring);
    missed_ = std::move(missed);
    armClock();
}

void NotificationSchedule::add(UILocalNotification& note) {
    mark(note);
    const bool repeats = note.repeatInterval != 0 && isSane(note.fireDate);
    put(note, repeats ? nextOccurrence(note, NSDate::date()) : fireDateHere(note));
    armClock();
}

void NotificationSchedule::remove(const UILocalNotification& note) {
    // What rang and still lies unseen goes with it: a tap would schedule it again.
    if (std::erase(rung_, note) > 0) changed_ = true;
    const auto found = entries_.find(note.identifier_);
    if (found == entries_.end() || !(found->second.note == note)) return;
    byDue_.erase({found->second.due, note.identifier_});
    entries_.erase(found);
    changed_ = true;
}

void NotificationSchedule::removeAll() {
    changed_ = changed_ || !entries_.empty();
    entries_.clear();
    byDue_.clear();
}

std::vector<UILocalNotification> NotificationSchedule::scheduled() const {
    std::vector<UILocalNotification> notes;
    for (const auto& [identifier, entry] : entries_)
        notes.push_back(entry.note);
    return notes;
}

void NotificationSchedule::addRung(const UILocalNotification& note) {
    if (rung_.size() >= kNewestOfAll) rung_.erase(rung_.begin());
    rung_.push_back(note);
    rung_.back().isShown_ = false;
    changed_ = true;
}

std::vector<UILocalNotification> NotificationSchedule::takeUnshown() {
    std::vector<UILocalNotification> unshown;
    for (UILocalNotification& note : rung_) {
        if (std::exchange(note.isShown_, true)) continue;
        unshown.push_back(note);
        changed_ = true;
    }
    return unshown;
}

NSDate NotificationSchedule::fireDateHere(const UILocalNotification& note) {
    return occurrence(note, 0);
}

void NotificationSchedule::removeRung(std::size_t index) {
    rung_.erase(rung_.begin() + static_cast<std::ptrdiff_t>(index));
    changed_ = true;
}

std::optional<NotificationSchedule::Entry> NotificationSchedule::takeDue(NSDate now) {
    if (byDue_.empty() || byDue_.begin()->first > now) return std::nullopt;
    const NSInteger identifier = byDue_.begin()->second;
    byDue_.erase(byDue_.begin());
    Entry& entry = entries_.at(identifier);
    Entry taken = entry;
    if (entry.note.repeatInterval == 0) {
        entries_.erase(identifier);
    } else {
        entry.due = nextOccurrence(entry.note, taken.due);
        byDue_.emplace(entry.due, identifier);
    }
    changed_ = true;
    return taken;
}

void NotificationSchedule::armClock() {
    if (!ring_ || byDue_.empty()) return;
    const NSDate due = byDue_.begin()->first;
    if (armedFor_ && *armedFor_ <= due) return;
    armedFor_ = due;
    const NSDate now = NSDate::date();
    const double delay = std::max(0.0, due.timeIntervalSinceDate(now));
    Device::current().mainQueue().after(delay, [this, due, now] {
        if (armedFor_ != due) return;  // an earlier one has taken over since
        armedFor_.reset();
        runDue(now);
        armClock();
    });
}

/// The clock was armed at that time. What was overdue by then rings all the same.
void NotificationSchedule::runDue(NSDate armed) {
    const NSDate now = NSDate::date();
    const NSDate asleep = now.dateByAddingTimeInterval(-kAsleepAfter);
    bool isAnyMissed = false;
    skipLongPast(now);
    while (const auto entry = takeDue(now)) {
        const bool isMissed = entry->due > armed && entry->due < asleep;
        if (isMissed) {
            addRung(entry->note);
        } else {
            ring_(entry->note);
        }
        isAnyMissed = isAnyMissed || isMissed;
    }
    if (isAnyMissed) missed_();
}

}  // namespace gexlo
