// Statements that are run for many rows, each prepared once.
#pragma once

#include <map>

#include "platform/persistence/statement.h"

namespace gexlo {

class StatementCache {
public:
    /// Ready to be bound and stepped; null when the text does not compile. Lent until the next
    /// call with the same text, which must be a constant: its place tells it from others.
    sqlite3_stmt* statement(sqlite3* database, const char* sql) {
        const auto [found, isNew] = statements_.try_emplace(sql);
        if (isNew) found->second = prepare(database, sql);
        if (found->second) sqlite3_reset(found->second.get());
        return found->second.get();
    }

private:
    std::map<const char*, Statement> statements_;
};

}  // namespace gexlo
