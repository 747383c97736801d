// The rows or columns on view with their sizes, taken down once for a whole paint.
#pragma once

#include <cstdint>
#include <vector>

#include "grid/Axis.h"
#include "grid/GridStore.h"
#include "screen/Layout.h"

namespace veygrid {

// One line, or several of size 0 that follow each other: they lie in one place, and a sheet may
// hide any number of them.
struct ViewLine {
    std::int32_t line;
    std::int32_t last;
    std::int32_t size;  // pixels

    friend constexpr bool operator==(const ViewLine&, const ViewLine&) = default;
};

using ViewLines = std::vector<ViewLine>;

// The lines from `first` to `last`; none when `last` lies before `first`.
ViewLines LinesOnView(const GridStore& store, Axis axis, std::int64_t first, std::int64_t last);

// The two edges of a line in client pixels.
struct LineEdges {
    std::int32_t begin = 0;
    std::int32_t end = 0;

    friend constexpr bool operator==(const LineEdges&, const LineEdges&) = default;
};

// The edges that Layout::CellRect gives these lines, which begin with the first visible one; in one
// walk for all.
std::vector<LineEdges> EdgesOnView(const Layout& layout, Axis axis, const ViewLines& lines);

constexpr Rect CellRectOf(const LineEdges& row, const LineEdges& col) {
    return {col.begin, row.begin, col.end, row.end};
}

}  // namespace veygrid
