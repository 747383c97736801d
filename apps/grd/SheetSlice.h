// The cells of a part of the sheet, in the order in which they are read.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "grid/CellRange.h"
#include "grid/GridStore.h"

namespace veygrid {

struct CellEntry {
    CellPos Pos;
    // In code page 936, owned by the store.
    const std::string* Text;
};

// The range holds real rows and columns; it is empty, with `Row2` 0, where there is nothing. The
// cells are those that the store has in it, row by row, each row from left to right.
struct SheetSlice {
    CellRange Range;
    std::vector<CellEntry> Cells;

    std::int64_t RowCount() const { return std::int64_t{Range.Row2} - Range.Row1 + 1; }
    std::int64_t ColCount() const { return std::int64_t{Range.Col2} - Range.Col1 + 1; }
};

// Good until the store changes. Without a range, from the first cell to the last row and the last
// column that have a text; whole rows end with that column, whole columns with that row.
SheetSlice SliceSheet(const GridStore& store, const std::optional<CellRange>& range);

// Sorts by row, then by column; quick where the cells stand in few ordered runs, as the chains of a
// sheet filled in order do.
void SortByPosition(std::vector<CellEntry>& cells);

// Walks the rows of a slice from the first to the last, those without cells included.
class RowWalk {
  public:
    explicit RowWalk(const SheetSlice& slice)
        : m_slice(slice), m_row(std::int64_t{slice.Range.Row1} - 1) {}

    // Moves to the next row; false behind the last one.
    bool Next();
    std::int32_t Row() const { return static_cast<std::int32_t>(m_row); }
    std::span<const CellEntry> Cells() const {
        return std::span(m_slice.Cells).subspan(m_first, m_behind - m_first);
    }
    // Index of the row's first cell among those of the slice.
    std::size_t FirstIndex() const { return m_first; }

  private:
    const SheetSlice& m_slice;
    std::int64_t m_row;
    std::size_t m_first = 0;
    std::size_t m_behind = 0;
};

}  // namespace veygrid
