// What of the window's picture can be moved when the sheet scrolls, in place of painting it anew.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "grid/CellPos.h"
#include "grid/GridStore.h"
#include "grid/Selection.h"
#include "screen/Layout.h"

namespace veygrid {

struct ScrolledPixels {
    Rect area;  // moves by dx and dy, cut off at its own edges
    std::int32_t dx = 0;
    std::int32_t dy = 0;
    // Repainted afterwards: what came into the area, and what does not move with the cells.
    std::array<Rect, 3> stale;
};

// For a window that shows the sheet as it is, but from the cell `shown` on. Nothing when the
// picture changes in other ways than by moving, or by no more than it would cost to paint it.
std::optional<ScrolledPixels> PixelsToMove(const GridStore& store, const Selection& selection,
                                           const Layout& layout, CellPos shown);

}  // namespace veygrid
