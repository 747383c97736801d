// Where the changes of a query's rows are written.
#pragma once

#include "apps/host/odbc/Record.h"
#include "apps/host/odbc/SqlTokens.h"

namespace veygrid {

struct UpdateTarget {
    Database database = Database::SQLite;
    std::u16string table;                    // as the statement writes it; empty when read only
    std::vector<ColumnInfo> columns;         // of the query, with their declared types
    std::vector<std::u16string> primaryKey;  // of the table
};

}  // namespace veygrid
