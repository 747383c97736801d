// The data-access object that a host hands to the control, over an ODBC connection.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>

#include "apps/host/odbc/Connection.h"
#include "binding/DataAccess.h"

namespace veygrid {

// ExecuteSql begins a transaction when none is open; it stays open until CommitTrans or
// RollbackTrans. A failure of any operation is kept in LastError; `Connected` becomes 0 when the
// connection is lost.
class DataAccessObject final : public DataAccess, private ResultCellMap {
  public:
    // What FetchRows fetches where it is asked for -1 rows.
    static constexpr std::int16_t RowsOfBatch = 100;

    // Without a connection every operation fails until Use gives it one.
    DataAccessObject() { ResultCells = this; }
    explicit DataAccessObject(std::shared_ptr<Connection> connection) : DataAccessObject() {
        Use(std::move(connection));
    }
    DataAccessObject(const DataAccessObject&) = delete;
    DataAccessObject& operator=(const DataAccessObject&) = delete;
    ~DataAccessObject() = default;

    // Works on another connection from now on; what was fetched before is gone.
    void Use(std::shared_ptr<Connection> connection);

    // Runs the query whose rows FetchRows gives, in code page 936 and with date marks. False on a
    // failure.
    bool Open(std::string_view query);

    std::int32_t FetchRows(std::int16_t count) override;
    void RollbackTrans() override;
    void CommitTrans() override;
    std::int32_t ExecuteSql(const char* statement) override;

    // Of the latest operation; null when it went well.
    const OdbcError* LastError() const { return m_error ? &*m_error : nullptr; }

  private:
    const char* Find(std::uint32_t key) const override;
    std::u16string Converted(std::string_view statement) const;
    template <typename Work>
    bool Guarded(Work work);

    std::shared_ptr<Connection> m_connection;
    std::optional<RowReader> m_reader;
    std::vector<ColumnInfo> m_columns;
    std::unordered_map<std::uint32_t, std::string> m_cells;
    std::optional<OdbcError> m_error;
};

}  // namespace veygrid
