// The picture of the control: the sheet, or in GUI mode what lies behind the form.
#include "screen/SheetDrawing.h"

#include "screen/CellDrawing.h"
#include "screen/GridLineDrawing.h"
#include "screen/HeaderDrawing.h"
#include "screen/SelectionDrawing.h"
#include "screen/ViewLines.h"

namespace veygrid {

namespace {

// The windows of the form paint themselves.
void DrawForm(const DrawingContext& context, BackgroundImage& image, Surface& surface,
              const Rect& bounds) {
    DrawingHost& host = context.Host;
    image.DrawBkImage(surface, bounds, host.TranslateColor(host.AmbientBackColor()));
    if (!host.HasWindow()) {
        host.DrawObjectsWindowless(surface);
    } else if (host.GuiDesignMode()) {
        host.DrawSnapGrid(surface);
        host.DrawSelectionTrackers(surface);
    }
}

void PlaceView(const DrawingContext& context, bool isPrinting, const Rect& bounds) {
    Layout& view = context.View;
    if (isPrinting) {
        view.FirstVisibleCol = 1;
        view.FirstVisibleRow = context.Host.FirstRowOfPage(bounds);
    }
    view.m_visible =
        view.CalcVisible(bounds, isPrinting, view.FirstVisibleRow, view.FirstVisibleCol);
    if (isPrinting &&
        WrapAdd(view.m_visible.Rows, view.FirstVisibleRow) >= context.Store.Properties.MaxRow) {
        context.Host.CurrentPageIsLast();
    }
}

Rect CellsWithin(const GridProperties& properties, Rect bounds) {
    if (properties.ShowRowHeaders) {
        bounds.left = WrapAdd(bounds.left, properties.RowHeaderWidth);
    }
    if (properties.ShowColHeaders) {
        bounds.top = WrapAdd(bounds.top, properties.ColHeaderHeight);
    }
    return bounds;
}

void DrawSheet(const DrawingContext& context, Surface& surface, const Rect& bounds) {
    const GridStore& store = context.Store;
    const Layout& view = context.View;
    surface.SetBkColor(context.Host.TranslateColor(store.Properties.BackColor));
    surface.SetBkMode(BkMode::Transparent);
    PlaceView(context, surface.IsPrinting(), bounds);
    const auto linesOnView = [&store](Axis axis, std::int64_t first, std::int64_t count) {
        return LinesOnView(store, axis, first, first + count - 1);
    };
    const ViewLines rows = linesOnView(Axis::Rows, view.FirstVisibleRow, view.m_visible.Rows);
    const ViewLines cols = linesOnView(Axis::Cols, view.FirstVisibleCol, view.m_visible.Cols);
    DrawHeaders(context, surface, rows, cols, bounds);
    const Rect cells = CellsWithin(store.Properties, bounds);
    DrawGridLines(context, surface, rows, cols, cells);
    DrawCells(context, surface, rows, cols, cells);
}

void DrawMarks(const DrawingContext& context, Surface& surface) {
    InvertSelection(context, surface);
    DrawSelectionFrame(context, surface);
    if (context.Host.HasWindow()) {
        DrawActiveCellMark(context, surface);
    }
    context.Host.PlaceFormObjects(false);
}

}  // namespace

void OnDraw(const DrawingContext& context, BackgroundImage& image, Surface& surface,
            const Rect& bounds, const Rect& /*invalid*/) {
    context.View.m_rcClient = bounds;
    if (surface.IsPrinting()) {
        context.Host.OnPrepareDC(surface);
    }
    if (context.Store.Properties.GuiMode) {
        DrawForm(context, image, surface, bounds);
        return;
    }
    DrawSheet(context, surface, bounds);
    if (!surface.IsPrinting()) {
        DrawMarks(context, surface);
    }
}

}  // namespace veygrid
