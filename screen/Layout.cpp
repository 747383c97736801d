// The geometry of the sheet: where cells and headers lie, and what a pixel means.
#include "screen/Layout.h"

#include "screen/LineWalk.h"

namespace veygrid {

namespace {

// Width in pixels of the selection frame's rim that the mouse grabs.
constexpr std::int32_t FrameRim = 4;

struct Fit {
    std::int32_t count;
    std::int32_t size;  // pixels, without the header
};

// How many lines fit into `room` pixels behind a header.
Fit LinesThatFit(const GridStore& store, Axis axis, std::int32_t first, std::int32_t header,
                 std::int32_t room, bool isPrinting) {
    const WalkEnd end =
        WalkLines(store, axis, first, std::int64_t{MaxLine(store, axis)} + 1, header, room);
    // On paper a line that reaches the edge goes to the next page, even when it just fits.
    const bool cut = end.reached && isPrinting && end.line != first;
    const std::int64_t past = end.reached && !cut ? end.line + 1 : end.line;
    return {Edge(past - first), Edge((cut ? end.begin : end.end) - header)};
}

}  // namespace

std::int32_t Layout::OriginX() const {
    return m_store.Properties.ShowRowHeaders ? m_store.Properties.RowHeaderWidth : m_rcClient.left;
}

std::int32_t Layout::OriginY() const {
    return m_store.Properties.ShowColHeaders ? m_store.Properties.ColHeaderHeight : m_rcClient.top;
}

Layout::View Layout::ViewOf(Axis axis) const {
    return axis == Axis::Rows ? View{axis, FirstVisibleRow, OriginY(), m_rcClient.bottom}
                              : View{axis, FirstVisibleCol, OriginX(), m_rcClient.right};
}

// Edges of a line from the first visible one on.
Layout::Edges Layout::EdgesOf(const View& view, std::int32_t line) const {
    const WalkEnd before = WalkLines(m_store, view.axis, view.first, line, view.origin, view.end);
    if (before.reached) {
        return {OffView, OffView};
    }
    return {Edge(before.end), Edge(before.end + SizeOf(m_store, view.axis, line) - 1)};
}

Rect Layout::CellRect(std::int32_t row, std::int32_t col) const {
    if (row > m_store.Properties.MaxRow || row < FirstVisibleRow ||
        col > m_store.Properties.MaxCol || col < FirstVisibleCol || m_rcClient.IsRectEmpty()) {
        return {};
    }
    const Edges rowEdges = EdgesOf(ViewOf(Axis::Rows), row);
    const Edges colEdges = EdgesOf(ViewOf(Axis::Cols), col);
    return {colEdges.begin, rowEdges.begin, colEdges.end, rowEdges.end};
}

std::int32_t Layout::LineAt(const View& view, std::int32_t position) const {
    if (position <= view.origin) {
        return 0;
    }
    const WalkEnd end =
        WalkLines(m_store, view.axis, view.first, std::int64_t{MaxLine(m_store, view.axis)} + 1,
                  view.origin, position);
    return end.reached ? static_cast<std::int32_t>(end.line) : 0;
}

CellPos Layout::PosToCell(Point point) const {
    if (m_rcClient.IsRectEmpty() || !m_rcClient.PtInRect(point)) {
        return {};
    }
    return {LineAt(ViewOf(Axis::Rows), point.y), LineAt(ViewOf(Axis::Cols), point.x)};
}

HitCode Layout::HitTest(Point point) const {
    const GridProperties& properties = m_store.Properties;
    if (m_rcClient.IsRectEmpty() || !m_rcClient.PtInRect(point)) {
        return HitCode::HitOutside;
    }
    const bool besideRows = properties.ShowRowHeaders && point.x < properties.RowHeaderWidth;
    if (besideRows && properties.ShowColHeaders && point.y < properties.ColHeaderHeight) {
        return HitCode::HitCorner;
    }
    const CellPos cell = PosToCell(point);
    if (cell.Row != 0 && cell.Col != 0) {
        return HitCellOrFrame(point);
    }
    if (besideRows && (!properties.ShowColHeaders || point.y > properties.ColHeaderHeight)) {
        return HitRowHeaders(cell.Row, point.y);
    }
    // The pixel between the headers belongs to neither.
    if (!properties.ShowColHeaders || point.y >= properties.ColHeaderHeight ||
        (properties.ShowRowHeaders && point.x <= properties.RowHeaderWidth)) {
        return HitCode::HitNowhere;
    }
    return HitColHeaders(cell.Col, point.x);
}

HitCode Layout::HitCellOrFrame(Point point) const {
    return m_rcSelFrame.PtInRect(point) &&
                   !m_rcSelFrame.Inflated(-FrameRim, -FrameRim).PtInRect(point)
               ? HitCode::HitSelFrame
               : HitCode::HitCell;
}

bool Layout::IsNearEdge(std::int32_t position, Edges edges) const {
    const auto isIn = [position](std::int32_t low, std::int32_t high) {
        return position >= low && position <= high;
    };
    return isIn(WrapSub(edges.end, m_nResizeMargin), edges.end) ||
           isIn(edges.begin, WrapAdd(edges.begin, m_nResizeMargin));
}

HitCode Layout::HitRowHeaders(std::int32_t row, std::int32_t y) const {
    if (row == 0) {
        return HitCode::HitRowHeader;
    }
    const Rect cell = CellRect(row, FirstVisibleCol);
    return IsNearEdge(y, {cell.top, cell.bottom}) ? HitCode::HitRowEdge : HitCode::HitRowHeader;
}

HitCode Layout::HitColHeaders(std::int32_t col, std::int32_t x) const {
    if (col == 0) {
        return HitCode::HitColHeader;
    }
    const Rect cell = CellRect(FirstVisibleRow, col);
    return IsNearEdge(x, {cell.left, cell.right}) ? HitCode::HitColEdge : HitCode::HitColHeader;
}

std::int32_t Layout::LastVisible(const View& view, bool wholeCellsOnly) const {
    const std::int32_t max = MaxLine(m_store, view.axis);
    const WalkEnd end =
        WalkLines(m_store, view.axis, view.first, std::int64_t{max} + 1, view.origin, view.end);
    if (!end.reached) {
        return max;
    }
    const auto line = static_cast<std::int32_t>(end.line);
    return wholeCellsOnly && end.end > view.end ? WrapSub(line, 1) : line;
}

CellRange Layout::VisibleRange(bool wholeCellsOnly) const {
    if (m_rcClient.IsRectEmpty() ||
        (m_rcClient.right < OriginX() && m_rcClient.bottom < OriginY())) {
        return {};
    }
    const std::int32_t lastRow = LastVisible(ViewOf(Axis::Rows), wholeCellsOnly);
    const std::int32_t lastCol = LastVisible(ViewOf(Axis::Cols), wholeCellsOnly);
    // Only whole cells ask for a column to be left; a row must be left in any case.
    if ((wholeCellsOnly && lastCol < FirstVisibleCol) || lastRow < FirstVisibleRow) {
        return {};
    }
    return {FirstVisibleRow, FirstVisibleCol, lastRow, lastCol};
}

VisibleCounts Layout::CalcVisible(const Rect& bounds, bool isPrinting, std::int32_t firstRow,
                                  std::int32_t firstCol) const {
    const GridProperties& properties = m_store.Properties;
    const Fit rows = LinesThatFit(m_store, Axis::Rows, firstRow,
                                  properties.ShowColHeaders ? properties.ColHeaderHeight : 0,
                                  bounds.Height(), isPrinting);
    const Fit cols = LinesThatFit(m_store, Axis::Cols, firstCol,
                                  properties.ShowRowHeaders ? properties.RowHeaderWidth : 0,
                                  bounds.Width(), isPrinting);
    return {rows.count, cols.count, rows.size, cols.size};
}

Rect Layout::RangeRect(const CellRange& range) const {
    const std::int32_t col1 = std::max(range.Col1, FirstVisibleCol);
    const std::int32_t row1 = std::max(range.Row1, FirstVisibleRow);
    if (range.Col2 == 0) {
        Rect rows =
            UnionRect(CellRect(row1, FirstVisibleCol), CellRect(range.Row2, FirstVisibleCol))
                .Inflated(1, 1);
        rows.right = FarEdge;
        return rows;
    }
    if (range.Row2 == 0) {
        Rect cols =
            UnionRect(CellRect(FirstVisibleRow, col1), CellRect(FirstVisibleRow, range.Col2))
                .Inflated(1, 1);
        cols.bottom = FarEdge;
        return cols;
    }
    if (range.Col2 == -1 && range.Row2 == -1) {
        const Rect first = CellRect(FirstVisibleRow, FirstVisibleCol);
        return {first.left, first.top, FarEdge, FarEdge};
    }
    return UnionRect(CellRect(row1, col1), CellRect(range.Row2, range.Col2));
}

}  // namespace veygrid
