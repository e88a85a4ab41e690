#include "exchange/exchange_writer.h"

#include <sqlite3.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <variant>

#include "exchange/exchange_bounds.h"
#include "exchange/exchange_format.h"
#include "platform/foundation/device.h"
#include "platform/foundation/log.h"
#include "platform/foundation/string_format.h"
#include "platform/persistence/statement.h"
#include "store/data_manager.h"

namespace gexlo {

using namespace exchange_format;

namespace {

/// What is bound in one place of a statement. An absent text is NULL, any other absent value 0.
class Value {
public:
    template <typename Number>
    requires std::is_arithmetic_v<Number> Value(Number number) {
        if constexpr (std::is_floating_point_v<Number>) {
            value_ = static_cast<double>(number);
        } else {
            value_ = static_cast<sqlite3_int64>(number);
        }
    }
    Value(const std::string& text) : value_(&text) {}
    Value(const Attribute<std::string>& text) : value_(text.isSet() ? &text.get() : nullptr) {}
    Value(const Attribute<NSDate>& date) : value_(date.get().timeIntervalSince1970()) {}
    template <typename Number>
    requires std::is_arithmetic_v<Number> Value(const Attribute<Number>& number)
        : Value(number.get()) {}

    std::size_t textSize() const {
        const auto* text = std::get_if<const std::string*>(&value_);
        return text && *text ? (*text)->size() : 0;
    }
    void bind(sqlite3_stmt* statement, int place) const {
        if (const auto* number = std::get_if<sqlite3_int64>(&value_)) {
            sqlite3_bind_int64(statement, place, *number);
        } else if (const auto* real = std::get_if<double>(&value_)) {
            sqlite3_bind_double(statement, place, *real);
        } else if (const std::string* text = std::get<const std::string*>(value_)) {
            sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()),
                              SQLITE_STATIC);
        } else {
            sqlite3_bind_null(statement, place);
        }
    }

private:
    std::variant<sqlite3_int64, double, const std::string*> value_;  // the text lasts longer
};

template <typename Object, typename Key>
std::vector<Object*> sortedBy(Key Object::*key, const ToMany<Object>& objects) {
    std::vector<Object*> sorted = objects.allObjects();
    std::stable_sort(sorted.begin(), sorted.end(), [key](const Object* left, const Object* right) {
        return (left->*key).get() < (right->*key).get();
    });
    return sorted;
}

template <typename Item>
std::vector<Item*> byGenDate(const ToMany<Item>& items) {
    return sortedBy(static_cast<Attribute<NSDate> Item::*>(&Item::genDate), items);
}

void removeFile(const NSURL& path) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

class Writer {
public:
    explicit Writer(const NSURL& path) {
        sqlite3* database = nullptr;
        isOpen_ = sqlite3_open(path.c_str(), &database) == SQLITE_OK;
        database_.reset(database);
        // The file is made anew each time: nothing in it is worth surviving a power cut.
        execute(database_.get(), "PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY");
    }

    void begin() { execute(database_.get(), "BEGIN"); }
    bool commit() { return execute(database_.get(), "COMMIT") == SQLITE_OK; }

    /// As far as it comes; whether what it leaves can be sent.
    bool write(const GXTimetableData& timetable, ExportError& error) {
        if (!isOpen_) {
            error = ExportError::cannotOpen;
            return false;
        }
        for (const char* statement : kCreateStatements) {
            if (execute(database_.get(), statement) == SQLITE_OK) continue;
            logDatabaseError();
            error = ExportError::cannotCreate;
            return false;
        }
        if (insertDataInfo() == Insert::failed) {
            logDatabaseError();
            error = ExportError::cannotWrite;
            return false;
        }
        if (insertTimetable(timetable) == Insert::failed) {
            error = ExportError::cannotWrite;
            // Stays open, unlike above: the next export removes the file from under it.
            static_cast<void>(database_.release());
            return false;
        }
        writeClasshours(timetable);
        writeLessons(timetable);
        writeItems(kInsertHomework, byGenDate(timetable.homework), kNoOwner, kTimetableId);
        writeItems(kInsertExam, byGenDate(timetable.exam), kNoOwner, kTimetableId);
        if (hasFailed_ || !bounds_.areKept()) error = ExportError::cannotWrite;
        return bounds_.areKept();
    }

private:
    /// A row whose statement cannot be prepared is passed over.
    enum class Insert { done, failed, unprepared };

    Insert insert(const char* sql, std::initializer_list<Value> values) {
        bounds_.takeRows(1);
        for (const Value& value : values)
            bounds_.takeText(value.textSize());
        if (!bounds_.areKept()) return Insert::failed;
        sqlite3_stmt* statement = statements_.statement(database_.get(), sql);
        if (!statement) return Insert::unprepared;
        int place = 0;
        for (const Value& value : values)
            value.bind(statement, ++place);
        const int result = sqlite3_step(statement);
        sqlite3_reset(statement);
        return result == SQLITE_DONE ? Insert::done : Insert::failed;
    }

