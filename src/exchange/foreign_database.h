// An SQLite file from a stranger: only ever read, and no further than a person's file can reach.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>

#include "exchange/statement_cache.h"
#include "platform/foundation/file_manager.h"
#include "platform/foundation/types.h"

namespace gexlo {

class ForeignDatabase;

/// The row under the cursor. Its values are taken one by one, in the order of the columns;
/// one outside its range reads 0 and puts the database out of bounds.
class ForeignRow {
public:
    ForeignRow(ForeignDatabase& database, sqlite3_stmt* statement)
        : database_(database), statement_(statement) {}

    /// Whether the value that is next is absent.
    bool isNull() const;
    void skip() { ++column_; }
    /// Absent it is "". Well-formed UTF-8, and ends before a zero.
    std::string text();
    bool flag();
    /// An identifier: whatever it is, it only points at others.
    NSInteger identifier();
    NSInteger integer(NSInteger least, NSInteger greatest);
    double real(double limit);

private:
    ForeignDatabase& database_;
    sqlite3_stmt* statement_;
    int column_ = 0;
};

class ForeignDatabase {
public:
    /// Takes no lock, reads no journal, and trusts neither views nor triggers nor virtual tables.
    explicit ForeignDatabase(const NSURL& path);
    ForeignDatabase(const ForeignDatabase&) = delete;
    ForeignDatabase& operator=(const ForeignDatabase&) = delete;

    bool isOpen() const { return database_ != nullptr; }
    /// Whether all that was read until now is no more than a person's file can hold. Once it
    /// is not, there are no more rows.
    bool isWithinBounds() const { return isWithinBounds_; }
    void leaveBounds() { isWithinBounds_ = false; }
    /// Counts rows, or what becomes as many, against the bounds.
    void takeRows(NSInteger count);
    void takeText(std::size_t bytes);

    /// Runs a query; false when it cannot be prepared. Rows end where the file is damaged.
    bool forEachRow(const char* sql, std::initializer_list<NSInteger> bound,
                    const std::function<void(ForeignRow&)>& read);

private:
    static int stepsTaken(void* self);

    bool isWithinBounds_ = true;
    NSInteger rowsLeft_;
    std::size_t textLeft_;
    int stepsLeft_;
    Database database_;
    StatementCache statements_;  // ends before the database
};

}  // namespace gexlo
