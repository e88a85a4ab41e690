#include "exchange/exchange_reader.h"

#include <algorithm>
#include <limits>

#include "exchange/exchange_format.h"
#include "exchange/file_url.h"
#include "exchange/foreign_database.h"

namespace gexlo {

using namespace exchange_format;

namespace {

// What no timetable comes near, and a grid still bears.
constexpr NSInteger kGridLimit = 100;     // days, periods, weeks, hours, minutes, sizes
constexpr NSInteger kNumberLimit = 1000;  // colours, kinds
constexpr double kDateLimit = 1e11;       // seconds: three thousand years

NSInteger gridNumber(ForeignRow& row) {
    return row.integer(-kGridLimit, kGridLimit);
}
NSInteger number(ForeignRow& row) {
    return row.integer(-kNumberLimit, kNumberLimit);
}
/// However high; the floats end before SQLite's numbers do.
float version(ForeignRow& row) {
    constexpr double highest = std::numeric_limits<float>::max();
    const double number = row.real(std::numeric_limits<double>::infinity());
    return static_cast<float>(std::clamp(number, -highest, highest));
}
/// Of absences, each of which becomes a record.
NSInteger count(ForeignRow& row, ExchangeBounds& bounds) {
    const NSInteger number = row.integer(-kNumberLimit, ExchangeBounds::kMostRows);
    bounds.takeRows(number);
    return number;
}
double period(ForeignRow& row) {
    return row.real(static_cast<double>(kGridLimit));
}

class Reader {
public:
    explicit Reader(const NSURL& path) : database_(path) {}

    bool isOpen() const { return database_.isOpen(); }

    ImportStatus read(ExchangeTimetable& timetable) {
        ImportStatus status = readDataInfo();
        if (status != ImportStatus::imported) return status;
        status = readTimetable(timetable);
        if (status != ImportStatus::imported) return status;
        readClasshours(timetable);
        readLessons(timetable);
        timetable.homework = readItems(kSelectTimetableHomework, {kNoOwner, timetableId_});
        timetable.exams = readItems(kSelectTimetableExams, {kNoOwner, timetableId_});
        return database_.isWithinBounds() ? ImportStatus::imported : ImportStatus::cannotQuery;
    }

private:
    const char* statement(const Query& query) const {
        return query[static_cast<std::size_t>(generation_)];
    }
    bool isThird() const { return generation_ == Generation::third; }

    /// Of several rows the first one says who may read, the last one how.
    ImportStatus readDataInfo() {
        bool hasRow = false;
        bool isTooHigh = false;
        bool isComplete = true;
        const bool isPrepared =
            database_.forEachRow(statement(kSelectDataInfo), {}, [&](ForeignRow& row) {
                generation_ = generationOf(version(row));
                row.skip();  // coreDataVersion
                isComplete = isComplete && !row.isNull();
                row.skip();  // appVersion
                const float leastData = version(row);
                const float leastStore = version(row);
                if (!hasRow) isTooHigh = leastData > kDataVersion || leastStore > kStoreVersion;
                hasRow = true;
            });
        if (!isPrepared || !isComplete || !database_.isWithinBounds()) {
            return ImportStatus::cannotQuery;
        }
        if (!hasRow) return ImportStatus::noRow;
        return isTooHigh ? ImportStatus::versionTooHigh : ImportStatus::imported;
    }

    ImportStatus readTimetable(ExchangeTimetable& timetable) {
        bool hasRow = false;
        bool isComplete = true;
        const auto readRow = [&](ForeignRow& row) {
            const NSInteger id = row.identifier();
            isComplete = isComplete && !row.isNull();
            if (hasRow) return;  // only the first one counts
            hasRow = true;
            timetableId_ = id;
            timetable.name = row.text();
            timetable.firstDay = gridNumber(row);
            timetable.lastDay = gridNumber(row);
            timetable.firstPeriod = gridNumber(row);
            timetable.lastPeriod = gridNumber(row);
            timetable.useHalfPeriods = row.flag();
            timetable.daysToNumbers = isThird() && row.flag();
            timetable.numWeeks = gridNumber(row);
            timetable.daysOnLeft = row.flag();
            timetable.showClasstimes = row.flag();
            timetable.useSameClasshours = !isThird() || row.flag();
            timetable.textSize = gridNumber(row);
            // Titles and the counting of absences are not taken over.
        };
        const bool isPrepared = database_.forEachRow(statement(kSelectTimetable), {}, readRow);
        if (!isPrepared || !isComplete || !database_.isWithinBounds()) {
            return ImportStatus::cannotQuery;
        }
        return hasRow ? ImportStatus::imported : ImportStatus::noRow;
    }

