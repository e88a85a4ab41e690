// Setting, clearing and rebuilding alarms. The archive that the store keeps of a notification
// is the only handle by which it is found again.
#include <algorithm>

#include "alarms/alarm_kinds.h"
#include "platform/foundation/bundle.h"
#include "platform/foundation/calendar.h"
#include "platform/foundation/device.h"
#include "platform/foundation/string_format.h"
#include "platform/services/application.h"
#include "platform/services/local_notification.h"
#include "presentation/ui_manager.h"
#include "store/data_manager.h"

namespace gexlo {

namespace {

constexpr double kDay = 86400;
constexpr NSInteger kLocalNotification = 0;  // the one "notiType" there is

enum class Category : NSInteger { schoolClass = 0, homework = 1, exam = 2 };

void cancelArchived(const Object& archive) {
    const auto* data = archive.as<NSData>();
    if (!data) return;
    if (const auto note = UILocalNotification::fromArchive(*data)) {
        UIApplication::sharedApplication().cancelLocalNotification(*note);
    }
}

/// Cancels what the family's attributes hold, without forgetting it.
void cancelAlarmsOf(const NSManagedObject& object, const char* AlarmKindRow::*family) {
    for (const AlarmKindRow& row : kAlarmKinds) {
        if (row.*family) cancelArchived(object.valueForKey(row.*family));
    }
}

void clearAlarmsOf(NSManagedObject& object, const char* AlarmKindRow::*family) {
    cancelAlarmsOf(object, family);
    for (const AlarmKindRow& row : kAlarmKinds) {
        if (row.*family) object.setValue_forKey(Object(), row.*family);
    }
    object.setValue_forKey(0, "alarmValue");
}

UILocalNotification newNotification(const char* actionKey) {
    UILocalNotification note;
    note.timeZone = Device::current().facts().timeZone;
    note.alertAction = NSLocalizedString(actionKey);
    note.soundName = UILocalNotificationDefaultSoundName;
    return note;
}

NSData schedule(UILocalNotification& note) {
    UIApplication::sharedApplication().scheduleLocalNotification(note);
    return note.archive();
}

int clamped(NSInteger value) {
    constexpr NSInteger farBeyondAnyClock = 100'000;
    return static_cast<int>(std::clamp(value, -farBeyondAnyClock, farBeyondAnyClock));
}

/// The timetable on screen speaks for all, also where another one's alarms are rebuilt. Before
/// there is one, as in the rebuild at an upgrade, each speaks for itself.
bool hasSameClasshours(const GXTimetableData& timetable) {
    const GXUIManager& manager = GXUIManager::manager();
    return manager.periods() ? manager.useSameClasshours() : timetable.useSameClasshours.get();
}

/// The subject under which a homework or an exam hangs, or null.
GXLessonData* lessonOf(const NSManagedObject& item) {
    const auto owners = item.objectsForKey("lesson");
    return owners.empty() ? nullptr : static_cast<GXLessonData*>(owners.front());
}

/// Calls `visit` with each homework and each exam of a subject or a timetable.
template <typename Owner, typename Visit>
void forEachItem(const Owner& owner, Visit visit) {
    for (GXHomeworkData* homework : owner.homework.allObjects())
        visit(*homework);
    for (GXExamData* exam : owner.exam.allObjects())
        visit(*exam);
}

}  // namespace

void GXDataManager::setAlarm_inClass(NSInteger kind, GXDayNPeriodData& placement) {
    clearAlarmInClass(placement);
    if (const auto* row = alarmKindRow(kind, &AlarmKindRow::placementKey)) {
        const std::string& room = placement.room.get();
        const GXLessonData* lesson = placement.lesson.get();
        const std::string message = stringWithFormat(
            "%@%@ : %@", lesson ? lesson->name.get() : "",
            room.empty() ? "" : stringWithFormat(" (%@)", room), NSLocalizedString(row->textKey));
        placement.setValue_forKey(
            alarmDataInClass_message_alarmType_timeInterval(placement, message, kind, row->seconds),
            row->placementKey);
        placement.alarmValue = kind;
    }
    saveContext();
}

void GXDataManager::clearAlarmInClass(GXDayNPeriodData& placement) {
    clearAlarmsOf(placement, &AlarmKindRow::placementKey);
    saveContext();
}

NSData GXDataManager::alarmDataInClass_message_alarmType_timeInterval(
    const GXDayNPeriodData& placement, const std::string& message, NSInteger kind,
    NSTimeInterval seconds) {
    const NSCalendar calendar = NSCalendar::currentCalendar();
    NSDate base = placement.time.get();
    if (!placement.time.isSet()) {
        const GXLessonData* lesson = placement.lesson.get();
        const GXTimetableData* timetable = lesson ? lesson->timetable.get() : nullptr;
        NSDateComponents time{.year = 2001};
        if (timetable) {
            const NSInteger week = hasSameClasshours(*timetable) ? 0 : placement.week.get();
            const float period = placement.period.get();
            time.hour =
                clamped(classBeginningHourWithPeriod_week_inTimetalbe(period, week, *timetable));
            time.minute =
                clamped(classBeginningMinWithPeriod_week_inTimetable(period, week, *timetable));
        }
        base = calendar.dateFromComponents(time);
    }
    const NSDateComponents timeOfDay = calendar.componentsFromDate(base);

    const NSDate now = NSDate::date();
    const int weekday = calendar.componentsFromDate(now).weekday;
    // This week's day, past or not; 7, which names Sunday too, is the one after Saturday.
    const int shift = 1 - weekday + clamped(placement.day.get());
    NSDateComponents target =
        calendar.componentsFromDate(now.dateByAddingTimeInterval(shift * kDay));
    target.hour = timeOfDay.hour;
    target.minute = timeOfDay.minute;
    target.second = 0;

    UILocalNotification note = newNotification("OK_BUTTON");
    note.fireDate = calendar.dateFromComponents(target).dateByAddingTimeInterval(seconds);
    note.alertBody = message;
    note.repeatInterval = kRepeatWeekly;
    note.userInfo = {{"notiType", kLocalNotification},
                     {"category", static_cast<NSInteger>(Category::schoolClass)},
                     {"type", kind},
                     {"timetableNo", currentTimetableNo()}};
    return schedule(note);
}

void GXDataManager::setAlarm_inSchedule_scheduleType(NSInteger kind, NSManagedObject& item,
                                                     NSInteger type) {
    const GXLessonData* lesson = lessonOf(item);
    const std::string subject = lesson ? stringWithFormat("\n(%@)", lesson->name.get()) : "";
    clearAlarmInSchedule(item);
    if (const auto* row = alarmKindRow(kind, &AlarmKindRow::itemKey)) {
        UILocalNotification note = newNotification("VIEW_BUTTON");
        const Object due = item.valueForKey("date");
        const NSDate date = due.as<NSDate>() ? *due.as<NSDate>() : NSDate();
        const Category category = type == 1 ? Category::exam : Category::homework;
        note.fireDate = date.dateByAddingTimeInterval(row->seconds);
        note.alertBody = stringWithFormat("%@ : %@ %@", item.valueForKey("title").stringValue(),
                                          NSLocalizedString(row->textKey), subject);
        note.repeatInterval = item.valueForKey("repeat").integerValue() != 0 ? kRepeatWeekly : 0;
        note.userInfo = {{"notiType", kLocalNotification},
                         {"category", static_cast<NSInteger>(category)},
                         {"type", kind},
                         {"timetableNo", currentTimetableNo()},
                         {"scheduleIndex", item.valueForKey("index").integerValue()},
                         {"lessonIndex", lesson ? lesson->id.get() : NSInteger{-1}}};
        item.setValue_forKey(schedule(note), row->itemKey);
        item.setValue_forKey(kind, "alarmValue");
    }
    saveContext();
}

void GXDataManager::clearAlarmInSchedule(NSManagedObject& item) {
    clearAlarmsOf(item, &AlarmKindRow::itemKey);
    saveContext();
}

void GXDataManager::resetAllAlarms() {
    UIApplication::sharedApplication().cancelAllLocalNotifications();
    for (const GXTimetableData* timetable : timetableList()) {
        for (const GXLessonData* lesson : timetable->lessons.allObjects()) {
            for (GXDayNPeriodData* placement : lesson->times.allObjects()) {
                const NSInteger kind = placement->alarmValue.get();
                if (kind != 0) setAlarm_inClass(kind, *placement);
            }
            renumberItemsOf(*lesson);
        }
        renumberItemsOf(*timetable);
    }
}

void GXDataManager::removeAllAlarms() {
    for (const GXTimetableData* timetable : timetableList())
        clearAlarms(*timetable);
    UIApplication::sharedApplication().cancelAllLocalNotifications();
}

void GXDataManager::clearAlarms(const GXTimetableData& timetable) {
    const auto clear = [this](NSManagedObject& item) { clearAlarmInSchedule(item); };
    for (const GXLessonData* lesson : timetable.lessons.allObjects()) {
        for (GXDayNPeriodData* placement : lesson->times.allObjects())
            clearAlarmInClass(*placement);
        forEachItem(*lesson, clear);
    }
    forEachItem(timetable, clear);
}

/// For a subject that is about to go: what it holds is left as it is.
void GXDataManager::cancelAlarms(const GXLessonData& lesson) {
    for (const GXDayNPeriodData* placement : lesson.times)
        cancelAlarmsOf(*placement, &AlarmKindRow::placementKey);
    forEachItem(lesson,
                [](const NSManagedObject& item) { cancelAlarmsOf(item, &AlarmKindRow::itemKey); });
}

}  // namespace gexlo
