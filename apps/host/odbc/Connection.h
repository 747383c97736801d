// A connection to a database over ODBC, and the rows that its statements give.
#pragma once

#include <map>
#include <memory>

#include "apps/host/odbc/OdbcHandle.h"
#include "apps/host/odbc/SqlRunner.h"
#include "apps/host/odbc/SqlTokens.h"

namespace veygrid {

using OdbcStatement = OdbcHandle<SQL_HANDLE_STMT>;

// The rows of one statement, forward only. It must end before its connection does.
class RowReader {
  public:
    // The bound values and their lengths are kept, for a driver may look at them with each row.
    explicit RowReader(OdbcStatement statement, std::vector<CellValue> values = {},
                       std::vector<SQLLEN> lengths = {})
        : m_values(std::move(values)),
          m_lengths(std::move(lengths)),
          m_statement(std::move(statement)) {}

    // Goes to the next row; false behind the last.
    bool Next();
    // The text of a column, 1-based, of the present row; each once and from left to right.
    CellValue Text(int column);
    // The same of a binary column: BinaryMark, or no value for NULL.
    CellValue Binary(int column);

  private:
    std::vector<CellValue> m_values;
    std::vector<SQLLEN> m_lengths;
    OdbcStatement m_statement;
    std::u16string m_buffer;
};

// Each call throws OdbcError when the driver refuses it. A connection is used on one thread.
class Connection final : public SqlRunner {
  public:
    // "Driver=SQLite3;Database=C:\a.db", "Driver=PostgreSQL Unicode;Server=…" or "DSN=…". Options
    // of the driver that the string does not name are set as reading and saving want them.
    explicit Connection(std::u16string_view connectionString);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    Database Kind() const { return m_kind; }
    const std::u16string& ProductName() const { return m_productName; }
    // False once the database has gone.
    bool Alive() const;

    bool InTransaction() const override { return m_inTransaction; }
    void Begin() override;
    void Commit() override;
    void Rollback() override;
    // Statements are kept prepared until the transaction ends; outside of one each is prepared
    // anew.
    std::int64_t Execute(const BoundStatement& statement) override;

    // What a query's columns will be, without running it; none of a statement that is no query.
    std::vector<ColumnInfo> Describe(std::u16string_view query);
    RowReader Query(const BoundStatement& query);
    // The first cell of the first row; no value without a row.
    CellValue Single(std::u16string_view query);
    // Of the catalogue; the columns of a table's primary key, by SQLite in the order of the table.
    std::vector<std::u16string> PrimaryKey(const std::u16string& schema,
                                           const std::u16string& table);

  private:
    OdbcStatement NewStatement() const { return OdbcStatement(m_handle.Get()); }
    struct PreparedStatement {
        OdbcStatement statement;
        SQLSMALLINT columns = -1;  // of its result; not known before it has run
    };

    PreparedStatement& Prepared(const std::u16string& text);
    void EndTransaction(SQLSMALLINT how);
    void SetAutoCommit(bool on);
    // The same error, knowing whether the connection went.
    [[noreturn]] void Rethrow(const OdbcError& error) const;

    OdbcHandle<SQL_HANDLE_ENV> m_environment;
    OdbcHandle<SQL_HANDLE_DBC> m_handle;
    Database m_kind = Database::SQLite;
    std::u16string m_productName;
    bool m_inTransaction = false;
    std::map<std::u16string, PreparedStatement> m_prepared;
    std::vector<SQLLEN> m_lengths;
};

}  // namespace veygrid
