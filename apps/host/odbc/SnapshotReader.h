// Windows of rows of any query: its result is kept by the database, once, as it was at that moment.
#pragma once

#include "apps/host/odbc/Connection.h"
#include "apps/host/odbc/RowWindows.h"
#include "apps/host/odbc/SelectForm.h"

namespace veygrid {

// SQLite keeps the result in a temporary table, whose row numbers are those of the query's rows;
// PostgreSQL in a cursor that outlives the transaction. Either lies on disk when it is large.
class SnapshotReader final : public WindowReader {
  public:
    // The connection must live longer.
    SnapshotReader(Connection& connection, SelectForm form, const std::vector<ColumnInfo>& columns);
    ~SnapshotReader();

    // Runs the query anew. PostgreSQL refuses it inside of a transaction.
    long CountRows() override;
    std::vector<Record> Read(long first, long count) override;

  private:
    void Drop();
    void Run(const std::u16string& text) { m_connection.Execute({text, {}}); }
    RowReader Rows(long first, long count);

    Connection& m_connection;
    SelectForm m_form;
    std::vector<ColumnInfo> m_columns;
    std::u16string m_name;
    bool m_kept = false;
};

}  // namespace veygrid
