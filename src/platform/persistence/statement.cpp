#include "platform/persistence/statement.h"

#include <sqlite3.h>

namespace gexlo {

void DatabaseCloser::operator()(sqlite3* database) const {
    sqlite3_close(database);
}

void StatementFinalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement prepare(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    return Statement(statement);
}

sqlite3_stmt* StatementCache::statement(sqlite3* database, const char* sql,
                                        const std::function<std::string()>& text) {
    const auto [found, isNew] = statements_.try_emplace(sql);
    if (isNew) found->second = prepare(database, text ? text() : sql);
    return found->second.get();
}

int execute(sqlite3* database, const std::string& sql) {
    return sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
}

std::int64_t singleNumber(sqlite3* database, std::string_view sql) {
    const Statement statement = prepare(database, sql);
    const bool row = statement && sqlite3_step(statement.get()) == SQLITE_ROW;
    return row ? sqlite3_column_int64(statement.get(), 0) : 0;
}

NSError databaseError(sqlite3* database) {
    return {kSQLiteErrorDomain,
            sqlite3_extended_errcode(database),
            {{"NSSQLiteErrorDescription", sqlite3_errmsg(database)}}};
}

std::string sqlName(std::string_view name) {
    std::string result = "\"";
    for (const char c : name)
        result.append(c == '"' ? 2 : 1, c);
    return result + "\"";
}

}  // namespace gexlo
