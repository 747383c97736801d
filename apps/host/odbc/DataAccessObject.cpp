// The data-access object that a host hands to the control.
#include "apps/host/odbc/DataAccessObject.h"

#include <algorithm>

#include "apps/host/odbc/KeyedReader.h"
#include "apps/host/odbc/StatementText.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

void DataAccessObject::Use(std::shared_ptr<Connection> connection) {
    m_reader.reset();
    m_cells.clear();
    m_error.reset();
    m_connection = std::move(connection);
    Connected = 1;
}

template <typename Work>
bool DataAccessObject::Guarded(Work work) {
    m_error.reset();
    if (m_connection == nullptr) {
        return false;
    }
    try {
        work();
        return true;
    } catch (const OdbcError& error) {
        m_error = error;
        Connected = error.ConnectionLost() ? 0 : Connected;
        return false;
    }
}

std::u16string DataAccessObject::Converted(std::string_view statement) const {
    return WithoutDateMarks(Utf16FromCodePage936(statement), m_connection->Kind());
}

bool DataAccessObject::Open(std::string_view query) {
    m_reader.reset();
    m_cells.clear();
    return Guarded([&] {
        const std::u16string text = Converted(query);
        m_columns = m_connection->Describe(text);
        m_reader.emplace(m_connection->Query({text, {}}));
    });
}

std::int32_t DataAccessObject::FetchRows(std::int16_t count) {
    m_cells.clear();
    std::uint32_t rows = 0;
    const auto wanted = static_cast<std::uint32_t>(count < 0 ? RowsOfBatch : count);
    Guarded([&] {
        while (rows < wanted && m_reader && m_reader->Next()) {
            ++rows;
            std::uint32_t col = 0;
            for (const CellValue& cell : ReadRecord(*m_reader, m_columns, 1)) {
                m_cells[rows << 16 | ++col] = CodePage936FromUtf16(cell.value_or(u""));
            }
        }
        if (rows < wanted) {
            m_reader.reset();
        }
    });
    return m_error ? 0 : static_cast<std::int32_t>(rows);
}

void DataAccessObject::RollbackTrans() {
    Guarded([&] { m_connection->Rollback(); });
}

void DataAccessObject::CommitTrans() {
    Guarded([&] { m_connection->Commit(); });
}

std::int32_t DataAccessObject::ExecuteSql(const char* statement) {
    return Guarded([&] {
        if (!m_connection->InTransaction()) {
            m_connection->Begin();
        }
        m_connection->Execute({Converted(statement == nullptr ? "" : statement), {}});
    });
}

const char* DataAccessObject::Find(std::uint32_t key) const {
    const auto found = m_cells.find(key);
    return found == m_cells.end() ? nullptr : found->second.c_str();
}

}  // namespace veygrid