    /// The same, for a row without which the file goes out all the same.
    void insertOrNote(const char* sql, std::initializer_list<Value> values) {
        if (insert(sql, values) == Insert::failed) hasFailed_ = true;
    }

    Insert insertDataInfo() {
        const DeviceFacts& facts = Device::current().facts();
        const std::string platform = kPlatform;
        return insert(kInsertDataInfo, {kDataVersion, kStoreVersion, facts.bundleVersion,
                                        kLeastDataVersion, kLeastStoreVersion, platform,
                                        facts.osVersion, NSDate::date().timeIntervalSince1970()});
    }

    Insert insertTimetable(const GXTimetableData& timetable) {
        constexpr int noTitle = 0;
        return insert(kInsertTimetable,
                      {kTimetableId, timetable.name, timetable.firstDay, timetable.lastDay,
                       timetable.firstPeriod, timetable.lastPeriod, timetable.useHalfPeriods,
                       timetable.daysToNumbers, timetable.numWeeks, timetable.daysOnLeft,
                       timetable.showClasstimes, timetable.useSameClasshours, timetable.textSize,
                       noTitle, noTitle, timetable.useAbsenceCounting});
    }

    void writeClasshours(const GXTimetableData& timetable) {
        for (const GXClasstimeData* row : timetable.classtimes) {
            insertOrNote(kInsertClasshour,
                         {row->name, row->shortName, row->week, kEveryDay, row->period,
                          row->beginHour, row->beginMin, row->endHour, row->endMin, kTimetableId});
        }
    }

    void writeLessons(const GXTimetableData& timetable) {
        int id = 0;
        for (const GXLessonData* lesson : sortedBy(&GXLessonData::id, timetable.lessons)) {
            bounds_.takeLesson();
            bounds_.takeRows(lesson->absenceCount.get());
            bounds_.takeRows(lesson->latenessCount.get());
            const Insert inserted = insert(
                kInsertLesson,
                {id, lesson->name, lesson->room1, lesson->room2, lesson->room3, lesson->color,
                 lesson->rgbRed, lesson->rgbGreen, lesson->rgbBlue, lesson->colorAlpha,
                 lesson->fontColor, lesson->absenceCount, lesson->latenessCount, kTimetableId});
            // One that cannot be written goes with all that hangs under it, and unnoted.
            if (inserted == Insert::done) writeDependents(*lesson, id);
            ++id;
        }
    }

    void writeDependents(const GXLessonData& lesson, int id) {
        // One without a teacher has a row all the same.
        static const GXProfessorData nobody;
        const GXProfessorData& professor = lesson.professor ? *lesson.professor.get() : nobody;
        insertOrNote(kInsertProfessor,
                     {professor.name, professor.room, professor.phone, professor.cellphone, id});
        for (const GXDayNPeriodData* placement : lesson.times) {
            insertOrNote(kInsertClasses,
                         {placement->week, placement->day, placement->period, placement->room, id});
        }
        for (const GXMemoData* memo : lesson.memo)
            insertOrNote(kInsertMemo, {memo->title, memo->content, id, kNoOwner});
        writeItems(kInsertHomework, byGenDate(lesson.homework), id, kNoOwner);
        writeItems(kInsertExam, byGenDate(lesson.exam), id, kNoOwner);
    }

    template <typename Item>
    void writeItems(const char* sql, const std::vector<Item*>& items, int lesson, int timetable) {
        for (const Item* item : items) {
            insertOrNote(sql, {item->title, item->content, item->date, item->repeat, item->complete,
                               lesson, timetable});
        }
    }

    void logDatabaseError() const { NSLog("%s", sqlite3_errmsg(database_.get())); }

    Database database_;
    StatementCache statements_;
    ExchangeBounds bounds_;
    bool isOpen_ = false;
    bool hasFailed_ = false;
};

}  // namespace

std::string exportMessage(ExportError error) {
    return stringWithFormat("Failed to generate data file (%d)", static_cast<int>(error));
}

bool writeExchangeFile(const GXTimetableData& timetable, const NSURL& path, ExportError& error) {
    removeFile(path);
    {
        Writer writer(path);
        writer.begin();
        if (!writer.write(timetable, error)) return false;
        if (writer.commit()) return true;
    }
    // There is no room for all of it. Row by row, what there is room for goes out.
    removeFile(path);
    error = ExportError::unknown;
    return Writer(path).write(timetable, error);
}

}  // namespace gexlo
