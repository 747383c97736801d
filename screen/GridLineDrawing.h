// The background of the cells and the lines between them.
#pragma once

#include "screen/DrawingContext.h"
#include "screen/ViewLines.h"

namespace veygrid {

// Lays the lines out from the corner of `cells`; each stands on the last pixel of its row or
// column. Cells with a background of their own are painted over it later.
void DrawGridLines(const DrawingContext& context, Surface& surface, const ViewLines& rows,
                   const ViewLines& cols, const Rect& cells);

}  // namespace veygrid
