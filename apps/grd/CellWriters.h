// Cells as text for people and for other programs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

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
    bool Shown;         // texts as the show formats show them
    bool Header;        // column headers of the sheet's own stand in front, where the form has them
    std::string Title;  // of a page, in UTF-8
};

// All forms are written in UTF-8. Progress counts the cells of the slice.

// Columns that line up, with blanks between them.
void WriteAlignedText(const CellsToWrite& cells, TextOutput& out, Progress& progress);
// Fields are quoted where they hold the delimiter, a quote or a line end.
void WriteDelimited(const CellsToWrite& cells, char delimiter, std::string_view lineEnd,
                    TextOutput& out, Progress& progress);
// An array with an object for each cell that has a text, on a line of its own.
void WriteJsonCells(const CellsToWrite& cells, TextOutput& out, Progress& progress);
// A page with one table, with the alignment, colours and fonts of the cells.
void WriteHtmlTable(const CellsToWrite& cells, TextOutput& out, Progress& progress);

}  // namespace veygrid
