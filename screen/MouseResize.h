// Dragging the border of a row or column, or of the headers.
#pragma once

#include "grid/Axis.h"
#include "screen/MouseParts.h"

namespace veygrid {

// An inverted line of one pixel follows the pointer, which stays inside the control.
class MouseResize {
  public:
    MouseResize(const MouseParts& parts, MouseTrack& track) : m_parts(parts), m_track(track) {}

    static constexpr CursorId CursorOf(MouseState state) {
        return state == MouseState::MouseResizeRow ? CursorId::SizeNS : CursorId::SizeWE;
    }

    void Press(MouseState state, Point point);
    void Drag(MouseState state, Point point);
    void Release(MouseState state, Point point);

  private:
    Rect LineAt(Axis axis, Point point);
    bool Resize(Axis axis, Point point);
    bool ResizeHeaders(Axis axis, std::int32_t size);
    std::int32_t BeginOf(Axis axis, std::int32_t line) const;

    const MouseParts& m_parts;
    MouseTrack& m_track;
};

}  // namespace veygrid
