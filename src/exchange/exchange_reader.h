// An exchange file as values, read and checked before anything is made of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/foundation/types.h"

namespace gexlo {

/// How an import ends.
enum class ImportStatus : std::int32_t {
    imported = 10,
    cannotOpen = 11,
    cannotQuery = 12,
    noRow = 13,
    tooManyTimetables = 14,
    versionTooHigh = 15,
};

struct ExchangeItem {
    std::string title;
    std::string content;
    NSDate date;
    NSInteger repeat = 0;
    bool complete = false;
};

struct ExchangeClasshour {
    std::string name;
    std::string shortName;
    NSInteger week = 0;
    double period = 0;
    NSInteger beginHour = 0;
    NSInteger beginMin = 0;
    NSInteger endHour = 0;
    NSInteger endMin = 0;
};

struct ExchangeProfessor {
    std::string name;
    std::string room;
    std::string phone;
    std::string cellphone;
};

struct ExchangePlacement {
    NSInteger week = 0;
    NSInteger day = 0;
    double period = 0;
    std::string room;
};

struct ExchangeMemo {
    std::string title;
    std::string content;
};

struct ExchangeLesson {
    std::string name;
    std::string room1;
    std::string room2;
    std::string room3;
    std::string color;
    NSInteger rgbRed = 0;
    NSInteger rgbGreen = 0;
    NSInteger rgbBlue = 0;
    double colorAlpha = 0;
    std::string fontColor;
    NSInteger absenceCount = 0;
    NSInteger latenessCount = 0;
    std::optional<ExchangeProfessor> professor;
    std::vector<ExchangePlacement> placements;
    std::vector<ExchangeMemo> memos;
    std::vector<ExchangeItem> homework;
    std::vector<ExchangeItem> exams;
};

struct ExchangeTimetable {
    std::string name;
    NSInteger firstDay = 0;
    NSInteger lastDay = 0;
    NSInteger firstPeriod = 0;
    NSInteger lastPeriod = 0;
    bool useHalfPeriods = false;
    bool daysToNumbers = false;
    NSInteger numWeeks = 0;
    bool daysOnLeft = false;
    bool showClasstimes = false;
    bool useSameClasshours = true;
    NSInteger textSize = 0;
    std::vector<ExchangeClasshour> classhours;
    std::vector<ExchangeLesson> lessons;
    std::vector<ExchangeItem> homework;
    std::vector<ExchangeItem> exams;
};

/// Reads the file that a URL of the file scheme names; whatever else the URL says has no effect.
/// Its content holds only with the status `imported`. A file that holds more than a timetable
/// can, or numbers that none has, cannot be queried.
[[nodiscard]] ImportStatus readExchangeFile(const std::string& url, ExchangeTimetable& timetable);

}  // namespace gexlo
