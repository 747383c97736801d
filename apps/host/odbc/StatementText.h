// The texts of statements: date marks of a key clause, names, and what saving writes.
#pragma once

#include "apps/host/odbc/SelectForm.h"
#include "apps/host/odbc/SqlRunner.h"

namespace veygrid {

// Writes each "%{value}%" outside of literals and comments as a literal that the database takes for
// a date, with year, month and day in the order and width of 2003-08-14. A mark without its end
// stays.
std::u16string WithoutDateMarks(std::u16string_view statement, Database database);

// In double quotes, those inside doubled.
std::u16string QuotedName(std::u16string_view name);

std::u16string CountingText(const SelectForm& form);

// A cell of the table for a statement; the column must have its declared type.
struct ColumnValue {
    const ColumnInfo* column;
    CellView value;
};

// The value's mark in a statement: "?" in what turns a text into the column's type.
std::u16string ValueMark(const ColumnInfo& column, Database database);
// An emptied cell of such a column is an empty text; of any other it is NULL.
bool HoldsText(const ColumnInfo& column, Database database);

// The conditions that hold for the record as it was read: the keys so that an index serves, the
// others so that exactly the text that was read counts.
struct RecordConditions {
    const std::vector<ColumnValue>& keys;
    const std::vector<ColumnValue>& others;
};

// Each writes over what the statement was.
void MakeUpdate(BoundStatement& made, std::u16string_view table,
                const std::vector<ColumnValue>& changes, const RecordConditions& conditions,
                Database database);
void MakeInsert(BoundStatement& made, std::u16string_view table,
                const std::vector<ColumnValue>& values, Database database);
void MakeDelete(BoundStatement& made, std::u16string_view table, const RecordConditions& conditions,
                Database database);

}  // namespace veygrid
