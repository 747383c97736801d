// Walks along the rows or columns of the sheet, adding up their sizes until an edge is reached.
#pragma once

#include <cstdint>
#include <vector>

#include "grid/Axis.h"
#include "grid/GridStore.h"

namespace veygrid {

// Where a walk came to.
struct WalkEnd {
    // Whether a line ended at the edge or beyond it; if not, all lines were walked.
    bool reached = false;
    // The line that reached the edge, and where it begins.
    std::int64_t line = 0;
    std::int64_t begin = 0;
    // End of the line that reached the edge, or of all lines.
    std::int64_t end = 0;
};

// More lines than any screen shows; who has more to walk looks for longer strides.
inline constexpr std::int32_t ScreenfulOfLines = 4096;

std::int32_t SizeOf(const GridStore& store, Axis axis, std::int32_t line);
std::int32_t DefaultSize(const GridStore& store, Axis axis);
std::int32_t MaxLine(const GridStore& store, Axis axis);
// The lines of the span that have a size of their own, ascending. Costs a look at all stored sizes.
std::vector<std::int32_t> LinesWithSize(const GridStore& store, Axis axis, LineSpan span);

// Walks the lines from `first` to just before `past`, the first of which begins at `start`, up to
// the one that ends at `edge` or beyond. Any number is taken, sizes below 0 and lines outside the
// sheet too. A screenful takes as many steps as it has lines; beyond that the walk goes in strides
// over lines of one size, so that a sheet of hidden rows costs what its stored sizes cost and no
// more.
WalkEnd WalkLines(const GridStore& store, Axis axis, std::int64_t first, std::int64_t past,
                  std::int64_t start, std::int64_t edge);

}  // namespace veygrid
