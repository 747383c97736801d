// Cells as text for people and for other programs.
#pragma once

#include <string>

#include "apps/grd/Options.h"
#include "apps/grd/Progress.h"
#include "apps/grd/SheetSlice.h"
#include "apps/grd/TextOutput.h"
#include "grid/GridStore.h"

namespace veygrid {

// What of a sheet is written, and how its texts are taken.
struct CellsToWrite {
    const GridStore& Store;
    const SheetSlice& Slice;
    bool Shown;          // texts as the show formats show them
    bool Header;         // column headers stand in front, where the form has them
    std::string Title;   // of an HTML page, in UTF-8
};

// Every form but JSON writes empty cells too; above this many cells that makes no sense.
inline constexpr std::int64_t MostCellsInForm = 100'000'000;

// Writes UTF-8. Progress counts the cells of the slice.
void WriteAlignedText(const CellsToWrite& cells, TextOutput& out, Progress& progress);
// Fields are quoted where they hold the delimiter, a quote or a line end.
void WriteDelimited(const CellsToWrite& cells, char delimiter, std::string_view lineEnd,
                    TextOutput& out, Progress& progress);
// An array of one object for each cell that has a text.
void WriteJsonCells(const CellsToWrite& cells, TextOutput& out, Progress& progress);
// A page of its own: one table, with alignment, colours and fonts.
void WriteHtmlTable(const CellsToWrite& cells, TextOutput& out, Progress& progress);

}  // namespace veygrid
