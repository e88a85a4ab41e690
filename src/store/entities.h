// The entities of the store, each a bag of attributes without behaviour.
#pragma once

#include <string>

#include "platform/persistence/managed_object.h"

namespace gexlo {

class GXClasstimeData;
class GXDayNPeriodData;
class GXExamData;
class GXHomeworkData;
class GXLessonData;
class GXMemoData;
class GXProfessorData;

/// Counters and choices of the whole application, in one row.
class GXAppSettingData final : public NSManagedObject {
public:
    static constexpr Entity entity{"AppSetting"};
    Attribute<float> dataVersion{*this, "dataVersion"};
    Attribute<NSInteger> startingTimetable{*this, "startingTimetable"};
    Attribute<NSInteger> lastLessonIndex{*this, "lastLessonIndex"};
    Attribute<NSInteger> lastTimetableIndex{*this, "lastTimetableIndex"};
};

class GXTimetableData final : public NSManagedObject {
public:
    static constexpr Entity entity{"TimetableInfo"};
    Attribute<NSInteger> index{*this, "index"};
    Attribute<NSInteger> sortIndex{*this, "sortIndex"};
    Attribute<std::string> name{*this, "name"};
    Attribute<NSInteger> numWeeks{*this, "numWeeks"};
    Attribute<NSInteger> firstDay{*this, "firstDay"};
    Attribute<NSInteger> lastDay{*this, "lastDay"};
    Attribute<NSInteger> firstPeriod{*this, "firstPeriod"};
    Attribute<NSInteger> lastPeriod{*this, "lastPeriod"};
    Attribute<bool> daysToNumbers{*this, "daysToNumbers"};
    Attribute<bool> daysOnLeft{*this, "daysOnLeft"};
    Attribute<bool> useHalfPeriods{*this, "useHalfPeriods"};
    Attribute<bool> showClasstimes{*this, "showClasstimes"};
    Attribute<bool> useSameClasshours{*this, "useSameClasshours"};
    Attribute<bool> useAbsenceCounting{*this, "useAbsenceCounting"};
    Attribute<NSInteger> textSize{*this, "textSize"};
    Attribute<std::string> backgroundImage{*this, "backgroundImage"};
    Attribute<std::string> colorBorder{*this, "colorBorder"};
    Attribute<float> alphaBorder{*this, "alphaBorder"};
    Attribute<std::string> colorTableBack{*this, "colorTableBack"};
    Attribute<float> alphaTableBack{*this, "alphaTableBack"};
    Attribute<std::string> colorDaysBack{*this, "colorDaysBack"};
    Attribute<float> alphaDaysBack{*this, "alphaDaysBack"};
    Attribute<std::string> colorDaysFont{*this, "colorDaysFont"};
    Attribute<std::string> colorPeriodsBack{*this, "colorPeriodsBack"};
    Attribute<float> alphaPeriodsBack{*this, "alphaPeriodsBack"};
    Attribute<std::string> colorPeriodsFont{*this, "colorPeriodsFont"};
    Attribute<float> alphaSubject{*this, "alphaSubject"};
    Attribute<std::string> titleProfessor{*this, "titleProfessor"};
    Attribute<std::string> titleRoom{*this, "titleRoom"};
    Attribute<bool> useResttime{*this, "useResttime"};
    // Declared by the model; nothing reads or writes these three.
    Attribute<NSInteger> titleValueProfessor{*this, "titleValueProfessor"};
    Attribute<NSInteger> titleValueRoom{*this, "titleValueRoom"};
    Attribute<NSData> userImage{*this, "userImage"};

    ToMany<GXClasstimeData> classtimes{*this, "classtimes", inverse("timetable"), cascade};
    ToMany<GXLessonData> lessons{*this, "lessons", inverse("timetable"), cascade};
    ToMany<GXHomeworkData> homework{*this, "homework", inverse("timetable"), cascade};
    ToMany<GXExamData> exam{*this, "exam", inverse("timetable"), cascade};
    DeclaredToMany<GXMemoData> memo{*this, "memo"};
    DeclaredToMany<GXClasstimeData> resttimes{*this, "resttimes"};
};

/// A subject of a timetable.
class GXLessonData final : public NSManagedObject {
public:
    static constexpr Entity entity{"Lesson"};
    Attribute<NSInteger> id{*this, "id"};
    Attribute<NSInteger> sortIndex{*this, "sortIndex"};
    Attribute<std::string> name{*this, "name"};
    Attribute<std::string> room1{*this, "room1"};
    Attribute<std::string> room2{*this, "room2"};
    Attribute<std::string> room3{*this, "room3"};
    Attribute<std::string> color{*this, "color"};
    Attribute<float> colorAlpha{*this, "colorAlpha"};
    Attribute<NSInteger> rgbRed{*this, "rgbRed"};
    Attribute<NSInteger> rgbGreen{*this, "rgbGreen"};
    Attribute<NSInteger> rgbBlue{*this, "rgbBlue"};
    Attribute<std::string> fontColor{*this, "fontColor"};
    Attribute<NSInteger> absenceCount{*this, "absenceCount"};
    Attribute<NSInteger> latenessCount{*this, "latenessCount"};

