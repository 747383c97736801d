// The geometry of the sheet: where cells and headers lie, and what a pixel means.
#pragma once

#include <algorithm>
#include <cstdint>

#include "grid/Axis.h"
#include "grid/CellPos.h"
#include "grid/CellRange.h"
#include "grid/GridStore.h"
#include "platform/Geometry.h"

namespace veygrid {

// What a point of the control is.
enum class HitCode : std::int32_t {
    HitOutside = 0,
    HitNowhere = -1,
    HitRowHeader = 1,
    HitColHeader = 2,
    HitRowEdge = 3,
    HitColEdge = 4,
    HitCell = 5,
    HitCorner = 6,
    HitSelFrame = 20,
};

// An edge in client pixels, from a sum that may leave 32 bits: it then stands as far out as leaves
// room for growing a rectangle.
constexpr std::int32_t Edge(std::int64_t position) {
    constexpr std::int64_t Farthest = 0x7FFF0000;
    return static_cast<std::int32_t>(std::clamp(position, -Farthest, Farthest));
}

// Rows and columns that fit, and their summed sizes in pixels without the headers.
struct VisibleCounts {
    std::int32_t Rows = -1;
    std::int32_t Cols = -1;
    std::int32_t Height = 0;
    std::int32_t Width = 0;

    friend constexpr bool operator==(const VisibleCounts&, const VisibleCounts&) = default;
};

// An edge beyond the view in a rectangle of CellRect.
inline constexpr std::int32_t OffView = 32767;
// The far edge of the window in every frame, whatever the window's size.
inline constexpr std::int32_t FarEdge = 2000;

// What the layout keeps, to be saved and put back around a paint that is not the window's.
struct LayoutState {
    // Where the sheet is laid out; empty until the first paint.
    Rect m_rcClient;
    std::int32_t FirstVisibleRow = 1;
    std::int32_t FirstVisibleCol = 1;
    // Pixels on each side of a border that grab it.
    std::int32_t m_nResizeMargin = 3;
    // Outer rectangle of the thick selection frame; empty when none is drawn.
    Rect m_rcSelFrame;
    // Of the last paint.
    VisibleCounts m_visible;
    std::int32_t m_nLastDrawnRow = 0;
    std::int32_t m_nLastDrawnCol = 0;
};

// Positions are never kept: each question walks the sizes from the first visible row and column up
// to the edge of the view. Client pixels; rows and columns are 1-based.
class Layout : public LayoutState {
  public:
    // The store must outlive the layout.
    explicit Layout(const GridStore& store) : m_store(store) {}

    // Left and top edge of the cell area.
    std::int32_t OriginX() const;
    std::int32_t OriginY() const;

    // All zero for a cell above or left of the view or outside the sheet; OffView in both edges
    // of a direction for a cell below or right of the view. A cell that begins in the view gets its
    // whole size.
    Rect CellRect(std::int32_t row, std::int32_t col) const;
    // Row or column 0 where the point falls on none.
    CellPos PosToCell(Point point) const;
    HitCode HitTest(Point point) const;
    // All zero where nothing is on view.
    CellRange VisibleRange(bool wholeCellsOnly) const;
    // What fits into bounds of this size from a first cell on. Paper never cuts a row or column,
    // but for the only one.
    VisibleCounts CalcVisible(const Rect& bounds, bool isPrinting, std::int32_t firstRow,
                              std::int32_t firstCol) const;
    Rect RangeRect(const CellRange& range) const;

  private:
    // One direction of the view: its first line, where the cell area begins and the view ends.
    struct View {
        Axis axis;
        std::int32_t first;
        std::int32_t origin;
        std::int32_t end;
    };
    struct Edges {
        std::int32_t begin = 0;
        std::int32_t end = 0;
    };
    View ViewOf(Axis axis) const;
    Edges EdgesOf(const View& view, std::int32_t line) const;
    std::int32_t LineAt(const View& view, std::int32_t position) const;
    std::int32_t LastVisible(const View& view, bool wholeCellsOnly) const;

    HitCode HitCellOrFrame(Point point) const;
    HitCode HitRowHeaders(std::int32_t row, std::int32_t y) const;
    HitCode HitColHeaders(std::int32_t col, std::int32_t x) const;
    bool IsNearEdge(std::int32_t position, Edges edges) const;

    const GridStore& m_store;
};

}  // namespace veygrid
