// The cells on view: their backgrounds and their texts.
#pragma once

#include "screen/DrawingContext.h"
#include "screen/ViewLines.h"

namespace veygrid {

// Draws each cell in the rectangle that Layout::CellRect gives it, up to the far edges of `cells`,
// and notes the last row and column drawn. A host that listens is asked for each cell and may
// change the sheet while it is; sizes of rows and columns are those of the beginning.
void DrawCells(const DrawingContext& context, Surface& surface, const ViewLines& rows,
               const ViewLines& cols, const Rect& cells);

}  // namespace veygrid
