// The store as the rest of the system reaches it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/file_manager.h"
#include "store/entities.h"
#include "store/is_data_manager.h"

namespace gexlo {

/// One door to timetables, subjects and items. It stands on the main queue; what it says
/// of saving holds for every operation, and a save that fails ends the process.
class GXDataManager final : public ISDataManager {
public:
    /// Version of the data model that this program writes.
    static constexpr float kDataVersion = 4.0F;
    /// Timetables that a person may have. The operations on timetables do not look at it: whoever
    /// adds one for a person does.
    static constexpr std::size_t kMostTimetables = 60;

    static GXDataManager& manager();
    ~GXDataManager();

    // MARK: the stack

    NSManagedObjectContext* managedObjectContext();
    const NSManagedObjectModel& managedObjectModel() const;
    /// Opened, and moved to the group directory, at first call.
    NSPersistentStoreCoordinator& persistentStoreCoordinator();
    NSURL applicationDocumentsDirectory() const;
    /// The documents directory where the system offers no group container.
    NSURL applicationGroupDirectory() const;
    /// Opens and moves the store once more and keeps nothing of it. Nothing calls it; it is
    /// for a process that has no store open.
    void migrationAppDataToAppGroup() const;

    // MARK: the start

    void initSingleton();
    /// What happened to the version at this start; nothing when it stayed.
    const std::optional<std::string>& versionInfo() const { return versionInfo_; }
    /// Repairs rows that a move of the store has doubled; saves. The twin with the same body
    /// is run at every start, this one only after versions below 41.
    void cleanOverlapData();
    void cleanOverlapData2();

    // MARK: timetables

    /// The one row of settings, made unsaved when there is none.
    GXAppSettingData& appSettingData();
    /// The timetable of that `index`, or null.
    GXTimetableData* timetableData(NSInteger index);
    GXTimetableData* timetableDataWithSortIndex(NSInteger sortIndex);
    GXTimetableData* currentTimetableData();
    /// All, by descending `sortIndex`.
    std::vector<GXTimetableData*> timetableList();
    NSInteger currentTimetableNo() const { return currentTimetableNo_; }
    void setCurrentTimetableNo(NSInteger index) { currentTimetableNo_ = index; }

    /// A timetable with the defaults of a new one; saves.
    GXTimetableData& addNewTimetable();
    /// A copy of settings, class times and subjects with their placements, without alarms,
    /// items, memos and counters; saves. Of an `index` that is none, an empty timetable.
    GXTimetableData& copyTimetableFromTimetableNo(NSInteger index);
    /// Removes it with all that hangs under it; saves. Its update number and user image stay.
    void removeTimetable(NSInteger index);

    NSInteger startingTimetableNo();
    bool fixedStartingTimetable();
    /// Saves.
    void setStartingTimetable_fixed(NSInteger index, bool fixed);

    // MARK: update numbers

    /// Starts the counter, and with it the current timetable's, when it was never raised.
    NSInteger getDataUpdateNo();
    NSInteger getTimetableUpdateNo(NSInteger index) const;
    void dataUpdateNoUp();
    void timetableUpdateNoUp();
    void timetableUpdateNoUp(NSInteger index);

    // MARK: subjects and items

    /// By descending `sortIndex`; subjects that were never ordered are numbered first, and saved.
    std::vector<GXLessonData*> lessonListForCurrentTimetable();
    /// A subject with a memo and a teacher; saves.
    GXLessonData& addNewLessonInTimetable(GXTimetableData& timetable);
    // Unattached and unsaved:
    GXProfessorData& addNewProfessor();
    GXMemoData& addNewMemo();
    GXHomeworkData& addNewHomework();
    GXExamData& addNewExam();
    GXDayNPeriodData& addNewDayNPeriod();

    /// Saves.
    void removeLesson_inTimetable(GXLessonData& lesson, GXTimetableData& timetable);
    void removeAllLessonsInTimetable(GXTimetableData& timetable);
    /// Removes the item and renumbers those left with its owner; saves.
    void removeHomework(GXHomeworkData& homework);
    void removeExam(GXExamData& exam);
    /// Take the item out of its owner without deleting it, and renumber those left; saves if
    /// any are.
    void removeHomework_fromLesson(GXHomeworkData& homework, GXLessonData& lesson);
    void removeExam_fromLesson(GXExamData& exam, GXLessonData& lesson);
    void removeHomework_fromTimetable(GXHomeworkData& homework, GXTimetableData& timetable);
    void removeExam_fromTimetable(GXExamData& exam, GXTimetableData& timetable);

    // MARK: class times, of the current timetable where none is given; defined in time/

    // The first row of that period answers, whatever its week: of two weeks with differing
    // times either may. Nothing in the system calls these three.
    /// Title and range of time, in two lines.
    std::string classtime(float period);
    /// "09:05"; "" without a row or where one of the two fields is not set.
    std::string classBeginningTime(float period);
    std::string classEndTime(float period);
    /// 0 without a row, or where either field is not set. Spelled so by its callers.
    NSInteger classBeginningHourWithPeriod_week_inTimetalbe(float period, NSInteger week,
                                                            const GXTimetableData& timetable) const;
    NSInteger classBeginningMinWithPeriod_week_inTimetable(float period, NSInteger week,
                                                           const GXTimetableData& timetable) const;
    NSInteger classBeginningHourWithPeriod_week(float period, NSInteger week);
    NSInteger classBeginningMinWithPeriod_week(float period, NSInteger week);
    /// When a homework or an exam is due: weekday and time of one that repeats, else the date.
    std::string stringForScheduleDate(const NSManagedObject& item) const;

    // MARK: alarms; defined in alarms/

    /// Replaces the placement's alarm; a kind that placements do not have clears it. Saves.
    void setAlarm_inClass(NSInteger kind, GXDayNPeriodData& placement);
    /// Cancels and forgets the alarm; saves.
    void clearAlarmInClass(GXDayNPeriodData& placement);
    /// Schedules a weekly notification at the class's time of this week plus `seconds`, be it
    /// past or not, and gives its archive.
    NSData alarmDataInClass_message_alarmType_timeInterval(const GXDayNPeriodData& placement,
                                                           const std::string& message,
                                                           NSInteger kind, NSTimeInterval seconds);
    /// Replaces the item's alarm; `type` is 0 for homework, 1 for an exam. Saves.
    void setAlarm_inSchedule_scheduleType(NSInteger kind, NSManagedObject& item, NSInteger type);
    void clearAlarmInSchedule(NSManagedObject& item);
    /// Drops everything that is scheduled and builds it from the store, with class alarms
    /// based on this week and the items of each owner numbered from 0.
    void resetAllAlarms();
    /// Clears every alarm of every timetable.
    void removeAllAlarms();

private:
    void cancelAlarms(const GXLessonData& lesson);
    void clearAlarms(const GXTimetableData& timetable);
    void giveNextIndex(GXTimetableData& timetable);
    void noteVersion();
    void keepOneAppSetting();
    void separateTimetableTwins();
    // Number the items from 0 and arm their alarms anew; save after each.
    void renumberItemsOf(const GXLessonData& lesson);
    void renumberItemsOf(const GXTimetableData& timetable);
    template <typename Item>
    void removeItem(Item& item);
    template <typename Item>
    void renumber(const ToMany<Item>& items);

    std::unique_ptr<NSPersistentStoreCoordinator> persistentStoreCoordinator_;
    std::unique_ptr<NSManagedObjectContext> managedObjectContext_;
    NSInteger currentTimetableNo_ = 0;
    std::optional<std::string> versionInfo_;
};

}  // namespace gexlo
