// Cells and ranges as users write them: R3C2, R1C1:R9C4, R5, C2:C4.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "grid/CellPos.h"
#include "grid/CellRange.h"

namespace veygrid {

// "R3C2", in capital or small letters, both numbers from 1 to 2147483647; nothing for other text.
std::optional<CellPos> ParseCell(std::string_view text);

// A cell, a row "R3" or a column "C2", or two of the same kind joined by ":" in any order. The
// result is normalised; the columns of rows, and the rows of columns, are 0. Nothing for other
// text.
std::optional<CellRange> ParseRange(std::string_view text);

// A cell as "R3C2", a whole row as "R3", a whole column as "C2", both zeroes as "the sheet".
std::string CellName(CellPos pos);

}  // namespace veygrid
