// The sheet and the data-access object behind its query: rows fetched in batches, records deleted.
#include "binding/QueryBinding.h"

#include <string>
#include <string_view>

#include "binding/KeyClause.h"
#include "binding/SqlText.h"
#include "valuetext/Fields.h"

namespace veygrid {

namespace {

// Row and column within the batch.
std::uint32_t BatchKey(std::int32_t row, std::int32_t col) {
    return static_cast<std::uint32_t>(row) << 16U | static_cast<std::uint32_t>(col);
}

}  // namespace

bool QueryBinding::RunsQueryAtCreation() const {
    return m_store.Switches.RunQueryAfterSerialize && !m_store.Properties.DataSource.empty() &&
           DataAccess != nullptr && DataAccess->Connected != 0;
}

bool QueryBinding::AppendNextRecords() {
    const std::int32_t rows = DataAccess->FetchRows(FetchCount);
    if (rows <= 0) {
        RowsComplete = true;
        return false;
    }
    const std::int32_t before = m_store.Properties.MaxRow;
    WriteBatch(before, rows);
    m_store.Properties.MaxRow = WrapAdd(before, rows);
    RowsComplete = false;
    return true;
}

// The statement is counted anew for each column: each cell fires an event, whose handler may change
// it.
void QueryBinding::WriteBatch(std::int32_t before, std::int32_t rows) {
    const ResultCellMap* const cells = DataAccess->ResultCells;
    if (cells == nullptr) {
        return;
    }
    for (std::int32_t col = 1; col <= CountSelectColumns(m_store.Properties.DataSource); ++col) {
        for (std::int64_t row = 1; row <= rows; ++row) {
            const auto inBatch = static_cast<std::int32_t>(row);
            if (const char* const text = cells->Find(BatchKey(inBatch, col))) {
                m_store.SetCellText(WrapAdd(before, inBatch), col, text);
            }
        }
    }
}

// Tables are taken as the list has them, up to the first that is empty.
RecordDeletion QueryBinding::DeleteBoundRecord() {
    const std::string tables(SqlFromList(m_store.Properties.DataSource));
    FieldWalk fields(tables, ',');
    while (fields.Next() && !fields.Field().empty()) {
        const RecordDeletion outcome = DeleteFrom(fields.Field());
        if (outcome != RecordDeletion::Deleted) {
            return outcome;
        }
    }
    if (m_store.Switches.AutoCommit && DataAccess != nullptr) {
        DataAccess->CommitTrans();
    }
    return RecordDeletion::Deleted;
}

RecordDeletion QueryBinding::DeleteFrom(std::string_view table) {
    const std::string record = BuildKeyClause(m_store, table, m_store.ActiveRow);
    if (record.empty()) {
        return RecordDeletion::MissingKey;
    }
    if (DataAccess == nullptr) {
        return RecordDeletion::Failed;
    }
    const std::string statement =
        std::string("DELETE FROM ").append(table).append(" WHERE ").append(record);
    if (DataAccess->ExecuteSql(statement.c_str()) != 0) {
        return RecordDeletion::Deleted;
    }
    if (m_store.Switches.AutoCommit) {
        DataAccess->RollbackTrans();
    }
    return RecordDeletion::Failed;
}

}  // namespace veygrid
