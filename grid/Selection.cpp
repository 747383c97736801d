// The active cell, the list of selected ranges, and the rows ticked in row mode.
#include "grid/Selection.h"

#include <algorithm>
#include <string>

#include "grid/Messages.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

const std::string& SaveFailedText() {
    static const std::string text = CodePage936FromUtf16(u"当前记录存盘失败!");
    return text;
}

}  // namespace

void Selection::GetActiveCell(std::int32_t* row, std::int32_t* col) const {
    if (row != nullptr) {
        *row = m_store.ActiveRow;
    }
    if (col != nullptr) {
        *col = m_store.ActiveCol;
    }
}

void Selection::SetActiveCell(std::int32_t row, std::int32_t col) {
    const GridProperties& properties = m_store.Properties;
    if (row < 0 || col < 0 || row > properties.MaxRow || col > properties.MaxCol ||
        !MayMoveTo(row, col)) {
        return;
    }
    if (properties.GuiMode) {
        m_store.ActiveRow = row;
        m_store.ActiveCol = col;
        return;
    }
    MoveAndInvalidate(row, col);
    if (m_host.HasWindow()) {
        m_host.FireCellSelChanged();
    }
    m_host.InvalidateHeaderCorner();
}

// Without a window there is nobody to ask.
bool Selection::MayMoveTo(std::int32_t row, std::int32_t col) {
    if (!m_host.HasWindow()) {
        return true;
    }
    std::int16_t allowChange = 1;
    m_host.FireCellSelChanging(row, col, allowChange);
    return allowChange != 0 && m_host.SendCellSelChange(row, col) != CellSelChangeRefused;
}

void Selection::MoveAndInvalidate(std::int32_t row, std::int32_t col) {
    InvalidateActive();
    m_store.ActiveRow = row;
    m_store.ActiveCol = col;
    InvalidateActive();
}

void Selection::InvalidateActive() {
    if (m_store.Properties.RowMode) {
        m_host.InvalidateActiveRowStrip(m_store.ActiveRow);
    } else {
        m_host.InvalidateActiveCellAreas({m_store.ActiveRow, m_store.ActiveCol});
    }
}

std::int32_t Selection::OnCellSelChange(std::int32_t row, std::int32_t col) {
    if (!SaveOnLeaving(row)) {
        m_host.ShowMessage(SaveFailedText(), StopMessageStyle);
        return CellSelChangeRefused;
    }
    m_store.Watcher().PostCellSelChange(row, col);
    return CellSelChangeDone;
}

// False when the record of the row that is left could not be saved.
bool Selection::SaveOnLeaving(std::int32_t newRow) {
    const bool nothingToSave = newRow == m_store.ActiveRow || m_store.Log.IsEmpty() ||
                               m_store.Properties.DataSource.empty();
    return nothingToSave || m_host.SaveRecord(newRow, 0) != CellSelChangeRefused;
}

void Selection::SetSelection(std::int32_t row1, std::int32_t col1, std::int32_t row2,
                             std::int32_t col2) {
    SelectionList.assign(1, CellRange{row1, col1, row2, col2}.Normalized());
    m_store.Watcher().InvalidateControl();
}

std::int32_t Selection::GetSelectionCount() const {
    return std::max(1, static_cast<std::int32_t>(SelectionList.size()));
}

bool Selection::GetSelection(std::int32_t index, CellRange& range) const {
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < SelectionList.size();
    range = exists ? SelectionList[static_cast<std::size_t>(index)] : ActiveCellRange();
    return true;
}

CellRange Selection::ActiveCellRange() const {
    return {m_store.ActiveRow, m_store.ActiveCol, m_store.ActiveRow, m_store.ActiveCol};
}

bool Selection::IsCellSelectedWith(const CellRange& dragRange, std::int32_t row,
                                   std::int32_t col) const {
    // An empty range is no range, though its zeroes would cover row 0.
    if (!dragRange.IsEmpty() && dragRange.Normalized().Covers(row, col)) {
        return true;
    }
    return std::any_of(SelectionList.begin(), SelectionList.end(),
                       [row, col](const CellRange& range) { return range.Covers(row, col); });
}

void Selection::ToggleCheckedRow(std::int32_t row) {
    if (std::erase(CheckedRowList, row) == 0) {
        CheckedRowList.push_back(row);
    }
}

bool Selection::IsRowChecked(std::int32_t row) const {
    return std::find(CheckedRowList.begin(), CheckedRowList.end(), row) != CheckedRowList.end();
}

}  // namespace veygrid
