// Changes that are not saved yet, laid over the rows of a query.
#include "apps/host/odbc/PendingRows.h"

#include <algorithm>

namespace veygrid {

long PendingRows::LiveRows() const {
    return m_source.RowCount() - static_cast<long>(m_deletedRows.size());
}

long PendingRows::RowCount() const {
    return LiveRows() + static_cast<long>(m_appended.size());
}

bool PendingRows::Has(long row, int col) const {
    return row >= 1 && row <= RowCount() && col >= 1 && col <= ColCount();
}

std::size_t PendingRows::AppendedIndex(long row) const {
    return static_cast<std::size_t>(row - LiveRows() - 1);
}

// Before the k-th deleted row d (k from 0) stand d - k - 1 live ones, a number that never falls.
long PendingRows::SourceRow(long row) const {
    std::size_t low = 0;
    std::size_t high = m_deletedRows.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        const bool before = m_deletedRows[middle] - static_cast<long>(middle) - 1 < row;
        (before ? low : high) = before ? middle + 1 : middle;
    }
    return row + static_cast<long>(low);
}

long PendingRows::SheetRow(long sourceRow) const {
    const auto before = std::lower_bound(m_deletedRows.begin(), m_deletedRows.end(), sourceRow);
    return sourceRow - static_cast<long>(before - m_deletedRows.begin());
}

CellValue PendingRows::Shown(long row, int col) {
    if (!Has(row, col)) {
        return std::nullopt;
    }
    if (const Texts* const texts = PendingTexts(row)) {
        const auto pending = texts->find(col);
        if (pending != texts->end()) {
            return pending->second;
        }
    }
    return SourceRecord(row)[static_cast<std::size_t>(col - 1)];
}

bool PendingRows::SetPending(long row, int col, std::u16string text) {
    if (!Has(row, col)) {
        return false;
    }
    if (IsAppended(row)) {
        m_appended[AppendedIndex(row)][col] = std::move(text);
        return true;
    }
    const long source = SourceRow(row);
    auto change = m_changes.find(source);
    if (change == m_changes.end()) {
        change = m_changes.emplace(source, Change{m_source.At(source), {}}).first;
    }
    change->second.texts[col] = std::move(text);
    return true;
}

long PendingRows::AppendRow() {
    m_appended.emplace_back();
    return RowCount();
}

bool PendingRows::DeleteRow(long row) {
    if (row < 1 || row > RowCount()) {
        return false;
    }
    if (IsAppended(row)) {
        m_appended.erase(m_appended.begin() + static_cast<std::ptrdiff_t>(AppendedIndex(row)));
        return true;
    }
    const long source = SourceRow(row);
    m_deleted.emplace(source, SourceRecord(row));
    m_changes.erase(source);
    m_deletedRows.insert(std::lower_bound(m_deletedRows.begin(), m_deletedRows.end(), source),
                         source);
    return true;
}

void PendingRows::ClearPending() {
    m_changes.clear();
    m_deleted.clear();
    m_deletedRows.clear();
    m_appended.clear();
}

bool PendingRows::HasPending() const {
    return !m_changes.empty() || !m_deleted.empty() || !m_appended.empty();
}

const Record& PendingRows::SourceRecord(long row) {
    if (IsAppended(row)) {
        m_empty.assign(Columns().size(), std::nullopt);
        return m_empty;
    }
    const long source = SourceRow(row);
    const auto change = m_changes.find(source);
    return change != m_changes.end() ? change->second.original : m_source.At(source);
}

const PendingRows::Texts* PendingRows::PendingTexts(long row) const {
    if (IsAppended(row)) {
        return &m_appended[AppendedIndex(row)];
    }
    const auto change = m_changes.find(SourceRow(row));
    return change == m_changes.end() ? nullptr : &change->second.texts;
}

std::vector<long> PendingRows::ChangedRows() const {
    std::vector<long> rows;
    for (const auto& [source, change] : m_changes) {
        rows.push_back(SheetRow(source));
    }
    std::sort(rows.begin(), rows.end());
    for (long row = LiveRows() + 1; row <= RowCount(); ++row) {
        rows.push_back(row);
    }
    return rows;
}

}  // namespace veygrid
