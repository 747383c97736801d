// Dragging the border of a row or column, or of the headers.
#include "screen/MouseResize.h"

#include <algorithm>
#include <memory>

namespace veygrid {

namespace {

// The axis of the lines that the state resizes.
constexpr Axis AxisOf(MouseState state) {
    return state == MouseState::MouseResizeRow ? Axis::Rows : Axis::Cols;
}

}  // namespace

Rect MouseResize::LineAt(Axis axis, Point point) {
    Rect line = m_parts.control.GetClientRect();
    if (axis == Axis::Rows) {
        line.top = point.y;
        line.bottom = WrapAdd(point.y, 1);
    } else {
        line.left = point.x;
        line.right = WrapAdd(point.x, 1);
    }
    return line;
}

void MouseResize::Press(MouseState state, Point point) {
    if (!m_parts.store.Properties.AllowResize) {
        return;
    }
    m_parts.control.SetCursor(CursorOf(state));
    m_track.m_nMouseState = state;
    m_parts.control.GetDC()->InvertRect(LineAt(AxisOf(state), point));
    const Rect screen = m_parts.control.ClientToScreen(m_parts.control.GetClientRect());
    m_parts.control.ClipCursor(&screen);
    m_track.isConfined = true;
}

void MouseResize::Drag(MouseState state, Point point) {
    const std::unique_ptr<Surface> surface = m_parts.control.GetDC();
    surface->InvertRect(LineAt(AxisOf(state), m_track.m_ptLast));
    surface->InvertRect(LineAt(AxisOf(state), point));
}

void MouseResize::Release(MouseState state, Point point) {
    m_parts.control.GetDC()->InvertRect(LineAt(AxisOf(state), m_track.m_ptLast));
    if (point != m_track.m_ptPress && Resize(AxisOf(state), point)) {
        m_parts.store.SetModifiedAndNotify(true);
        m_parts.store.Watcher().InvalidateControl();
    }
}

// A border belongs to the line in front of it: the press was at the far side of its own line, or at
// the near side of the line behind. False when nothing was resized.
bool MouseResize::Resize(Axis axis, Point point) {
    const Layout& layout = m_parts.layout;
    std::int32_t line = LineOf({m_track.m_nPressRow, m_track.m_nPressCol}, axis);
    if (line == 0) {
        return false;
    }
    const std::int32_t grabbed = WrapSub(Across(m_track.m_ptPress, axis), BeginOf(axis, line));
    if (grabbed <= layout.m_nResizeMargin) {
        const std::int32_t first = LineOf({layout.FirstVisibleRow, layout.FirstVisibleCol}, axis);
        if (line <= first) {
            return line == first && ResizeHeaders(axis, Across(point, axis));
        }
        --line;
    }
    const std::int32_t size = std::max(WrapSub(Across(point, axis), BeginOf(axis, line)), 0);
    if (axis == Axis::Rows) {
        m_parts.store.SetRowHeight(line, size);
    } else {
        m_parts.store.SetColWidth(line, size);
    }
    return true;
}

bool MouseResize::ResizeHeaders(Axis axis, std::int32_t size) {
    GridProperties& properties = m_parts.store.Properties;
    if (!(axis == Axis::Rows ? properties.ShowColHeaders : properties.ShowRowHeaders)) {
        return false;
    }
    (axis == Axis::Rows ? properties.ColHeaderHeight : properties.RowHeaderWidth) = size;
    return true;
}

// Where the line begins on view.
std::int32_t MouseResize::BeginOf(Axis axis, std::int32_t line) const {
    const Layout& layout = m_parts.layout;
    return axis == Axis::Rows ? layout.CellRect(line, layout.FirstVisibleCol).top
                              : layout.CellRect(layout.FirstVisibleRow, line).left;
}

}  // namespace veygrid
