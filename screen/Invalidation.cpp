// Which part of the control is repainted after a change, in client pixels.
#include "screen/Invalidation.h"

namespace veygrid {

namespace {

// Pixels by which the mark of the active cell and the lines of the active row overrun the cell.
constexpr std::int32_t MarkMargin = 2;

}  // namespace

Rect CellRegion(const Layout& layout, CellPos cell) {
    const Rect rect = layout.CellRect(cell.Row, cell.Col);
    return rect.IsRectEmpty() ? Rect{} : rect;
}

Rect RowHeaderRegion(const Layout& layout, std::int32_t row) {
    const Rect rect = layout.CellRect(row, layout.FirstVisibleCol);
    return {0, rect.top, rect.right, rect.bottom};
}

Rect ColHeaderRegion(const Layout& layout, std::int32_t col) {
    const Rect rect = layout.CellRect(layout.FirstVisibleRow, col);
    return {rect.left, 0, rect.right, rect.bottom};
}

Rect ActiveRowRegion(const Layout& layout, std::int32_t row) {
    const Rect rect = layout.CellRect(row, layout.FirstVisibleCol).Inflated(0, MarkMargin);
    return {0, rect.top, FarEdge, rect.bottom};
}

std::array<Rect, 3> ActiveCellRegions(const Layout& layout, CellPos cell) {
    const Rect grown = layout.CellRect(cell.Row, cell.Col).Inflated(MarkMargin, MarkMargin);
    const Rect inRow = layout.CellRect(cell.Row, layout.FirstVisibleCol);
    const Rect inCol = layout.CellRect(layout.FirstVisibleRow, cell.Col);
    return {grown,
            Rect{0, WrapSub(inRow.top, MarkMargin), WrapAdd(inRow.left, 1),
                 WrapAdd(inRow.bottom, MarkMargin)},
            Rect{WrapSub(inCol.left, MarkMargin), 0, WrapAdd(inCol.right, MarkMargin),
                 WrapAdd(inCol.top, MarkMargin)}};
}

Rect HeaderCornerRegion(const Layout& layout) {
    const Rect first = layout.CellRect(layout.FirstVisibleRow, layout.FirstVisibleCol);
    return {0, 0, first.left, first.top};
}

}  // namespace veygrid
