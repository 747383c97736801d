// Windows of rows of one table in the order of its key.
#include "apps/host/odbc/KeyedReader.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "apps/host/odbc/StatementText.h"

namespace veygrid {

Record ReadRecord(RowReader& rows, const std::vector<ColumnInfo>& columns, int from) {
    Record record;
    record.reserve(columns.size());
    for (const ColumnInfo& column : columns) {
        record.push_back(column.binary ? rows.Binary(from) : rows.Text(from));
        ++from;
    }
    return record;
}

long RowsOf(const CellValue& count) {
    std::uint64_t rows = 0;
    for (const char16_t c : count.value_or(u"")) {
        rows = c >= u'0' && c <= u'9' ? rows * 10 + (c - u'0') : rows;
    }
    // Positions of the sheet are numbers of 32 bits.
    return static_cast<long>(
        std::min<std::uint64_t>(rows, std::numeric_limits<std::int32_t>::max() - 1));
}

std::u16string DecimalText(long number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

KeyedReader::KeyedReader(Connection& connection, SelectForm form,
                         const std::vector<ColumnInfo>& columns, std::vector<KeyColumn> keys)
    : m_connection(connection),
      m_form(std::move(form)),
      m_columns(columns),
      m_keys(std::move(keys)) {
    m_rowsText = m_form.body.substr(0, m_form.afterSelect) + u' ';
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        const std::u16string alias = u"veygrid_k" + DecimalText(static_cast<long>(i));
        m_rowsText += m_keys[i].name + u" AS " + alias + u", ";
        const std::u16string joint = i == 0 ? u"" : u", ";
        m_keyNames += joint + alias;
        m_backwards += joint + alias + u" DESC";
        m_keyMarks += joint + m_keys[i].mark;
    }
    m_rowsText += m_form.body.substr(m_form.afterSelect);
    m_connection.Describe(m_rowsText);
}

long KeyedReader::CountRows() {
    m_places.clear();
    m_rows = RowsOf(m_connection.Single(CountingText(m_form)));
    return m_rows;
}

KeyedReader::Start KeyedReader::From(long first) const {
    const auto behind = m_places.upper_bound(first);
    if (behind == m_places.begin()) {
        return {nullptr, first - 1};
    }
    const auto place = std::prev(behind);
    return {&place->second, first - place->first};
}

KeyedReader::Start KeyedReader::Backwards(long behind) const {
    const auto place = m_places.lower_bound(behind);
    if (place == m_places.end()) {
        return {nullptr, m_rows + 1 - behind};
    }
    return {&place->second, place->first - behind};
}

BoundStatement KeyedReader::Statement(const Start& start, bool backwards, long count) const {
    BoundStatement made{u"SELECT * FROM (" + m_rowsText + u"\n) AS veygrid_rows", {}};
    if (start.key != nullptr) {
        made.text +=
            u" WHERE (" + m_keyNames + (backwards ? u") < (" : u") >= (") + m_keyMarks + u")";
        made.values.assign(start.key->begin(), start.key->end());
    }
    made.text += u" ORDER BY " + (backwards ? m_backwards : m_keyNames) + u" LIMIT " +
                 DecimalText(count) + u" OFFSET " + DecimalText(start.skip);
    return made;
}

std::vector<Record> KeyedReader::Read(long first, long count) {
    const Start forwards = From(first);
    const Start fromBehind = Backwards(first + count);
    const bool backwards = fromBehind.skip < forwards.skip;
    RowReader rows =
        m_connection.Query(Statement(backwards ? fromBehind : forwards, backwards, count));
    std::vector<Key> keys;
    std::vector<Record> records;
    while (rows.Next()) {
        keys.emplace_back();
        for (std::size_t i = 1; i <= m_keys.size(); ++i) {
            keys.back().push_back(rows.Text(static_cast<int>(i)));
        }
        records.push_back(ReadRecord(rows, m_columns, static_cast<int>(m_keys.size()) + 1));
    }
    if (backwards) {
        std::reverse(keys.begin(), keys.end());
        std::reverse(records.begin(), records.end());
    }
    if (static_cast<long>(keys.size()) == count) {
        Remember(first, std::move(keys.front()));
        Remember(first + count - 1, std::move(keys.back()));
    }
    return records;
}

void KeyedReader::Remember(long row, Key key) {
    if (key.empty()) {
        return;  // the front of a window of one row
    }
    if (m_places.size() >= PlaceLimit) {
        bool odd = false;
        std::erase_if(m_places, [&](const auto&) { return odd = !odd; });
    }
    m_places.insert_or_assign(row, std::move(key));
}

}  // namespace veygrid
