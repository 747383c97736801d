// The text of a cell as it is written out, and the side on which it stands.
#pragma once

#include <string>
#include <string_view>

#include "apps/grd/SheetSlice.h"
#include "grid/GridStore.h"

namespace veygrid {

// The cell's text in code page 936, shown as its show format shows it when `shown`.
std::string TextOfCell(const GridStore& store, const CellEntry& cell, bool shown);

// Left, centred or right as the sheet draws it: general alignment puts numbers and dates right.
HorizontalAlign SideOfText(const CCellFormat& format, std::string_view text);

// A column's header in UTF-8.
std::string HeaderInUtf8(const GridStore& store, std::int32_t col);

// Whether a column in the range has a header of its own.
bool HasOwnHeaders(const GridStore& store, const CellRange& range);

}  // namespace veygrid
