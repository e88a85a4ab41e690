#include "exchange/exchange_format.h"

namespace gexlo::exchange_format {

const std::array<const char*, 9> kCreateStatements{
    "CREATE TABLE data_info (exportDataVersion DOUBLE, coreDataVersion DOUBLE, appVersion CHAR, "
    "minExportDataVersion DOUBLE, minCoreDataVersion DOUBLE, platform CHAR, osVersion CHAR, "
    "genDate DOUBLE)",
    "CREATE TABLE timetable (id INTEGER, name CHAR, firstDay INTEGER, lastDay INTEGER, "
    "firstPeriod INTEGER, lastPeriod INTEGER, useHalfPeriods BOOL, daysToNumbers BOOL, "
    "numWeeks INTEGER, daysOnLeft BOOL, showClassHours BOOL, useSameClasshours BOOL, "
    "textSize INTEGER, titleProfessor INTEGER, titleRoom INTEGER, useAbsenceCounting BOOL)",
    "CREATE TABLE classhour (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, name CHAR, "
    "shortName CHAR, week INTEGER, day INTEGER, period DOUBLE, beginHour INTEGER, "
    "beginMin INTEGER, endHour INTEGER, endMin INTEGER, timetableID INTEGER)",
    "CREATE TABLE lesson (id INTEGER, name CHAR, room1 CHAR, room2 CHAR, room3 CHAR, color CHAR, "
    "rgbRed INTEGER, rgbGreen INTEGER, rgbBlue INTEGER,  colorAlpha DOUBLE, fontColor CHAR, "
    "absenceCount INTEGER, latenessCount INTEGER, timetableID INTEGER)",
    "CREATE TABLE professor (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, name CHAR, room CHAR, "
    "phone CHAR, cellPhone CHAR, lessonID INTEGER)",
    "CREATE TABLE classes (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, week INTEGER, "
    "day INTEGER, period DOUBLE, room CHAR, lessonID INTEGER)",
    "CREATE TABLE memo (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, title CHAR, content CHAR, "
    "lessonID INTEGER, timetableID INTEGER)",
    "CREATE TABLE homework (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, title CHAR, "
    "content CHAR, date DOUBLE, repeat INTEGER, complete BOOL, lessonID INTEGER, "
    "timetableID INTEGER)",
    "CREATE TABLE exam (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, title CHAR, content CHAR, "
    "date DOUBLE, repeat INTEGER, complete BOOL, lessonID INTEGER, timetableID INTEGER)",
};

Generation generationOf(float version) {
    if (version == 1.0F) return Generation::first;
    return version < kDataVersion ? Generation::second : Generation::third;
}

namespace {

constexpr Query always(const char* statement) {
    return {statement, statement, statement};
}
constexpr Query fromThird(const char* before, const char* since) {
    return {before, before, since};
}
constexpr Query fromSecond(const char* first, const char* since) {
    return {first, since, since};
}

}  // namespace

const Query kSelectDataInfo = always(
    "SELECT exportDataVersion, coreDataVersion, appVersion, minExportDataVersion, "
    "minCoreDataVersion, genDate FROM data_info");
const Query kSelectTimetable = fromThird(
    "SELECT id, name, firstDay, lastDay, firstPeriod, lastPeriod, useHalfPeriods, numWeeks, "
    "daysOnLeft, showClassHours, textSize, titleProfessor, titleRoom, useAbsenceCounting "
    "FROM timetable",
    "SELECT id, name, firstDay, lastDay, firstPeriod, lastPeriod, useHalfPeriods, daysToNumbers, "
    "numWeeks, daysOnLeft, showClassHours, useSameClasshours,  textSize, titleProfessor, "
    "titleRoom, useAbsenceCounting FROM timetable");
const Query kSelectClasshours = fromThird(
    "SELECT id, name, day, period, beginHour, beginMin, endHour, endMin, timetableID "
    "FROM classhour WHERE timetableID=?",
    "SELECT id, name, shortName, week, day, period, beginHour, beginMin, endHour, endMin, "
    "timetableID FROM classhour WHERE timetableID=?");
const Query kSelectLessons = fromThird(
    "SELECT id, name, room1, room2, room3, color, colorAlpha, fontColor, absenceCount, "
    "latenessCount, timetableID FROM lesson WHERE timetableID=?",
    "SELECT id, name, room1, room2, room3, color, colorAlpha, fontColor, absenceCount, "
    "latenessCount, timetableID, rgbRed, rgbGreen, rgbBlue FROM lesson WHERE timetableID=?");
const Query kSelectProfessors =
    always("SELECT id, name, room, phone, cellPhone, lessonID FROM professor WHERE lessonID=?");
const Query kSelectClasses =
    always("SELECT id, week, day, period, room, lessonID FROM classes WHERE lessonID=?");
const Query kSelectMemos =
    always("SELECT id, title, content, lessonID, timetableID FROM memo WHERE lessonID=?");
const Query kSelectHomework = fromSecond(
    "SELECT id, title, content, date, complete, lessonID, timetableID FROM homework "
    "WHERE lessonID=?",
    "SELECT id, title, content, date, repeat, complete, lessonID, timetableID FROM homework "
    "WHERE lessonID=?");
const Query kSelectExams = fromSecond(
    "SELECT id, title, content, date, complete, lessonID, timetableID FROM exam "
    "WHERE lessonID=?",
    "SELECT id, title, content, date, repeat, complete, lessonID, timetableID FROM exam "
    "WHERE lessonID=?");
const Query kSelectTimetableHomework = fromSecond(
    "SELECT id, title, content, date, complete, lessonID, timetableID FROM homework "
    "WHERE lessonID=? AND timetableID=?",
    "SELECT id, title, content, date, repeat, complete, lessonID, timetableID FROM homework "
    "WHERE lessonID=? AND timetableID=?");
const Query kSelectTimetableExams = fromSecond(
    "SELECT id, title, content, date, complete, lessonID, timetableID FROM exam "
    "WHERE lessonID=? AND timetableID=?",
    "SELECT id, title, content, date, repeat, complete, lessonID, timetableID FROM exam "
    "WHERE lessonID=? AND timetableID=?");

}  // namespace gexlo::exchange_format
