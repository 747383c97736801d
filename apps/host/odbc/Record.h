// One row of a query, and what is known of the query's columns.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// The text of a cell in UTF-16 as the driver gives it; without a value for NULL.
using CellValue = std::optional<std::u16string>;
using Record = std::vector<CellValue>;
// The same without owning it.
using CellView = std::optional<std::u16string_view>;

// Stands for the bytes of a binary cell, which are never read.
inline constexpr std::u16string_view BinaryMark = u"(二进制)";

struct ColumnInfo {
    std::u16string name;          // as the query names it; several columns may bear one name
    std::u16string table;         // the table that it comes from, in its own spelling; may be empty
    std::u16string schema;        // that table's; may be empty
    std::u16string base;          // the table's column, without quotes; empty for an expression
    std::u16string declaredType;  // the table's type for it; empty while it was not asked for
    bool binary = false;
};

// The rows of a query in their order, 1-based.
class RecordSource {
  public:
    virtual const std::vector<ColumnInfo>& Columns() const = 0;
    virtual long RowCount() const = 0;
    // The record is good until the next call; all its cells are NULL when the row is gone from the
    // database meanwhile. Throws OdbcError when it cannot be read.
    virtual const Record& At(long row) = 0;

  protected:
    ~RecordSource() = default;
};

}  // namespace veygrid
