// Changes that are not saved yet, laid over the rows of a query: typed texts, appended and deleted
// rows.
#pragma once

#include <map>
#include <unordered_map>

#include "apps/host/odbc/Record.h"

namespace veygrid {

// Rows and columns are 1-based positions of the sheet: the query's rows without the deleted ones,
// then the appended ones. Reading passes OdbcError of the source on.
class PendingRows {
  public:
    // By column.
    using Texts = std::map<int, std::u16string>;

    // The source must live longer.
    explicit PendingRows(RecordSource& source) : m_source(source) {}

    const std::vector<ColumnInfo>& Columns() const { return m_source.Columns(); }
    int ColCount() const { return static_cast<int>(Columns().size()); }
    long RowCount() const;
    bool Has(long row, int col) const;

    // What the sheet shows: the pending text, else the database's. No value outside.
    CellValue Shown(long row, int col);

    // A place outside changes nothing and gives false. The record is kept as it reads at the first
    // change of its row.
    bool SetPending(long row, int col, std::u16string text);
    // The new last row.
    long AppendRow();
    bool DeleteRow(long row);
    void ClearPending();
    bool HasPending() const;

    bool IsAppended(long row) const { return row > LiveRows() && row <= RowCount(); }
    // As it was read; all NULL for an appended row. The row must exist. Good until the next call.
    const Record& SourceRecord(long row);
    // Null when nothing is pending there.
    const Texts* PendingTexts(long row) const;
    // The sheet's rows with pending texts, and all appended ones, in ascending order.
    std::vector<long> ChangedRows() const;
    // The records of deleted rows, as they were read.
    const std::map<long, Record>& Deleted() const { return m_deleted; }

  private:
    struct Change {
        Record original;
        Texts texts;
    };

    long LiveRows() const;
    // The source's row of a live row of the sheet, and back.
    long SourceRow(long row) const;
    long SheetRow(long sourceRow) const;
    std::size_t AppendedIndex(long row) const;

    RecordSource& m_source;
    std::unordered_map<long, Change> m_changes;  // by the source's row
    std::map<long, Record> m_deleted;            // by the source's row
    std::vector<long> m_deletedRows;             // the same rows, ascending
    std::vector<Texts> m_appended;
    Record m_empty;
};

}  // namespace veygrid
