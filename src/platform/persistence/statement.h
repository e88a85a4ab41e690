// SQLite's handles, owned.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/persistence/error.h"

// SQLite's own, so that its header stays with those who call it.
struct sqlite3;
struct sqlite3_stmt;

namespace gexlo {

struct DatabaseCloser {
    void operator()(sqlite3* database) const;
};
using Database = std::unique_ptr<sqlite3, DatabaseCloser>;

struct StatementFinalizer {
    void operator()(sqlite3_stmt* statement) const;
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

/// Null when the text does not compile; the database knows why.
Statement prepare(sqlite3* database, std::string_view sql);
/// Statements that are run for many rows, each prepared once. Ends before its database.
class StatementCache {
public:
    /// Null when the text does not compile. `sql` is a constant: its place tells it from others.
    /// Where there is a `text`, that is prepared in its stead.
    sqlite3_stmt* statement(sqlite3* database, const char* sql,
                            const std::function<std::string()>& text = {});

private:
    std::map<const char*, Statement> statements_;
};

/// Runs statements that give no rows; SQLite's result code.
int execute(sqlite3* database, const std::string& sql);
/// The one number that a query gives, 0 without a row.
std::int64_t singleNumber(sqlite3* database, std::string_view sql);
/// What the database says of its last failure.
NSError databaseError(sqlite3* database);
/// A name as SQLite takes it whatever it holds.
std::string sqlName(std::string_view name);

}  // namespace gexlo
