// What shows the selection and the active cell over the cells.
#pragma once

#include "screen/DrawingContext.h"

namespace veygrid {

// Inverts the selected cells on view but for the active one, also while the mouse draws a range:
// called twice it leaves the picture as it was.
void InvertSelection(const DrawingContext& context, Surface& surface);
// The same picture as inverting the selection under the former range of the mouse and again under
// the present one, without touching the cells that would be inverted twice.
void InvertSelectionChange(const DrawingContext& context, Surface& surface,
                           const CellRange& formerDragRange);

// The thick frame around the only selected range, or around the active cell where none is selected.
// Leaves its outer rectangle in the layout for hit testing, empty when there is no frame.
void DrawSelectionFrame(const DrawingContext& context, Surface& surface);

// A box around the active cell, unless it is being edited; in row mode two lines along its row.
void DrawActiveCellMark(const DrawingContext& context, Surface& surface);

}  // namespace veygrid
