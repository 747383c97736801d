// The left mouse button over the sheet: which gesture a press begins, and its end.
#include "screen/MouseMachine.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "platform/InputMessage.h"
#include "screen/MouseHeaderLabel.h"

namespace veygrid {

namespace {

struct RegionCursor {
    HitCode hit;
    CursorId cursor;
};

// Regions with a cursor of their own. The rim of the selection frame shows its cursor also where
// moving is not allowed.
constexpr std::array<RegionCursor, 6> RegionCursors{{
    {HitCode::HitRowEdge, CursorId::SizeNS},
    {HitCode::HitColEdge, CursorId::SizeWE},
    {HitCode::HitRowHeader, CursorId::RowHeader},
    {HitCode::HitColHeader, CursorId::ColHeader},
    {HitCode::HitCorner, CursorId::Corner},
    {HitCode::HitSelFrame, CursorId::Move},
}};

constexpr bool IsSelecting(MouseState state) {
    return state >= MouseState::MouseSelectAll && state <= MouseState::MouseSelectCells;
}
constexpr bool IsResizing(MouseState state) {
    return state == MouseState::MouseResizeRow || state == MouseState::MouseResizeCol;
}

}  // namespace

bool MouseMachine::OnLButtonDown(std::uint32_t flags, Point point) {
    // The release of an earlier press was lost.
    CancelDrag();
    if (m_parts.design.GuiDesignMode()) {
        return PressDesign(flags, point);
    }
    if (m_parts.store.Properties.GuiMode) {
        return true;
    }
    PressSheet(flags, point);
    return false;
}

bool MouseMachine::PressDesign(std::uint32_t flags, Point point) {
    const DesignPress press = m_parts.design.OnPress(flags, point);
    if (press.dragsObjects) {
        m_track.m_nMouseState = MouseState::MouseMoveObjects;
    }
    m_track.m_ptPress = point;
    m_track.m_ptLast = point;
    return press.runsBase;
}

void MouseMachine::PressSheet(std::uint32_t flags, Point point) {
    m_parts.control.SetFocus();
    if (m_parts.editor.InEdit()) {
        return;
    }
    const Layout& layout = m_parts.layout;
    const CellPos cell = layout.PosToCell(point);
    BeginGesture(layout.HitTest(point), cell, flags, point);
    // Behind the gesture, for Shift reaches from the press before.
    RememberPress(cell, point);
    if (!layout.m_rcSelFrame.IsRectNull()) {
        m_parts.control.InvalidateRect(layout.m_rcSelFrame);
    }
}

void MouseMachine::BeginGesture(HitCode hit, CellPos cell, std::uint32_t flags, Point point) {
    switch (hit) {
        case HitCode::HitOutside:
        case HitCode::HitNowhere:
            break;
        case HitCode::HitRowHeader:
        case HitCode::HitColHeader:
        case HitCode::HitCorner:
        case HitCode::HitCell:
            m_select.Press(hit, cell, flags);
            break;
        case HitCode::HitRowEdge:
            m_resize.Press(MouseState::MouseResizeRow, point);
            break;
        case HitCode::HitColEdge:
            m_resize.Press(MouseState::MouseResizeCol, point);
            break;
        case HitCode::HitSelFrame:
            m_cellMove.Press();
            break;
    }
}

void MouseMachine::RememberPress(CellPos cell, Point point) {
    m_track.m_ptPress = point;
    m_track.m_ptLast = point;
    m_track.m_nPressRow = cell.Row;
    m_track.m_nPressCol = cell.Col;
}

void MouseMachine::OnMouseMove(std::uint32_t flags, Point point) {
    if (m_parts.design.GuiDesignMode()) {
        DragDesign(point);
    } else if (m_parts.store.Properties.GuiMode) {
        return;
    } else if ((flags & MkLButton) != 0) {
        DragSheet(point);
    }
    m_track.m_ptLast = point;
}

// Drawn twice the rectangles are gone: once where they were, once where they are.
void MouseMachine::DragDesign(Point point) {
    if (m_track.m_nMouseState != MouseState::MouseMoveObjects) {
        return;
    }
    m_parts.control.SetCursor(CursorId::Move);
    const std::unique_ptr<Surface> surface = m_parts.control.GetDC();
    for (const Point at : {m_track.m_ptLast, point}) {
        m_parts.design.DrawDragRects(*surface, WrapSub(at.x, m_track.m_ptPress.x),
                                     WrapSub(at.y, m_track.m_ptPress.y));
    }
}

void MouseMachine::DragSheet(Point point) {
    const MouseState state = m_track.m_nMouseState;
    if (IsSelecting(state)) {
        m_select.Drag(m_parts.layout.PosToCell(point));
    } else if (IsResizing(state)) {
        m_resize.Drag(state, point);
    } else if (state == MouseState::MouseMoveCells) {
        m_cellMove.Drag(m_parts.layout.PosToCell(point), point);
    }
}

// The gesture is over before it is carried out, so that a host that calls back from an event, or
// an exception, finds an idle mouse.
void MouseMachine::OnLButtonUp(std::uint32_t flags, Point point) {
    const MouseState state = m_track.m_nMouseState;
    const CellRange dragged = m_parts.selection.DragRange;
    EndGesture();
    if (m_parts.store.Properties.GuiMode && !m_parts.design.GuiDesignMode()) {
        m_cellMove.m_rcMoveFrame = {};
        return;
    }
    Finish(state, dragged, flags, point);
    m_parts.host.DrawSelectionFrame(*m_parts.control.GetDC());
}

void MouseMachine::Finish(MouseState state, const CellRange& dragged, std::uint32_t flags,
                          Point point) {
    if (IsSelecting(state)) {
        m_select.Release(dragged);
    } else if (IsResizing(state)) {
        m_resize.Release(state, point);
    } else if (state == MouseState::MouseMoveCells) {
        m_cellMove.Release();
    } else if (state == MouseState::MouseMoveObjects && (flags & MkControl) == 0) {
        m_parts.design.MoveSelectedBy(WrapSub(point.x, m_track.m_ptPress.x),
                                      WrapSub(point.y, m_track.m_ptPress.y));
    }
}

void MouseMachine::EndGesture() {
    const bool isSheet = !m_parts.store.Properties.GuiMode && !m_parts.design.GuiDesignMode();
    if (isSheet || m_track.isConfined) {
        m_parts.control.ClipCursor(nullptr);
    }
    m_track.isConfined = false;
    m_track.m_nMouseState = MouseState::MouseIdle;
    m_parts.selection.DragRange = {};
}

void MouseMachine::CancelDrag() {
    const MouseState state = m_track.m_nMouseState;
    if (state == MouseState::MouseIdle) {
        return;
    }
    const CellRange& dragged = m_parts.selection.DragRange;
    const bool showsNothing =
        IsSelecting(state) && (dragged.IsEmpty() || dragged == m_parts.selection.ActiveCellRange());
    EndGesture();
    m_cellMove.m_rcMoveFrame = {};
    if (!showsNothing) {
        m_parts.store.Watcher().InvalidateControl();
    }
}

bool MouseMachine::OnLButtonDblClk(Point point) {
    m_parts.host.FireDblClick();
    if (m_parts.store.Properties.GuiMode || m_parts.design.GuiDesignMode()) {
        return m_parts.store.Properties.GuiMode;
    }
    const CellPos cell = m_parts.layout.PosToCell(point);
    switch (m_parts.layout.HitTest(point)) {
        case HitCode::HitRowHeader:
            EditHeaderLabel(m_parts, LabelType::RowHeader, cell.Row);
            break;
        case HitCode::HitColHeader:
            EditHeaderLabel(m_parts, LabelType::ColHeader, cell.Col);
            break;
        case HitCode::HitCell:
            DoubleClickCell(point);
            break;
        default:
            break;
    }
    return false;
}

void MouseMachine::DoubleClickCell(Point point) {
    if (!m_parts.store.Properties.AllowEdit || m_parts.editor.InEdit()) {
        return;
    }
    m_parts.editor.StartEdit();
    if (m_parts.editor.InEdit()) {
        m_parts.editor.PlaceCaret(point);
    }
}

bool MouseMachine::OnSetCursor(Point point) {
    const MouseState state = m_track.m_nMouseState;
    const bool isIdle = state == MouseState::MouseIdle;
    if (isIdle && !m_parts.store.Properties.GuiMode) {
        return SetRegionCursor(m_parts.layout.HitTest(point));
    }
    if (IsResizing(state)) {
        m_parts.control.SetCursor(MouseResize::CursorOf(state));
        return true;
    }
    if (isIdle && m_parts.design.GuiDesignMode()) {
        m_parts.design.SetDesignCursor(point);
        return true;
    }
    return false;
}

std::int32_t MouseMachine::OnDragOver(std::uint32_t kind, Point point) {
    if (kind != DraggedItem || m_parts.layout.HitTest(point) == HitCode::HitOutside) {
        return 0;
    }
    m_parts.control.SetCursor(CursorId::Arrow);
    return 1;
}

bool MouseMachine::SetRegionCursor(HitCode hit) {
    const auto* const found =
        std::find_if(RegionCursors.begin(), RegionCursors.end(),
                     [hit](const RegionCursor& region) { return region.hit == hit; });
    if (found == RegionCursors.end()) {
        return false;
    }
    m_parts.control.SetCursor(found->cursor);
    return true;
}

}  // namespace veygrid
