// Insertion and deletion of rows and columns, clearing of ranges, and the move of a dragged range.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "grid/CellRange.h"
#include "grid/GridStore.h"
#include "grid/MoveEntries.h"
#include "grid/RenumberMap.h"
#include "grid/Selection.h"

namespace veygrid {

enum class RecordDeletion { Deleted, MissingKey, Failed };

// What row and column operations ask of the control.
class RowColumnHost {
  public:
    virtual ~RowColumnHost() = default;

    // Deletes the record of the active row from each table of the query.
    virtual RecordDeletion DeleteBoundRecord() = 0;
    // Writes the SELECT statement anew from the names of the columns.
    virtual void RebuildDataSource() = 0;
    virtual void RunQuery(std::int16_t getAllRecords) = 0;
    // A message box with MessageCaption, modal.
    virtual void ShowMessage(std::string_view text, std::int32_t style) = 0;
};

// Values of `nClearType`; any other clears nothing.
enum class ClearType : std::int16_t { All = 0, Formats = 1, Texts = 2 };

// Rows and columns were never alike here: which maps follow, which limits hold and which counter
// changes differ on purpose. Starts outside their bounds are ignored without a word. None of the
// operations sets the modified flag; each ends with one repaint of the control. Any count is taken;
// what leaves 32 bits wraps.
class RowColumnOperations {
  public:
    // No row beyond this comes from an insertion, and columns no longer grow from it on.
    static constexpr std::int32_t LineLimit = 65535;
    // An insertion logs this many of its lines at most, far more than a sheet has.
    static constexpr std::int32_t MaxLoggedLines = 1 << 20;

    // All three must outlive the operations.
    RowColumnOperations(GridStore& store, Selection& selection, RowColumnHost& host)
        : m_store(store), m_selection(selection), m_host(host) {}

    // Start from 1 to `MaxRow` + 1. Moves the active cell to the start.
    void InsertRows(std::int32_t startRow, std::int32_t rows);
    // Start from 1 to `LastRow`. In a bound query the record of the active row, whatever the start,
    // is deleted from the database first; on failure the sheet stays untouched. `MaxRow` falls by
    // one however many rows go.
    void DeleteRows(std::int32_t startRow, std::int32_t rows);
    // Start from 1 to `LastCol`.
    void InsertCols(std::int32_t startCol, std::int32_t cols);
    // Start from 1 to `LastCol`. It is `MaxRow` that falls by one, not `MaxCol`.
    void DeleteCols(std::int32_t startCol, std::int32_t cols);
    // Bounds as they stand: reversed ones clear nothing. See CellRange::Covers.
    void ClearRange(std::int32_t row1, std::int32_t col1, std::int32_t row2, std::int32_t col2,
                    std::int16_t clearType);
    // The range as it stands, not normalised. Throws std::length_error, as memory would fail, when
    // a copied block that overlaps its target makes more than MaxBlockCopies entries in a map.
    void MoveCells(const CellRange& range, std::int32_t targetRow, std::int32_t targetCol,
                   bool copy);

    // The menu's commands, on the first selected range or the active cell.
    void InsertRowCommand();
    void DeleteRowCommand();
    void InsertColCommand();
    void DeleteColCommand();

  private:
    void RenumberRows(const Renumbering& renumbering);
    void RenumberCols(const Renumbering& renumbering);
    void RenumberLog(Axis axis, const Renumbering& renumbering);
    void RenumberCheckedRows(const Renumbering& renumbering);
    void LogInsertedLines(Axis axis, std::int32_t start, std::int32_t count);
    bool IsBoundQuery() const;
    bool RefusesTableChange();
    bool DeleteBoundRecord();
    void ColumnsChanged();
    void MoveLineMaps(const CellMove& move);
    void RepaintAll();

    struct LineRun {
        std::int32_t start;
        std::int32_t count;
    };
    using Operation = void (RowColumnOperations::*)(std::int32_t start, std::int32_t count);
    // The lines that a command works on; nothing when the whole sheet is selected.
    std::optional<LineRun> CommandLines(Axis axis, std::int32_t activeLine) const;
    void RunCommand(Operation operation, const std::optional<LineRun>& lines);
    void RunRowCommand(Operation operation, std::int32_t activeRow);

    GridStore& m_store;
    Selection& m_selection;
    RowColumnHost& m_host;
};

}  // namespace veygrid
