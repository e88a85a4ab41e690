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

NSCalendar calendarOf(const UILocalNotification& note) {
    return isTimeZone(note.timeZone) ? NSCalendar::calendarInTimeZone(note.timeZone)
                                     : NSCalendar::currentCalendar();
}

/// The n-th weekly time: the same time of day, counted in calendar days from the first.
NSDate occurrence(const UILocalNotification& note, int weeks) {
    NSDateComponents parts = calendarOf(note).componentsFromDate(note.fireDate);
    parts.day += 7 * weeks;
    return NSCalendar::currentCalendar().dateFromComponents(parts);
}

/// The first time after `now`; the fire date itself where that lies ahead.
NSDate nextOccurrence(const UILocalNotification& note, NSDate now) {
    if (note.fireDate > now) return note.fireDate;
    auto weeks = static_cast<int>(now.timeIntervalSinceDate(note.fireDate) / kWeek);
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
    forEachIn(field(file, "scheduled"), [&](const NSDictionary& entry) {
        UILocalNotification note = recorded(entry);
        mark(note);
        const double due = field(entry, "due").doubleValue();
        put(std::move(note), NSDate::dateWithTimeIntervalSince1970(due));
    });
    forEachIn(field(file, "rung"),
              [&](const NSDictionary& entry) { rung_.push_back(recorded(entry)); });
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
    for (const UILocalNotification& note : rung_)
        rung.emplace_back(record(note));
    const NSDictionary file{{"lastIdentifier", lastIdentifier_},
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

void NotificationSchedule::start(Ring ring) {
    const NSDate now = NSDate::date();
    std::vector<UILocalNotification> missed;
    // Jump to the newest times of a weekly one that nobody rang for years.
    for (auto& [identifier, entry] : entries_) {
        const NSDate oldest = now.dateByAddingTimeInterval(-kWeek * kNewestOfOne);
        if (entry.note.repeatInterval == 0 || entry.due >= oldest) continue;
        byDue_.erase({entry.due, identifier});
        entry.due = nextOccurrence(entry.note, oldest);
        byDue_.emplace(entry.due, identifier);
    }
    while (auto entry = takeDue(now))
        missed.push_back(std::move(entry->note));
    const std::size_t dropped = missed.size() - std::min(missed.size(), kNewestOfAll);
    for (std::size_t i = dropped; i < missed.size(); ++i)
        addRung(missed[i]);
    ring_ = std::move(ring);
    armClock();
}

void NotificationSchedule::add(UILocalNotification& note) {
    mark(note);
    const bool repeats = note.repeatInterval != 0 && isSane(note.fireDate);
    put(note, repeats ? nextOccurrence(note, NSDate::date()) : note.fireDate);
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
    changed_ = true;
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
    const double delay = std::max(0.0, due.timeIntervalSinceDate(NSDate::date()));
    Device::current().mainQueue().after(delay, [this, due] {
        if (armedFor_ != due) return;  // an earlier one has taken over since
        armedFor_.reset();
        while (const auto entry = takeDue(NSDate::date()))
            ring_(entry->note);
        armClock();
    });
}

}  // namespace gexlo
