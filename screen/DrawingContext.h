// What the layers of the sheet's picture are drawn from.
#pragma once

#include "grid/GridStore.h"
#include "grid/Selection.h"
#include "screen/DrawingHost.h"
#include "screen/Layout.h"
#include "screen/SystemColors.h"

namespace veygrid {

// All of it outlives the drawing, and hosts change the sheet while it is drawn.
struct DrawingContext {
    const GridStore& Store;
    const Selection& Selected;
    Layout& View;
    DrawingHost& Host;
    SystemColors Colors;
};

}  // namespace veygrid
