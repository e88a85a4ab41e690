// The exchange file: an SQLite database with one timetable. What stands in it, and by which
// statements it is written and read.
#pragma once

#include <array>

namespace gexlo::exchange_format {

// MARK: versions

/// Generation of the format that is written, and the highest that a file may ask for.
inline constexpr float kDataVersion = 2.0F;
/// The same for the model of the store.
inline constexpr float kStoreVersion = 4.0F;
/// What a reader of a file written here must understand at least. The second one goes out
/// widened, as 3.299999952316284.
inline constexpr float kLeastDataVersion = 1.0F;
inline constexpr float kLeastStoreVersion = 3.3F;

// MARK: values that stand for themselves

inline constexpr const char* kFileSuffix = ".gexlo";
inline constexpr const char* kMimeType = "application/gexlo";
inline constexpr const char* kPlatform = "iPhone";
/// The file's own id of its one timetable.
inline constexpr int kTimetableId = 0;
/// The owner of what hangs under the other kind of owner.
inline constexpr int kNoOwner = -1;
/// Class times hold for every day; nobody reads it.
inline constexpr int kEveryDay = 99;

// MARK: statements

/// In the order in which they are made.
extern const std::array<const char*, 9> kCreateStatements;

inline constexpr const char* kInsertDataInfo =
    "INSERT INTO data_info (exportDataVersion,coreDataVersion,appVersion, minExportDataVersion, "
    "minCoreDataVersion, platform, osVersion, genDate) VALUES(?,?,?,?,?,?,?,?)";
inline constexpr const char* kInsertTimetable =
    "INSERT INTO timetable (id, name, firstDay, lastDay, firstPeriod, lastPeriod, useHalfPeriods, "
    "daysToNumbers, numWeeks, daysOnLeft, showClassHours, useSameClasshours, textSize, "
    "titleProfessor, titleRoom, useAbsenceCounting) VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
inline constexpr const char* kInsertClasshour =
    "INSERT INTO classhour (name, shortName, week, day, period, beginHour, beginMin, endHour, "
    "endMin, timetableID) VALUES(?,?,?,?,?,?,?,?,?,?)";
inline constexpr const char* kInsertLesson =
    "INSERT INTO lesson (id, name, room1, room2, room3, color, rgbRed, rgbGreen, rgbBlue, "
    "colorAlpha, fontColor, absenceCount, latenessCount, timetableID) "
    "VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
inline constexpr const char* kInsertProfessor =
    "INSERT INTO professor (name, room, phone, cellPhone, lessonID) VALUES(?,?,?,?,?)";
inline constexpr const char* kInsertClasses =
    "INSERT INTO classes (week, day, period, room, lessonID) VALUES(?,?,?,?,?)";
inline constexpr const char* kInsertMemo =
    "INSERT INTO memo (title, content, lessonID, timetableID) VALUES(?,?,?,?)";
inline constexpr const char* kInsertHomework =
    "INSERT INTO homework (title, content, date, repeat, complete, lessonID, timetableID) "
    "VALUES(?,?,?,?,?,?,?)";
inline constexpr const char* kInsertExam =
    "INSERT INTO exam (title, content, date, repeat, complete, lessonID, timetableID) "
    "VALUES(?,?,?,?,?,?,?)";

/// The forms that files have had, in their order.
enum class Generation {
    first,   ///< exactly 1.0: items do not repeat, and what the second has not
    second,  ///< one set of class times for all weeks, colours by name alone
    third,   ///< 2.0 and above
};
/// Of a file's `exportDataVersion`.
Generation generationOf(float version);

/// What a reader asks for, its statement by generation.
using Query = std::array<const char*, 3>;
extern const Query kSelectDataInfo;
extern const Query kSelectTimetable;
/// Bound to the file's id of the timetable.
extern const Query kSelectClasshours;
extern const Query kSelectLessons;
/// Bound to the file's id of the subject.
extern const Query kSelectProfessors;
extern const Query kSelectClasses;
extern const Query kSelectMemos;
extern const Query kSelectHomework;
extern const Query kSelectExams;
/// Bound to no subject, and to the file's id of the timetable.
extern const Query kSelectTimetableHomework;
extern const Query kSelectTimetableExams;

}  // namespace gexlo::exchange_format
