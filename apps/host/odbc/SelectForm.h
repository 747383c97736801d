// What the outside of a statement tells: whether it is a query, of one table alone, and which of
// its columns are columns of that table.
#pragma once

#include "apps/host/odbc/SqlTokens.h"

namespace veygrid {

struct SelectItem {
    enum class Kind { Column, Star, Expression };

    Kind kind = Kind::Expression;
    std::u16string column;  // the name that it means, for a column alone
};

struct SelectForm {
    // The statement without the semicolons, blanks and comments around it.
    std::u16string body;
    bool query = false;
    // More than one statement.
    bool several = false;
    // "SELECT items FROM table [alias]" with none but WHERE, ORDER BY and LIMIT behind; only then
    // the rest is told.
    bool oneTable = false;
    std::u16string table;  // as it is written
    bool ordered = false;
    bool limited = false;
    std::size_t afterSelect = 0;  // in `body`
    std::size_t from = 0;         // where FROM begins in `body`
    std::vector<SelectItem> items;
};

SelectForm FormOf(std::u16string_view statement, Database database);

// The table's column behind each of the result's columns, whose names are given; empty where there
// is none or it cannot be told.
std::vector<std::u16string> BaseColumns(const SelectForm& form,
                                        const std::vector<std::u16string>& names);

}  // namespace veygrid
