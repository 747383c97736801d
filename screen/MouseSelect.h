// Selecting with the mouse: rows, columns, cells or the whole sheet.
#pragma once

#include <cstdint>

#include "grid/CellRange.h"
#include "screen/MouseParts.h"

namespace veygrid {

// During a drag nothing is repainted: the selection is inverted before and after each change.
class MouseSelect {
  public:
    MouseSelect(const MouseParts& parts, MouseTrack& track) : m_parts(parts), m_track(track) {}

    // A press on a header, the corner or a cell. `flags` as the message carries them.
    void Press(HitCode hit, CellPos cell, std::uint32_t flags);
    void Drag(CellPos cell);
    // Appends the dragged range to the list, and the active cell when no record covers it. A plain
    // click on a cell thus leaves the list empty.
    void Release(const CellRange& dragged);
    // Shows another range as the dragged one.
    void Redraw(const CellRange& range);

  private:
    struct Region;
    static const Region& RegionOf(HitCode hit);
    static CellRange RangeOf(const Region& region, CellPos from, CellPos to);

    void Select(const Region& region, CellPos cell, std::uint32_t flags);
    void SelectAnew(const Region& region, CellPos cell);
    void SelectCellAnew(CellPos cell);
    bool TogglesRowMark();
    void OpenEditor(CellPos cell);

    const MouseParts& m_parts;
    MouseTrack& m_track;
};

}  // namespace veygrid
