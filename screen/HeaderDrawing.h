// The row and column headers, the corner between them and the empty space beside the sheet.
#pragma once

#include "screen/DrawingContext.h"
#include "screen/ViewLines.h"

namespace veygrid {

// Lays the headers out from the corner of the bounds. The stock font is selected meanwhile.
void DrawHeaders(const DrawingContext& context, Surface& surface, const ViewLines& rows,
                 const ViewLines& cols, const Rect& bounds);

}  // namespace veygrid
