// Selecting with the mouse: rows, columns, cells or the whole sheet.
#include "screen/MouseSelect.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "platform/InputMessage.h"

namespace veygrid {

// Which positions of a press make up the range; the corner's has none and is the whole sheet.
struct MouseSelect::Region {
    HitCode hit;
    MouseState state;
    bool hasRows;
    bool hasCols;
};

const MouseSelect::Region& MouseSelect::RegionOf(HitCode hit) {
    static constexpr std::array<Region, 4> Regions{{
        {HitCode::HitCorner, MouseState::MouseSelectAll, false, false},
        {HitCode::HitColHeader, MouseState::MouseSelectCols, false, true},
        {HitCode::HitRowHeader, MouseState::MouseSelectRows, true, false},
        {HitCode::HitCell, MouseState::MouseSelectCells, true, true},
    }};
    return *std::find_if(Regions.begin(), Regions.end() - 1,
                         [hit](const Region& region) { return region.hit == hit; });
}

CellRange MouseSelect::RangeOf(const Region& region, CellPos from, CellPos to) {
    if (!region.hasRows && !region.hasCols) {
        return CellRange::WholeSheet();
    }
    CellRange range;
    if (region.hasRows) {
        range.Row1 = from.Row;
        range.Row2 = to.Row;
    }
    if (region.hasCols) {
        range.Col1 = from.Col;
        range.Col2 = to.Col;
    }
    return range;
}

void MouseSelect::Press(HitCode hit, CellPos cell, std::uint32_t flags) {
    if (m_parts.store.Properties.AllowSelections) {
        const Region& region = RegionOf(hit);
        m_track.m_nMouseState = region.state;
        Select(region, cell, flags);
    }
    if (hit == HitCode::HitCell) {
        OpenEditor(cell);
    }
}

// Shift wins over Ctrl; the corner knows neither.
void MouseSelect::Select(const Region& region, CellPos cell, std::uint32_t flags) {
    const bool takesKeys = region.state != MouseState::MouseSelectAll;
    if (takesKeys && (flags & MkShift) != 0) {
        Redraw(RangeOf(region, {m_track.m_nPressRow, m_track.m_nPressCol}, cell));
    } else if (takesKeys && (flags & MkControl) != 0) {
        Redraw(RangeOf(region, cell, cell));
    } else if (region.state == MouseState::MouseSelectCells) {
        SelectCellAnew(cell);
    } else {
        SelectAnew(region, cell);
    }
}

void MouseSelect::SelectAnew(const Region& region, CellPos cell) {
    Selection& selection = m_parts.selection;
    const std::unique_ptr<Surface> surface = m_parts.control.GetDC();
    m_parts.host.InvertSelection(*surface);
    selection.SelectionList.clear();
    if (region.hasRows || region.hasCols) {
        selection.SetActiveCell(region.hasRows ? cell.Row : m_parts.store.ActiveRow,
                                region.hasCols ? cell.Col : m_parts.store.ActiveCol);
    }
    // A host may have let the button come up in an event.
    if (m_track.m_nMouseState == region.state) {
        selection.DragRange = RangeOf(region, cell, cell);
    }
    m_parts.host.InvertSelection(*surface);
}

void MouseSelect::SelectCellAnew(CellPos cell) {
    Selection& selection = m_parts.selection;
    if (TogglesRowMark()) {
        selection.ToggleCheckedRow(cell.Row);
        m_parts.store.Watcher().InvalidateRowHeaderStrip(cell.Row);
        return;
    }
    if (!selection.SelectionList.empty()) {
        m_parts.store.Watcher().InvalidateControl();
    }
    selection.SelectionList.clear();
    selection.SetActiveCell(cell.Row, cell.Col);
    if (m_track.m_nMouseState == MouseState::MouseSelectCells) {
        selection.DragRange = {cell.Row, cell.Col, cell.Row, cell.Col};
    }
}

bool MouseSelect::TogglesRowMark() {
    return m_parts.store.Properties.RowMode && m_parts.control.GetKeyState(VkMenu) < 0;
}

// Opens also where nothing may be selected.
void MouseSelect::OpenEditor(CellPos cell) {
    const GridProperties& properties = m_parts.store.Properties;
    if (!m_parts.store.EffectiveFormatRef(cell.Row, cell.Col).GetReadOnly() &&
        properties.AllowEdit && properties.AlwaysOnEdit) {
        m_parts.selection.SetActiveCell(cell.Row, cell.Col);
        m_parts.editor.StartEdit();
    }
}

void MouseSelect::Redraw(const CellRange& range) {
    const CellRange former = std::exchange(m_parts.selection.DragRange, range);
    m_parts.host.InvertSelectionChange(*m_parts.control.GetDC(), former);
}

// A row drag that strays over the cells widens to them, on purpose; a column drag watches columns
// only, and the whole sheet cannot change.
void MouseSelect::Drag(CellPos cell) {
    const MouseState state = m_track.m_nMouseState;
    CellRange range = m_parts.selection.DragRange;
    if (state == MouseState::MouseSelectRows && range.Row2 != cell.Row) {
        range.Row2 = cell.Row;
        Redraw(range);
    }
    if (state == MouseState::MouseSelectCells || state == MouseState::MouseSelectRows) {
        range.Row2 = cell.Row;
    }
    if (state != MouseState::MouseSelectAll) {
        range.Col2 = cell.Col;
    }
    if (range != m_parts.selection.DragRange) {
        Redraw(range);
    }
}

void MouseSelect::Release(const CellRange& dragged) {
    Selection& selection = m_parts.selection;
    if (dragged.IsEmpty() || dragged == selection.ActiveCellRange()) {
        return;
    }
    selection.SelectionList.push_back(dragged.Normalized());
    if (!selection.IsCellSelected(m_parts.store.ActiveRow, m_parts.store.ActiveCol)) {
        selection.SelectionList.push_back(selection.ActiveCellRange());
    }
}

}  // namespace veygrid