    void readClasshours(ExchangeTimetable& timetable) {
        database_.forEachRow(statement(kSelectClasshours), {timetableId_}, [&](ForeignRow& row) {
            ExchangeClasshour& classhour = timetable.classhours.emplace_back();
            row.skip();  // id
            classhour.name = row.text();
            if (isThird()) {
                classhour.shortName = row.text();
                classhour.week = gridNumber(row);
            }
            row.skip();  // day
            classhour.period = period(row);
            classhour.beginHour = gridNumber(row);
            classhour.beginMin = gridNumber(row);
            classhour.endHour = gridNumber(row);
            classhour.endMin = gridNumber(row);
        });
    }

    void readLessons(ExchangeTimetable& timetable) {
        database_.forEachRow(statement(kSelectLessons), {timetableId_}, [&](ForeignRow& row) {
            database_.bounds().takeLesson();
            if (!database_.isWithinBounds()) return;
            ExchangeLesson& lesson = timetable.lessons.emplace_back();
            const NSInteger id = row.identifier();
            lesson.name = row.text();
            lesson.room1 = row.text();
            lesson.room2 = row.text();
            lesson.room3 = row.text();
            lesson.color = row.text();
            lesson.colorAlpha = row.real(static_cast<double>(kNumberLimit));
            lesson.fontColor = row.text();
            lesson.absenceCount = count(row, database_.bounds());
            lesson.latenessCount = count(row, database_.bounds());
            row.skip();  // timetableID
            if (isThird()) {
                lesson.rgbRed = number(row);
                lesson.rgbGreen = number(row);
                lesson.rgbBlue = number(row);
            }
            readDependents(lesson, id);
        });
    }

    void readDependents(ExchangeLesson& lesson, NSInteger id) {
        database_.forEachRow(statement(kSelectProfessors), {id}, [&](ForeignRow& row) {
            if (lesson.professor) return;
            ExchangeProfessor& professor = lesson.professor.emplace();
            row.skip();  // id
            professor.name = row.text();
            professor.room = row.text();
            professor.phone = row.text();
            professor.cellphone = row.text();
        });
        database_.forEachRow(statement(kSelectClasses), {id}, [&](ForeignRow& row) {
            ExchangePlacement& placement = lesson.placements.emplace_back();
            row.skip();  // id
            placement.week = gridNumber(row);
            placement.day = gridNumber(row);
            placement.period = period(row);
            placement.room = row.text();
        });
        database_.forEachRow(statement(kSelectMemos), {id}, [&](ForeignRow& row) {
            ExchangeMemo& memo = lesson.memos.emplace_back();
            row.skip();  // id
            memo.title = row.text();
            memo.content = row.text();
        });
        lesson.homework = readItems(kSelectHomework, {id});
        lesson.exams = readItems(kSelectExams, {id});
    }

    std::vector<ExchangeItem> readItems(const Query& query,
                                        std::initializer_list<NSInteger> owner) {
        std::vector<ExchangeItem> items;
        database_.forEachRow(statement(query), owner, [&](ForeignRow& row) {
            ExchangeItem& item = items.emplace_back();
            row.skip();  // id
            item.title = row.text();
            item.content = row.text();
            item.date = NSDate::dateWithTimeIntervalSince1970(row.real(kDateLimit));
            if (generation_ != Generation::first) item.repeat = number(row);
            item.complete = row.flag();
        });
        return items;
    }

    ForeignDatabase database_;
    Generation generation_ = Generation::third;
    NSInteger timetableId_ = 0;
};

}  // namespace

ImportStatus readExchangeFile(const std::string& url, ExchangeTimetable& timetable) {
    const std::optional<NSURL> path = pathOfFileURL(url);
    if (!path) return ImportStatus::cannotOpen;
    // Opening for writing would make an empty database here, in which no table is found.
    std::error_code ignored;
    if (!std::filesystem::exists(*path, ignored) &&
        std::filesystem::is_directory(path->parent_path(), ignored)) {
        return ImportStatus::cannotQuery;
    }
    Reader reader(*path);
    return reader.isOpen() ? reader.read(timetable) : ImportStatus::cannotOpen;
}

}  // namespace gexlo
