// An exchange file that some other program wrote.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

#include "exchange/exchange_format.h"
#include "platform/persistence/statement.h"

namespace gexlo::test {

inline Database openDatabase(const std::filesystem::path& path) {
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    return Database(database);
}

inline void change(const std::filesystem::path& path, const std::string& sql) {
    const Database database = openDatabase(path);
    EXPECT_EQ(execute(database.get(), sql), SQLITE_OK) << sqlite3_errmsg(database.get()) << sql;
}

/// A whole file with one subject, on which the statements were run.
inline void writeExchangeFile(const std::filesystem::path& path, const std::string& changes = "") {
    std::string sql = "PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF; BEGIN;";
    for (const char* statement : exchange_format::kCreateStatements)
        sql += std::string(statement) + ";";
    sql +=
        "INSERT INTO data_info VALUES (2.0,4.0,'47',1.0,3.3,'iPhone','15.0',1e9);"
        "INSERT INTO timetable VALUES (0,'Term',1,5,1,9,0,0,1,0,1,1,10,0,0,0);"
        "INSERT INTO lesson VALUES (0,'Maths','B1','','','gold',1,2,3,1.0,'white',0,0,0);"
        "INSERT INTO classes VALUES (1,0,1,2.0,'B1',0);"
        "INSERT INTO homework VALUES (1,'Essay','',1e9,0,0,0,-1);";
    change(path, sql + "COMMIT;" + changes);
}

/// Every row of the tables, as text; sorted, since their order says nothing.
inline std::vector<std::string> rowsOf(const std::filesystem::path& path,
                                       const std::vector<const char*>& queries) {
    const Database database = openDatabase(path);
    std::vector<std::string> rows;
    for (const char* query : queries) {
        const Statement statement = prepare(database.get(), query);
        EXPECT_TRUE(statement) << query;
        while (statement && sqlite3_step(statement.get()) == SQLITE_ROW) {
            std::string row = query;
            for (int column = 0; column < sqlite3_column_count(statement.get()); ++column) {
                const unsigned char* text = sqlite3_column_text(statement.get(), column);
                row += text ? "|" + std::string(reinterpret_cast<const char*>(text)) : "|NULL";
            }
            rows.push_back(std::move(row));
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

}  // namespace gexlo::test
