// The rows of the statement in `DataSource`.
#include "apps/host/odbc/QueryRows.h"

#include <algorithm>

#include "apps/host/odbc/SaveTexts.h"
#include "apps/host/odbc/SnapshotReader.h"
#include "apps/host/odbc/StatementText.h"

namespace veygrid {
namespace {

const ColumnInfo* FindBase(const std::vector<ColumnInfo>& columns, std::u16string_view base,
                           Database database) {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const ColumnInfo& column) {
        return database == Database::SQLite ? SameName(column.base, base) : column.base == base;
    });
    return found == columns.end() ? nullptr : &*found;
}

}  // namespace

QueryRows::QueryRows(std::shared_ptr<Connection> connection, std::u16string_view statement)
    : m_connection(std::move(connection)) {
    const std::u16string text = WithoutDateMarks(statement, m_connection->Kind());
    m_form = FormOf(text, m_connection->Kind());
    if (!m_form.query) {
        if (!m_form.body.empty()) {
            m_connection->Execute({m_form.body, {}});
        }
        return;
    }
    if (m_form.several) {
        throw OdbcError(u"42000", std::u16string(SaveTexts::SeveralStatements), false);
    }
    m_columns = m_connection->Describe(m_form.body);
    ReadCatalogue();
    MakeReader();
    m_windows = std::make_unique<RowWindows>(*m_reader);
}

// Which of the columns are the table's own, and its primary key. A statement over anything but one
// table stays read only.
void QueryRows::ReadCatalogue() {
    m_target.database = m_connection->Kind();
    const auto owned = std::find_if(m_columns.begin(), m_columns.end(),
                                    [](const ColumnInfo& column) { return !column.table.empty(); });
    if (m_form.oneTable && owned != m_columns.end()) {
        m_tableColumns = TableColumns(owned->table);
        m_target.primaryKey = m_connection->PrimaryKey(owned->schema, owned->table);
        m_target.table = m_form.table;
    }
    std::vector<std::u16string> names;
    for (const ColumnInfo& column : m_columns) {
        names.push_back(column.name);
    }
    const std::vector<std::u16string> bases = BaseColumns(m_form, names);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const ColumnInfo* const base = m_columns[i].table.empty()
                                           ? nullptr
                                           : FindBase(m_tableColumns, bases[i], m_target.database);
        if (base != nullptr) {
            m_columns[i].base = base->base;
            m_columns[i].declaredType = base->declaredType;
        }
    }
    m_target.columns = m_columns;
}

// All columns of the statement's table, with their names and types. SQLite wants the table's own
// name, PostgreSQL takes it as the statement writes it.
std::vector<ColumnInfo> QueryRows::TableColumns(const std::u16string& table) const {
    const bool sqlite = m_connection->Kind() == Database::SQLite;
    const BoundStatement query =
        sqlite ? BoundStatement{u"SELECT name, type FROM pragma_table_info(?)", {table}}
               : BoundStatement{
                     u"SELECT attname, format_type(atttypid, -1) FROM pg_attribute WHERE attrelid"
                     u" = CAST(CAST(? AS TEXT) AS regclass) AND attnum > 0 AND NOT attisdropped",
                     {m_form.table}};
    std::vector<ColumnInfo> found;
    for (RowReader rows = m_connection->Query(query); rows.Next();) {
        ColumnInfo column;
        column.base = rows.Text(1).value_or(u"");
        column.declaredType = rows.Text(2).value_or(u"");
        found.push_back(std::move(column));
    }
    return found;
}

std::vector<KeyColumn> QueryRows::WindowKeys() const {
    if (m_target.table.empty() || m_form.ordered || m_form.limited) {
        return {};
    }
    if (m_target.database == Database::SQLite) {
        return {{u"_rowid_", u"CAST(? AS INTEGER)"}};
    }
    std::vector<KeyColumn> keys;
    for (const std::u16string& name : m_target.primaryKey) {
        const ColumnInfo* const column = FindBase(m_tableColumns, name, m_target.database);
        if (column == nullptr) {
            return {};
        }
        keys.push_back({QuotedName(name), ValueMark(*column, m_target.database)});
    }
    return keys;
}

void QueryRows::MakeReader() {
    const std::vector<KeyColumn> keys = WindowKeys();
    if (!keys.empty()) {
        try {
            m_reader = std::make_unique<KeyedReader>(*m_connection, m_form, m_columns, keys);
            m_rows = m_reader->CountRows();
            m_keyed = true;
            return;
        } catch (const OdbcError& error) {
            // A table without row numbers, or a list that lets no key stand beside it.
            if (error.ConnectionLost()) {
                throw;
            }
        }
    }
    m_reader = std::make_unique<SnapshotReader>(*m_connection, m_form, m_columns);
    m_rows = m_reader->CountRows();
}

void QueryRows::Reload() {
    if (m_reader != nullptr) {
        m_windows->Clear();
        m_rows = m_reader->CountRows();
    }
}

}  // namespace veygrid
