// Dragging the selected range by its frame to another place.
#pragma once

#include <cstdint>
#include <optional>

#include "grid/CellRange.h"
#include "screen/MouseParts.h"

namespace veygrid {

// When a drag last scrolled the sheet by itself, in ticks; all controls of a process share one.
using AutoScrollTicks = std::optional<std::uint32_t>;

// A frame of focus rectangles follows the pointer, which stays over the cells.
class MouseCellMove {
  public:
    static constexpr std::uint32_t AutoScrollPause = 200;  // milliseconds
    static constexpr std::int32_t AutoScrollBand = 10;     // pixels

    MouseCellMove(const MouseParts& parts, MouseTrack& track, AutoScrollTicks& ticks)
        : m_parts(parts), m_track(track), m_ticksAutoScroll(ticks) {}

    void Press();
    void Drag(CellPos cell, Point point);
    // Moves the range to the frame; Ctrl down now makes it a copy.
    void Release();

    // Where the range would go; empty while it has not moved.
    CellRange m_rcMoveFrame;

  private:
    CellRange MovedRange() const;
    bool IsAllowed() const;
    CellRange FrameAt(CellPos cell) const;
    void DrawFrame(Surface& surface, const CellRange& frame) const;
    void AutoScroll(Point point);
    void MoveTo(CellPos target);

    const MouseParts& m_parts;
    MouseTrack& m_track;
    AutoScrollTicks& m_ticksAutoScroll;
};

}  // namespace veygrid
