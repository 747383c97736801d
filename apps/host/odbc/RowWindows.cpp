// Random access to the rows of a query of any length.
#include "apps/host/odbc/RowWindows.h"

#include <algorithm>

namespace veygrid {
namespace {

std::size_t BytesOf(const std::vector<Record>& records) {
    std::size_t bytes = 0;
    for (const Record& record : records) {
        bytes += sizeof(Record);
        for (const CellValue& cell : record) {
            bytes += sizeof(CellValue) + (cell ? cell->capacity() * sizeof(char16_t) : 0);
        }
    }
    return bytes;
}

}  // namespace

const Record& RowWindows::At(long row, long rows, std::size_t columns) {
    const long number = (row - 1) / RowsOfWindow;
    const Window& window = Find(number, rows);
    const auto index = static_cast<std::size_t>((row - 1) % RowsOfWindow);
    if (index < window.records.size()) {
        return window.records[index];
    }
    m_gone.assign(columns, std::nullopt);
    return m_gone;
}

void RowWindows::Clear() {
    m_windows.clear();
    m_byNumber.clear();
    m_bytes = 0;
}

const RowWindows::Window& RowWindows::Find(long number, long rows) {
    const auto known = m_byNumber.find(number);
    if (known != m_byNumber.end()) {
        m_windows.splice(m_windows.begin(), m_windows, known->second);
        return m_windows.front();
    }
    const long first = number * RowsOfWindow + 1;
    std::vector<Record> records = m_reader.Read(first, std::min(RowsOfWindow, rows - first + 1));
    const std::size_t bytes = BytesOf(records);
    m_windows.push_front({number, std::move(records), bytes});
    m_byNumber[number] = m_windows.begin();
    m_bytes += bytes;
    Shrink();
    return m_windows.front();
}

void RowWindows::Shrink() {
    while (m_windows.size() > 1 && (m_windows.size() > WindowLimit || m_bytes > ByteLimit)) {
        m_bytes -= m_windows.back().bytes;
        m_byNumber.erase(m_windows.back().number);
        m_windows.pop_back();
    }
}

}  // namespace veygrid
