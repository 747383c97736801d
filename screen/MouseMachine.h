// The left mouse button over the sheet: which gesture a press begins, and its end.
#pragma once

#include <cstdint>

#include "screen/MouseCellMove.h"
#include "screen/MouseParts.h"
#include "screen/MouseResize.h"
#include "screen/MouseSelect.h"

namespace veygrid {

// Points are client pixels, flags those of the message. Each handler tells whether the base class's
// handler, on which the stock events hang, is to run after it. The mouse is never captured.
class MouseMachine {
  public:
    // What MSG_DRAGOVER tells of, for the sheet to answer.
    static constexpr std::uint32_t DraggedItem = 32769;

    // All that the parts refer to must outlive the machine, and so must the ticks.
    MouseMachine(const MouseParts& parts, AutoScrollTicks& ticks)
        : m_parts(parts), m_cellMove(m_parts, m_track, ticks) {}
    MouseMachine(const MouseMachine&) = delete;
    MouseMachine& operator=(const MouseMachine&) = delete;

    // On the sheet the base class's handler does not run, so that its events are not raised there.
    bool OnLButtonDown(std::uint32_t flags, Point point);
    // The base class's handler always runs behind these two.
    void OnMouseMove(std::uint32_t flags, Point point);
    void OnLButtonUp(std::uint32_t flags, Point point);
    bool OnLButtonDblClk(Point point);
    // WM_SETCURSOR, with the cursor's position; true when it is answered here.
    bool OnSetCursor(Point point);

    // Handler of MSG_DRAGOVER: 1 when the thing that is dragged may come over the sheet here.
    std::int32_t OnDragOver(std::uint32_t kind, Point point);

    // Ends a gesture whose release will not come: the window goes, or something took the mouse.
    // Nothing of it is carried out.
    void CancelDrag();

    const MouseTrack& Track() const { return m_track; }
    // All zero while no move of cells has begun to show.
    const CellRange& MoveFrame() const { return m_cellMove.m_rcMoveFrame; }

  private:
    bool PressDesign(std::uint32_t flags, Point point);
    void PressSheet(std::uint32_t flags, Point point);
    void BeginGesture(HitCode hit, CellPos cell, std::uint32_t flags, Point point);
    void RememberPress(CellPos cell, Point point);
    void DragDesign(Point point);
    void DragSheet(Point point);
    void Finish(MouseState state, const CellRange& dragged, std::uint32_t flags, Point point);
    void EndGesture();
    void DoubleClickCell(Point point);
    bool SetRegionCursor(HitCode hit);

    MouseParts m_parts;
    MouseTrack m_track;
    MouseSelect m_select{m_parts, m_track};
    MouseResize m_resize{m_parts, m_track};
    MouseCellMove m_cellMove;
};

}  // namespace veygrid
