// Windows of rows of one table in the order of its key: whatever is near a row read before costs
// nothing to find.
#pragma once

#include <map>

#include "apps/host/odbc/Connection.h"
#include "apps/host/odbc/RowWindows.h"
#include "apps/host/odbc/SelectForm.h"

namespace veygrid {

struct KeyColumn {
    std::u16string name;  // as a statement writes it
    std::u16string mark;  // "?" in what turns a text into the column's type
};

class KeyedReader final : public WindowReader {
  public:
    // So many places of rows are remembered at most.
    static constexpr std::size_t PlaceLimit = 1024;

    // Throws OdbcError when the query cannot be read so. The connection must live longer.
    KeyedReader(Connection& connection, SelectForm form, const std::vector<ColumnInfo>& columns,
                std::vector<KeyColumn> keys);

    long CountRows() override;
    std::vector<Record> Read(long first, long count) override;

  private:
    using Key = std::vector<CellValue>;
    // Where to begin: beside a row whose key is known, or at an end, so many rows away from it.
    struct Start {
        const Key* key;
        long skip;
    };

    Start From(long first) const;
    Start Backwards(long behind) const;
    BoundStatement Statement(const Start& start, bool backwards, long count) const;
    void Remember(long row, Key key);

    Connection& m_connection;
    SelectForm m_form;
    std::vector<ColumnInfo> m_columns;
    std::vector<KeyColumn> m_keys;
    std::u16string m_rowsText;   // the query with its keys in front
    std::u16string m_keyNames;   // "k1, k2"
    std::u16string m_backwards;  // "k1 DESC, k2 DESC"
    std::u16string m_keyMarks;
    long m_rows = 0;
    std::map<long, Key> m_places;
};

// One record of the columns, of which the first is the reader's column `from`.
Record ReadRecord(RowReader& rows, const std::vector<ColumnInfo>& columns, int from);

// The number that a count gave, as a number of rows of the sheet.
long RowsOf(const CellValue& count);

// A number in a statement.
std::u16string DecimalText(long number);

}  // namespace veygrid
