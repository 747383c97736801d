// What shows the selection and the active cell over the cells.
#include "screen/SelectionDrawing.h"

#include <algorithm>

#include "screen/ViewLines.h"

namespace veygrid {

namespace {

// Pixels by which the outer rectangle of the frame lies outside its innermost line.
constexpr std::int32_t FrameThickness = 3;
// Colour and length of the lines along the active row; they end where the surface does.
constexpr Color RowMarkColor = 0xFF0000;
constexpr std::int32_t RowMarkLength = 1000;

void DrawBox(Surface& surface, const Rect& rect, Color color) {
    surface.Draw3dRect(rect, color, color);
}

// Two lines along the rows up to the far edge. The rectangle for hit testing ends with the cells
// all the same.
Rect FrameRows(Surface& surface, Rect rect) {
    DrawBox(surface, {rect.left, rect.top, FarEdge, WrapAdd(rect.top, 1)}, Black);
    DrawBox(surface, {rect.left, WrapSub(rect.bottom, 1), FarEdge, rect.bottom}, Black);
    rect = rect.Inflated(0, -2);
    DrawBox(surface, rect, White);
    return rect.Inflated(0, FrameThickness);
}

Rect FrameCols(Surface& surface, Rect rect) {
    DrawBox(surface, {rect.left, rect.top, WrapAdd(rect.left, 1), FarEdge}, Black);
    DrawBox(surface, {WrapSub(rect.right, 1), rect.top, rect.right, FarEdge}, Black);
    rect = rect.Inflated(-2, 0);
    DrawBox(surface, rect, White);
    return rect.Inflated(FrameThickness, 0);
}

Rect FrameBlock(Surface& surface, Rect rect) {
    DrawBox(surface, rect, Black);
    rect = rect.Inflated(-1, -1);
    DrawBox(surface, rect, Black);
    rect = rect.Inflated(-1, -1);
    DrawBox(surface, rect, White);
    return rect.Inflated(FrameThickness, FrameThickness);
}

// Around the cells in the two corners that are on view; the beginning of the range is moved into
// the view, its end is not. Gives the outer rectangle.
Rect DrawFrame(const Layout& view, Surface& surface, CellRange range) {
    range.Col1 = std::max(range.Col1, view.FirstVisibleCol);
    range.Row1 = std::max(range.Row1, view.FirstVisibleRow);
    const Rect first = view.CellRect(range.Row1, range.Col1);
    if (range.Col2 == 0) {
        const Rect last = view.CellRect(range.Row2, range.Col1);
        return FrameRows(surface, UnionRect(last, first).Inflated(1, 1));
    }
    if (range.Row2 == 0) {
        const Rect last = view.CellRect(range.Row1, range.Col2);
        return FrameCols(surface, UnionRect(last, first).Inflated(1, 1));
    }
    if (range.Col2 == -1 || range.Row2 == -1) {
        return {};
    }
    const Rect last = view.CellRect(range.Row2, range.Col2);
    return FrameBlock(surface, UnionRect(first, last).Inflated(1, 1));
}

void MarkActiveRow(const DrawingContext& context, Surface& surface) {
    const Layout& view = context.View;
    if (context.Store.ActiveRow < view.FirstVisibleRow) {
        return;
    }
    const Rect rect = view.CellRect(context.Store.ActiveRow, view.FirstVisibleCol);
    surface.SelectPen(RowMarkColor);
    for (const std::int32_t y : {WrapSub(rect.top, 1), rect.bottom}) {
        surface.MoveTo({rect.left, y});
        surface.LineTo({WrapAdd(rect.left, RowMarkLength), y});
    }
}

// Of the cells on view but for the active one.
template <class IsInverted>
void InvertCells(const DrawingContext& context, Surface& surface, IsInverted isInverted) {
    const GridStore& store = context.Store;
    const CellRange range = context.View.VisibleRange(false);
    const ViewLines rows = LinesOnView(store, Axis::Rows, range.Row1, range.Row2);
    const ViewLines cols = LinesOnView(store, Axis::Cols, range.Col1, range.Col2);
    const std::vector<LineEdges> rowEdges = EdgesOnView(context.View, Axis::Rows, rows);
    const std::vector<LineEdges> colEdges = EdgesOnView(context.View, Axis::Cols, cols);
    for (std::size_t c = 0; c < cols.size(); ++c) {
        for (std::size_t r = 0; r < rows.size(); ++r) {
            const CellPos cell{rows[r].line, cols[c].line};
            const Rect rect = CellRectOf(rowEdges[r], colEdges[c]);
            if (!rect.IsRectEmpty() && cell != CellPos{store.ActiveRow, store.ActiveCol} &&
                isInverted(cell)) {
                surface.InvertRect(rect);
            }
        }
    }
}

}  // namespace

void InvertSelection(const DrawingContext& context, Surface& surface) {
    InvertCells(context, surface, [&selected = context.Selected](CellPos cell) {
        return selected.IsCellSelected(cell.Row, cell.Col);
    });
}

void InvertSelectionChange(const DrawingContext& context, Surface& surface,
                           const CellRange& formerDragRange) {
    InvertCells(context, surface, [&](CellPos cell) {
        return context.Selected.IsCellSelected(cell.Row, cell.Col) !=
               context.Selected.IsCellSelectedWith(formerDragRange, cell.Row, cell.Col);
    });
}

void DrawSelectionFrame(const DrawingContext& context, Surface& surface) {
    const std::vector<CellRange>& list = context.Selected.SelectionList;
    context.View.m_rcSelFrame = {};
    if (list.size() < 2) {
        const CellRange range = list.empty() ? context.Selected.ActiveCellRange() : list.front();
        context.View.m_rcSelFrame = DrawFrame(context.View, surface, range);
    }
}

void DrawActiveCellMark(const DrawingContext& context, Surface& surface) {
    const GridStore& store = context.Store;
    if (store.Properties.RowMode) {
        MarkActiveRow(context, surface);
        return;
    }
    // Above or left of the view, the rectangle is empty as well.
    const Rect rect = context.View.CellRect(store.ActiveRow, store.ActiveCol);
    if (context.Host.InEdit() || rect.IsRectEmpty()) {
        return;
    }
    DrawBox(surface, rect, context.Colors.m_clrActiveCaption);
    DrawBox(surface, rect.Inflated(1, 1), context.Colors.m_clrActiveCaption);
}

}  // namespace veygrid
