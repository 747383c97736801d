// Cells as text with tabs between cells and line ends between rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "grid/CellRange.h"
#include "grid/GridStore.h"

namespace veygrid {

// Cells are separated by a tab and rows by "\r\n", with none behind the last. Nothing is quoted: a
// tab or line end inside a cell splits it when the text is read back. It is the stored text of the
// cells that travels, in code page 936.

// No text of a range becomes longer than this, in bytes: an automation string holds no more.
inline constexpr std::size_t MostRangeTextBytes = (std::size_t{1} << 30U) - 1;

// A row of column headers, then the rows of the range. A first row or column below 1 becomes 1; a
// last one below 1 becomes the last of the sheet: `LastRow` and `LastCol`, or `MaxRow` and `MaxCol`
// with a dataset bound. Reversed bounds are exchanged. On a sheet without rows or columns an open
// end gives rows 0 to 1 or columns 0 to 1, where 0 reads as the active one; that is on purpose.
// Throws std::length_error when the text would be longer than `mostBytes`, which is not above
// MostRangeTextBytes, and before anything is allocated when its separators alone are.
std::string GetRangeText(const GridStore& store, std::int32_t row1, std::int32_t col1,
                         std::int32_t row2, std::int32_t col2,
                         std::size_t mostBytes = MostRangeTextBytes);

// What copying takes: the range of the last entry of the selection with its header row, or the bare
// text of the active cell when nothing is selected.
std::string SelectionText(const GridStore& store, std::span<const CellRange> selection);

// Stores each field with the CellText setter, the empty ones too, from the given cell on; a text
// that ends in a line end writes one more, empty, cell. Lines end with "\n", and every "\r" in
// front of it is dropped. Neither limits, read-only marks nor data types are looked at, and nothing
// is logged. `text` must not lie inside the sheet.
void SetTabbedText(GridStore& store, std::int32_t row, std::int32_t col, std::string_view text);

}  // namespace veygrid