    ToOne<GXTimetableData> timetable{*this, "timetable", inverse("lessons")};
    ToOne<GXProfessorData> professor{*this, "professor", inverse("lesson"), cascade};
    ToMany<GXMemoData> memo{*this, "memo", inverse("lesson"), cascade};
    ToMany<GXHomeworkData> homework{*this, "homework", inverse("lesson"), cascade};
    ToMany<GXExamData> exam{*this, "exam", inverse("lesson"), cascade};
    ToMany<GXDayNPeriodData> times{*this, "times", inverse("lesson"), cascade};
};

/// A placement of a subject in the grid.
class GXDayNPeriodData final : public NSManagedObject {
public:
    static constexpr Entity entity{"DayNPeriod"};
    Attribute<NSInteger> week{*this, "week"};
    Attribute<NSInteger> day{*this, "day"};
    Attribute<float> period{*this, "period"};
    Attribute<std::string> room{*this, "room"};
    Attribute<NSInteger> alarmValue{*this, "alarmValue"};
    Attribute<NSData> alarmExactly{*this, "alarmExactly"};
    Attribute<NSData> alarm5min{*this, "alarm5min"};
    Attribute<NSData> alarm10min{*this, "alarm10min"};
    Attribute<NSData> alarm1hour{*this, "alarm1hour"};
    Attribute<NSDate> time{*this, "time"};

    ToOne<GXLessonData> lesson{*this, "lesson", inverse("times")};
};

/// Begin and end of one period in one week, and the names of a break.
class GXClasstimeData final : public NSManagedObject {
public:
    static constexpr Entity entity{"Classtime"};
    Attribute<NSInteger> week{*this, "week"};
    Attribute<float> period{*this, "period"};
    Attribute<std::string> name{*this, "name"};
    Attribute<std::string> shortName{*this, "shortName"};
    Attribute<NSInteger> beginHour{*this, "beginHour"};
    Attribute<NSInteger> beginMin{*this, "beginMin"};
    Attribute<NSInteger> endHour{*this, "endHour"};
    Attribute<NSInteger> endMin{*this, "endMin"};

    ToOne<GXTimetableData> timetable{*this, "timetable", inverse("classtimes")};
};

class GXMemoData final : public NSManagedObject {
public:
    static constexpr Entity entity{"Memo"};
    Attribute<std::string> title{*this, "title"};
    Attribute<std::string> content{*this, "content"};
    Attribute<NSDate> genDate{*this, "genDate"};
    Attribute<NSDate> editDate{*this, "editDate"};
    Attribute<NSInteger> index{*this, "index"};

    ToOne<GXLessonData> lesson{*this, "lesson", inverse("memo")};
};

/// The teacher of a subject.
class GXProfessorData final : public NSManagedObject {
public:
    static constexpr Entity entity{"Professor"};
    Attribute<std::string> name{*this, "name"};
    Attribute<std::string> room{*this, "room"};
    Attribute<std::string> phone{*this, "phone"};
    Attribute<std::string> cellphone{*this, "cellphone"};
    Attribute<NSData> pic{*this, "pic"};

    ToOne<GXLessonData> lesson{*this, "lesson", inverse("professor")};
};

/// What homework and exams have alike. An item hangs under a subject or, without one,
/// under a timetable; owners are tried in that order.
class ScheduleItem : public NSManagedObject {
public:
    Attribute<NSInteger> index{*this, "index"};
    Attribute<std::string> title{*this, "title"};
    Attribute<std::string> content{*this, "content"};
    Attribute<NSDate> date{*this, "date"};
    Attribute<NSDate> genDate{*this, "genDate"};
    Attribute<NSDate> editDate{*this, "editDate"};
    Attribute<NSInteger> repeat{*this, "repeat"};
    Attribute<bool> complete{*this, "complete"};
    Attribute<NSInteger> alarmValue{*this, "alarmValue"};
    Attribute<NSData> alarmExactly{*this, "alarmExactly"};
    Attribute<NSData> alarm10min{*this, "alarm10min"};
    Attribute<NSData> alarm1hour{*this, "alarm1hour"};
    Attribute<NSData> alarm1day{*this, "alarm1day"};
};

class GXHomeworkData final : public ScheduleItem {
public:
    static constexpr Entity entity{"Homework"};
    ToOne<GXLessonData> lesson{*this, "lesson", inverse("homework")};
    ToOne<GXTimetableData> timetable{*this, "timetable", inverse("homework")};
};

class GXExamData final : public ScheduleItem {
public:
    static constexpr Entity entity{"Exam"};
    ToOne<GXLessonData> lesson{*this, "lesson", inverse("exam")};
    ToOne<GXTimetableData> timetable{*this, "timetable", inverse("exam")};
};

/// The model named "Vetra".
const NSManagedObjectModel& vetraModel();

}  // namespace gexlo
