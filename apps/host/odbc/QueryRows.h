// The rows of the statement in `DataSource`, as they stand in the database.
#pragma once

#include <memory>

#include "apps/host/odbc/KeyedReader.h"
#include "apps/host/odbc/UpdateTarget.h"

namespace veygrid {

class QueryRows final : public RecordSource {
  public:
    // Runs the statement, whose date marks are converted. One that is no query is carried out, and
    // gives no columns and no rows. Throws OdbcError when the database refuses it.
    QueryRows(std::shared_ptr<Connection> connection, std::u16string_view statement);

    const std::vector<ColumnInfo>& Columns() const override { return m_columns; }
    long RowCount() const override { return m_rows; }
    const Record& At(long row) override { return m_windows->At(row, m_rows, m_columns.size()); }

    // Counts the rows anew and forgets what was read of them; a statement that is no query is not
    // carried out again.
    void Reload();

    const UpdateTarget& Target() const { return m_target; }
    const RowWindows* Windows() const { return m_windows.get(); }
    // Whether windows are found by the table's own key.
    bool Keyed() const { return m_keyed; }

  private:
    void ReadCatalogue();
    std::vector<ColumnInfo> TableColumns(const std::u16string& table) const;
    void MakeReader();
    std::vector<KeyColumn> WindowKeys() const;

    std::shared_ptr<Connection> m_connection;
    SelectForm m_form;
    std::vector<ColumnInfo> m_columns;
    std::vector<ColumnInfo> m_tableColumns;
    UpdateTarget m_target;
    long m_rows = 0;
    bool m_keyed = false;
    std::unique_ptr<WindowReader> m_reader;
    std::unique_ptr<RowWindows> m_windows;
};

}  // namespace veygrid
