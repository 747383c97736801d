// Which part of the control is repainted after a change, in client pixels.
#pragma once

#include <array>

#include "grid/CellPos.h"
#include "platform/Geometry.h"
#include "screen/Layout.h"

namespace veygrid {

// Each rectangle follows the layout as it stands at the time of the change. One that is empty, or
// that lies outside the window, repaints nothing.

// The cell's own; empty off the view.
Rect CellRegion(const Layout& layout, CellPos cell);
// From the left edge of the control to the right edge of the row's first visible cell.
Rect RowHeaderRegion(const Layout& layout, std::int32_t row);
// From the top of the control to the bottom of the column's first visible cell.
Rect ColHeaderRegion(const Layout& layout, std::int32_t col);
// In row mode, the active row across the control.
Rect ActiveRowRegion(const Layout& layout, std::int32_t row);
// The active cell with its mark, its row header box and its column header box.
std::array<Rect, 3> ActiveCellRegions(const Layout& layout, CellPos cell);
// The corner box of the headers.
Rect HeaderCornerRegion(const Layout& layout);

}  // namespace veygrid
