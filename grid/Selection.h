// The active cell, the list of selected ranges, and the rows ticked in row mode.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "grid/CellPos.h"
#include "grid/CellRange.h"
#include "grid/GridStore.h"

namespace veygrid {

// Answers to a change of the active cell and to the saving of a record.
inline constexpr std::int32_t CellSelChangeDone = 1;
inline constexpr std::int32_t CellSelChangeRefused = 7;

// What the selection asks of the control.
class SelectionHost {
  public:
    virtual ~SelectionHost() = default;

    virtual bool HasWindow() = 0;
    // The event; the host sets `allowChange` to 0 to refuse.
    virtual void FireCellSelChanging(std::int32_t newRow, std::int32_t newCol,
                                     std::int16_t& allowChange) = 0;
    virtual void FireCellSelChanged() = 0;
    // Sends the registered message to the control's own window, whose handler is
    // Selection::OnCellSelChange, and gives back its answer.
    virtual std::int32_t SendCellSelChange(std::int32_t row, std::int32_t col) = 0;

    // The strip of a row across the control, in row mode.
    virtual void InvalidateActiveRowStrip(std::int32_t row) = 0;
    // The cell, its row header strip and its column header strip.
    virtual void InvalidateActiveCellAreas(CellPos cell) = 0;
    // The corner of the headers, which shows the position.
    virtual void InvalidateHeaderCorner() = 0;

    // Handler of the message that saves the current record; CellSelChangeRefused when it failed.
    virtual std::int32_t SaveRecord(std::int32_t wParam, std::int32_t lParam) = 0;
    // A message box with MessageCaption, modal.
    virtual void ShowMessage(std::string_view text, std::int32_t style) = 0;
};

// The active cell always exists; the list may be empty. Neither is stored anywhere, and the list
// keeps its numbers when rows and columns come and go.
class Selection {
  public:
    // Store and host must outlive the selection.
    Selection(GridStore& store, SelectionHost& host) : m_store(store), m_host(host) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

    // Each pointer may be null.
    void GetActiveCell(std::int32_t* row, std::int32_t* col) const;
    // Row 0 to `MaxRow` and column 0 to `MaxCol`, else nothing happens. The host and the handler of
    // the message may refuse. In GUI mode the cell moves without a repaint and without the closing
    // event. Neither selects nor scrolls.
    void SetActiveCell(std::int32_t row, std::int32_t col);
    // Handler of the message that the active cell goes to (row, col): lets the current record be
    // saved, then passes the message on to the form objects.
    std::int32_t OnCellSelChange(std::int32_t row, std::int32_t col);

    // Makes the normalised range the only selected one.
    void SetSelection(std::int32_t row1, std::int32_t col1, std::int32_t row2, std::int32_t col2);
    // 1 for an empty list too: the active cell then counts as the selection.
    std::int32_t GetSelectionCount() const;
    // The record with the 0-based index, or the active cell when there is none. Always true.
    bool GetSelection(std::int32_t index, CellRange& range) const;
    bool IsCellSelected(std::int32_t row, std::int32_t col) const {
        return IsCellSelectedWith(DragRange, row, col);
    }
    // The same if the mouse drew another range.
    bool IsCellSelectedWith(const CellRange& dragRange, std::int32_t row, std::int32_t col) const;
    CellRange ActiveCellRange() const;

    // Ticks the row, or takes its tick away.
    void ToggleCheckedRow(std::int32_t row);
    bool IsRowChecked(std::int32_t row) const;

    // New ranges are appended normalised.
    std::vector<CellRange> SelectionList;
    // The range that the mouse draws; it counts as selected while it is not empty.
    CellRange DragRange;
    // In the order of ticking, without duplicates.
    std::vector<std::int32_t> CheckedRowList;

  private:
    bool MayMoveTo(std::int32_t row, std::int32_t col);
    void MoveAndInvalidate(std::int32_t row, std::int32_t col);
    void InvalidateActive();
    bool SaveOnLeaving(std::int32_t newRow);

    GridStore& m_store;
    SelectionHost& m_host;
};

}  // namespace veygrid
