// Random access to the rows of a query of any length, with a hard limit on what is kept of them.
#pragma once

#include <cstddef>
#include <list>
#include <unordered_map>

#include "apps/host/odbc/Record.h"

namespace veygrid {

// Reads runs of rows from the database.
class WindowReader {
  public:
    virtual ~WindowReader() = default;
    virtual long CountRows() = 0;
    // The records from `first` on, 1-based; fewer than `count` when rows went meanwhile.
    virtual std::vector<Record> Read(long first, long count) = 0;
};

class RowWindows {
  public:
    static constexpr long RowsOfWindow = 128;
    static constexpr std::size_t WindowLimit = 64;
    static constexpr std::size_t ByteLimit = std::size_t{16} << 20;

    explicit RowWindows(WindowReader& reader) : m_reader(reader) {}

    // Reads the window of the row when it is not kept. `rows` is the number of all rows. The record
    // is good until the next call.
    const Record& At(long row, long rows, std::size_t columns);
    void Clear();

    // What is kept: never more than WindowLimit windows, nor than ByteLimit bytes beside the window
    // asked for last.
    std::size_t WindowCount() const { return m_windows.size(); }
    std::size_t Bytes() const { return m_bytes; }

  private:
    struct Window {
        long number;
        std::vector<Record> records;
        std::size_t bytes;
    };

    const Window& Find(long number, long rows);
    void Shrink();

    WindowReader& m_reader;
    std::list<Window> m_windows;  // the latest used first
    std::unordered_map<long, std::list<Window>::iterator> m_byNumber;
    std::size_t m_bytes = 0;
    Record m_gone;
};

}  // namespace veygrid
