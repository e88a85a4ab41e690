// An SQLite file from a stranger: only ever read, and no further than a person's file can reach.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "exchange/exchange_bounds.h"
#include "platform/foundation/file_manager.h"
#include "platform/foundation/types.h"
#include "platform/persistence/statement.h"

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
    int nextNumber();

    ForeignDatabase& database_;
    sqlite3_stmt* statement_;
    int column_ = 0;
};

class ForeignDatabase {
public:
    /// Reads the file once, and no journal. Neither views nor triggers nor virtual tables nor
    /// columns that are computed have an effect: a table that needs one cannot be queried.
    explicit ForeignDatabase(const NSURL& path);
    ForeignDatabase(const ForeignDatabase&) = delete;
    ForeignDatabase& operator=(const ForeignDatabase&) = delete;

    bool isOpen() const { return database_ != nullptr; }
    /// Whether all that was read until now is no more than a person's file can hold. Once it
    /// is not, there are no more rows.
    bool isWithinBounds() const { return bounds_.areKept(); }
    ExchangeBounds& bounds() { return bounds_; }

    /// Runs a query, whose text must be a constant; false when it cannot be prepared. Rows end
    /// where the file is damaged.
    bool forEachRow(const char* sql, std::initializer_list<NSInteger> bound,
                    const std::function<void(ForeignRow&)>& read);

private:
    static int stepsTaken(void* self);
    void load();
    bool isPlain(const char* table);
    void lookOver(const char* table, const std::string& key);
    void readRows(sqlite3_stmt* statement, const std::function<void(ForeignRow&)>& read);

    ExchangeBounds bounds_;
    NSInteger rowsUnseen_ = ExchangeBounds::kMostRows;  // that the file may hold
    int stepsLeft_;
    std::string file_;  // lasts longer than the database that reads it
    Database database_;
    std::set<std::string_view> plainTables_;

    /// By table, its rows by their owner, so that no subject has to pass those of others. What
    /// equals no integer has none and is never asked for.
    using RowsByOwner = std::unordered_map<NSInteger, std::vector<NSInteger>>;
    std::map<std::string_view, RowsByOwner> rowsByOwner_;
    StatementCache statements_;
};

}  // namespace gexlo
