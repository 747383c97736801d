// Dragging the selected range by its frame to another place.
#include "screen/MouseCellMove.h"

#include <memory>
#include <utility>

#include "platform/InputMessage.h"

namespace veygrid {

namespace {

// The range with its top left corner elsewhere, each direction only where it has one.
CellRange Moved(CellRange range, CellPos target) {
    const RangeKindOf kind = RangeKind(range);
    if (kind != RangeKindOf::WholeColumns) {
        const std::int32_t rows = WrapSub(target.Row, range.Row1);
        range.Row1 = WrapAdd(range.Row1, rows);
        range.Row2 = WrapAdd(range.Row2, rows);
    }
    if (kind != RangeKindOf::WholeRows) {
        const std::int32_t cols = WrapSub(target.Col, range.Col1);
        range.Col1 = WrapAdd(range.Col1, cols);
        range.Col2 = WrapAdd(range.Col2, cols);
    }
    return range;
}

// What the event tells of a move of the range; nothing for one that is no range.
std::optional<CellsMoved> MovedType(const CellRange& range) {
    switch (RangeKind(range)) {
        case RangeKindOf::SingleCell:
        case RangeKindOf::Block:
            return CellsMoved::Cells;
        case RangeKindOf::WholeRows:
            return CellsMoved::Rows;
        case RangeKindOf::WholeColumns:
            return CellsMoved::Columns;
        default:
            return std::nullopt;
    }
}

}  // namespace

CellRange MouseCellMove::MovedRange() const {
    CellRange range;
    m_parts.selection.GetSelection(0, range);
    return range;
}

// A range that is neither cells, rows nor columns asks no permission.
bool MouseCellMove::IsAllowed() const {
    const GridProperties& properties = m_parts.store.Properties;
    const std::optional<CellsMoved> type = MovedType(MovedRange());
    if (!type) {
        return true;
    }
    switch (*type) {
        case CellsMoved::Rows:
            return properties.AllowMoveRow;
        case CellsMoved::Columns:
            return properties.AllowMoveCol;
        case CellsMoved::Cells:
            break;
    }
    return properties.AllowMoveCell;
}

void MouseCellMove::Press() {
    if (!IsAllowed()) {
        return;
    }
    m_track.m_nMouseState = MouseState::MouseMoveCells;
    const Layout& layout = m_parts.layout;
    const Rect first = layout.CellRect(layout.FirstVisibleRow, layout.FirstVisibleCol);
    const Rect client = m_parts.control.GetClientRect();
    const Rect screen =
        m_parts.control.ClientToScreen({first.left, first.top, client.right, client.bottom})
            .Inflated(-2, -2);
    m_parts.control.ClipCursor(&screen);
    m_track.isConfined = true;
}

void MouseCellMove::Drag(CellPos cell, Point point) {
    const CellRange frame = FrameAt(cell);
    if (frame != m_rcMoveFrame) {
        const std::unique_ptr<Surface> surface = m_parts.control.GetDC();
        DrawFrame(*surface, std::exchange(m_rcMoveFrame, frame));
        DrawFrame(*surface, frame);
    }
    AutoScroll(point);
}

// Left and top follow the pointer also for whole rows and columns, whose right or bottom stays 0.
CellRange MouseCellMove::FrameAt(CellPos cell) const {
    const GridProperties& properties = m_parts.store.Properties;
    const auto& list = m_parts.selection.SelectionList;
    const CellRange base = list.empty() ? CellRange{1, 1, 1, 1} : list.front();
    const std::int32_t row = cell.Row == 0 ? properties.MaxRow : cell.Row;
    const std::int32_t col = cell.Col == 0 ? properties.MaxCol : cell.Col;
    const auto moved = [](std::int32_t to, std::int32_t first, std::int32_t last) {
        return last >= 1 ? WrapAdd(WrapSub(to, first), last) : last;
    };
    return {row, col, moved(row, base.Row1, base.Row2), moved(col, base.Col1, base.Col2)};
}

// A double dotted line; drawn twice it is gone.
void MouseCellMove::DrawFrame(Surface& surface, const CellRange& frame) const {
    if (frame.IsEmpty()) {
        return;
    }
    const Rect rect = m_parts.layout.RangeRect(frame);
    surface.DrawFocusRect(rect);
    surface.DrawFocusRect(rect.Inflated(1, 1));
}

// To the sides only.
void MouseCellMove::AutoScroll(Point point) {
    const std::uint32_t now = m_parts.control.GetTickCount();
    if (!m_ticksAutoScroll) {
        m_ticksAutoScroll = now;
    }
    const std::int32_t right = WrapSub(m_parts.control.GetClientRect().right, AutoScrollBand);
    const std::int32_t left = WrapAdd(m_parts.store.Properties.RowHeaderWidth, AutoScrollBand);
    const bool isAtSide = point.x > right || point.x < left;
    if (isAtSide && now - *m_ticksAutoScroll > AutoScrollPause) {
        m_parts.control.SendScroll(
            ScrollBar::Horz, point.x > right ? ScrollRequest::LineDown : ScrollRequest::LineUp);
        m_ticksAutoScroll = m_parts.control.GetTickCount();
    }
}

void MouseCellMove::Release() {
    const CellRange frame = std::exchange(m_rcMoveFrame, {});
    if (frame.IsEmpty()) {
        return;
    }
    if (m_parts.store.BoundDataset != nullptr) {
        m_parts.host.RefreshColumnNames();
    }
    DrawFrame(*m_parts.control.GetDC(), frame);
    MoveTo({frame.Row1, frame.Col1});
}

void MouseCellMove::MoveTo(CellPos target) {
    Selection& selection = m_parts.selection;
    CellRange range = MovedRange();
    const bool copies = m_parts.control.GetKeyState(VkControl) < 0;
    m_parts.operations.MoveCells(range, target.Row, target.Col, copies);
    const bool hadSelection = !selection.SelectionList.empty();
    if (const std::optional<CellsMoved> type = MovedType(range)) {
        range = Moved(range, target);
        m_parts.host.FireCellsMove(*type);
    }
    if (hadSelection) {
        selection.SelectionList.assign(1, range);
    }
    selection.SetActiveCell(target.Row, target.Col);
    m_parts.store.SetModifiedAndNotify(true);
}

}  // namespace veygrid
