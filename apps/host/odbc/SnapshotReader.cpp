// Windows of rows of any query.
#include "apps/host/odbc/SnapshotReader.h"

#include <atomic>

#include "apps/host/odbc/KeyedReader.h"

namespace veygrid {
namespace {

std::u16string NewName() {
    static std::atomic<long> made{0};
    return u"veygrid_rows_" + DecimalText(++made);
}

}  // namespace

SnapshotReader::SnapshotReader(Connection& connection, SelectForm form,
                               const std::vector<ColumnInfo>& columns)
    : m_connection(connection), m_form(std::move(form)), m_columns(columns), m_name(NewName()) {}

SnapshotReader::~SnapshotReader() {
    try {
        Drop();
    } catch (const OdbcError&) {
        // The connection has gone, and its temporary objects with it.
    }
}

void SnapshotReader::Drop() {
    if (m_kept) {
        m_kept = false;
        Run((m_connection.Kind() == Database::SQLite ? u"DROP TABLE temp." : u"CLOSE ") + m_name);
    }
}

long SnapshotReader::CountRows() {
    Drop();
    if (m_connection.Kind() == Database::SQLite) {
        Run(u"CREATE TEMP TABLE " + m_name + u" AS " + m_form.body);
        m_kept = true;
        return RowsOf(m_connection.Single(u"SELECT COUNT(*) FROM temp." + m_name));
    }
    Run(u"DECLARE " + m_name + u" SCROLL CURSOR WITH HOLD FOR " + m_form.body);
    m_kept = true;
    return static_cast<long>(m_connection.Execute({u"MOVE FORWARD ALL IN " + m_name, {}}));
}

RowReader SnapshotReader::Rows(long first, long count) {
    if (m_connection.Kind() == Database::SQLite) {
        return m_connection.Query({u"SELECT * FROM temp." + m_name + u" WHERE _rowid_ >= " +
                                       DecimalText(first) + u" ORDER BY _rowid_ LIMIT " +
                                       DecimalText(count),
                                   {}});
    }
    Run(u"MOVE ABSOLUTE " + DecimalText(first - 1) + u" IN " + m_name);
    return m_connection.Query({u"FETCH FORWARD " + DecimalText(count) + u" FROM " + m_name, {}});
}

std::vector<Record> SnapshotReader::Read(long first, long count) {
    std::vector<Record> records;
    for (RowReader rows = Rows(first, count); rows.Next();) {
        records.push_back(ReadRecord(rows, m_columns, 1));
    }
    return records;
}

}  // namespace veygrid
