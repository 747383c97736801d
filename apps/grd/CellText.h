// The text of a cell as it is written out, and the side on which it stands.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "apps/grd/SheetSlice.h"
#include "grid/GridStore.h"

namespace veygrid {

// Appends a text in code page 936 as UTF-8.
void AppendInUtf8(std::string& out, std::string_view text);
// The same on one line: line ends, tabs and other control characters become \n, \t, \xNN.
void AppendOnOneLine(std::string& out, std::string_view text);

// The text of a cell in code page 936, `shown` as its show format shows it. Lies in the store or in
// `scratch`.
std::string_view TextOfCell(const GridStore& store, const CellEntry& cell, bool shown,
                            std::string& scratch);

// Left, Center or Right, as the sheet draws a text: general alignment puts numbers and dates right.
HorizontalAlign SideOfText(const CCellFormat& format, std::string_view text);

// Whether a column of the range has a header of its own.
bool HasOwnHeaders(const GridStore& store, const CellRange& range);

}  // namespace veygrid
