// Insertion and deletion of rows and columns, clearing of ranges, and the move of a dragged range.
#include "grid/RowColumnOperations.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "grid/Messages.h"
#include "grid/MoveEntries.h"
#include "grid/RangeKeys.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

const std::string& TableReadOnlyText() {
    static const std::string text = CodePage936FromUtf16(u"您不能修改表数据!");
    return text;
}

const std::string& MissingKeyText() {
    static const std::string text = CodePage936FromUtf16(u"删除记录缺少行唯一标志,操作失败!");
    return text;
}

const std::string& DeletionFailedText() {
    static const std::string text = CodePage936FromUtf16(u"删除记录失败!");
    return text;
}

Renumbering Insertion(std::int32_t start, std::int32_t count) {
    return {RenumberOperation::Insert, start, count};
}

Renumbering Deletion(std::int32_t start, std::int32_t count) {
    return {RenumberOperation::Delete, start, count};
}

std::int32_t GrownRows(std::int32_t rows, std::int32_t by) {
    constexpr std::int64_t Limit = RowColumnOperations::LineLimit;
    return static_cast<std::int32_t>(std::min(std::int64_t{rows} + by, Limit));
}

template <class Value>
void ClearCellsInRange(GridMap<Value>& map, const CellRange& range) {
    if (range.IsWholeSheet()) {
        map.RemoveAll();
        return;
    }
    for (const CellPos& key : KeysCovered(map, range)) {
        map.Remove(key);
    }
}

// Line that the last line of the range comes to.
std::int32_t LastTargetLine(const CellMove& move, Axis axis) {
    const LineSpan source = LinesOf(move.range, axis);
    return static_cast<std::int32_t>(LineOf(move.target, axis) + source.Count() - 1);
}

}  // namespace

void RowColumnOperations::InsertRows(std::int32_t startRow, std::int32_t rows) {
    GridProperties& properties = m_store.Properties;
    if (startRow < 1 || startRow > std::int64_t{properties.MaxRow} + 1) {
        return;
    }
    properties.MaxRow = GrownRows(properties.MaxRow, rows);
    properties.LastRow = GrownRows(properties.LastRow, rows);
    m_selection.SetActiveCell(startRow, std::max(m_store.ActiveCol, 1));
    RenumberRows(Insertion(startRow, rows));
    LogInsertedLines(Axis::Rows, startRow, rows);
    RenumberCheckedRows(Insertion(startRow, rows));
    RepaintAll();
}

void RowColumnOperations::DeleteRows(std::int32_t startRow, std::int32_t rows) {
    GridProperties& properties = m_store.Properties;
    if (startRow < 1 || startRow > properties.LastRow || !DeleteBoundRecord()) {
        return;
    }
    if (properties.MaxRow > 0) {
        --properties.MaxRow;
    }
    RenumberRows(Deletion(startRow, rows));
    RenumberCheckedRows(Deletion(startRow, rows));
    RepaintAll();
}

void RowColumnOperations::InsertCols(std::int32_t startCol, std::int32_t cols) {
    GridProperties& properties = m_store.Properties;
    if (startCol < 1 || startCol > properties.LastCol) {
        return;
    }
    // Unlike rows, columns may pass the limit once; `LastCol` stays.
    if (properties.MaxCol < LineLimit) {
        properties.MaxCol = WrapAdd(properties.MaxCol, cols);
    }
    RenumberCols(Insertion(startCol, cols));
    LogInsertedLines(Axis::Cols, startCol, cols);
    RepaintAll();
}

void RowColumnOperations::DeleteCols(std::int32_t startCol, std::int32_t cols) {
    GridProperties& properties = m_store.Properties;
    if (startCol < 1 || startCol > properties.LastCol) {
        return;
    }
    // A row less for columns gone: on purpose.
    if (properties.MaxCol > 0) {
        properties.MaxRow = WrapSub(properties.MaxRow, 1);
    }
    RenumberCols(Deletion(startCol, cols));
    ColumnsChanged();
    RepaintAll();
}

// `RowHeaderMap` is left out: a row header belongs to the position, not to the row's content.
void RowColumnOperations::RenumberRows(const Renumbering& renumbering) {
    RenumberMap(m_store.CellTextMap, Axis::Rows, renumbering);
    RenumberMap(m_store.CellFormatMap, Axis::Rows, renumbering);
    RenumberMap(m_store.RowHeightMap, Axis::Rows, renumbering);
    RenumberMap(m_store.RowNameMap, Axis::Rows, renumbering);
    RenumberMap(m_store.RowInfoMap, Axis::Rows, renumbering);
    RenumberLog(Axis::Rows, renumbering);
}

void RowColumnOperations::RenumberCols(const Renumbering& renumbering) {
    RenumberMap(m_store.CellTextMap, Axis::Cols, renumbering);
    RenumberMap(m_store.CellFormatMap, Axis::Cols, renumbering);
    RenumberMap(m_store.ColHeaderMap, Axis::Cols, renumbering);
    RenumberMap(m_store.ColWidthMap, Axis::Cols, renumbering);
    RenumberMap(m_store.ColNameMap, Axis::Cols, renumbering);
    RenumberMap(m_store.ColInfoMap, Axis::Cols, renumbering);
    RenumberLog(Axis::Cols, renumbering);
}

// In modes that log nothing too, as long as the mode is not 0.
void RowColumnOperations::RenumberLog(Axis axis, const Renumbering& renumbering) {
    if (m_store.Properties.ModifiedLog != 0) {
        RenumberMap(m_store.Log.ModifiedLogMap, axis, renumbering);
    }
}

void RowColumnOperations::RenumberCheckedRows(const Renumbering& renumbering) {
    if (!m_store.Properties.RowMode) {
        return;
    }
    std::vector<std::int32_t> kept;
    for (const std::int32_t row : m_selection.CheckedRowList) {
        if (const std::optional<std::int32_t> line = renumbering.NewLine(row)) {
            kept.push_back(*line);
        }
    }
    m_selection.CheckedRowList = std::move(kept);
}

void RowColumnOperations::LogInsertedLines(Axis axis, std::int32_t start, std::int32_t count) {
    const CellPos active{m_store.ActiveRow, m_store.ActiveCol};
    for (std::int32_t i = 0; i < std::min(count, MaxLoggedLines); ++i) {
        const CellPos key = WithLine(active, axis, WrapAdd(start, i));
        m_store.LogModification(key.Row, key.Col, ModifiedType::Insert);
    }
}

bool RowColumnOperations::IsBoundQuery() const {
    return m_store.QueryBound && !m_store.Properties.DataSource.empty();
}

// True, with a message, when the rows of a bound query must not change.
bool RowColumnOperations::RefusesTableChange() {
    if (!IsBoundQuery() || m_store.Switches.CanWriteTable) {
        return false;
    }
    m_host.ShowMessage(TableReadOnlyText(), StopMessageStyle);
    return true;
}

// False when the operation must end; always true for a sheet without a bound query.
bool RowColumnOperations::DeleteBoundRecord() {
    if (RefusesTableChange()) {
        return false;
    }
    if (!IsBoundQuery()) {
        return true;
    }
    const RecordDeletion outcome = m_host.DeleteBoundRecord();
    if (outcome != RecordDeletion::Deleted) {
        m_host.ShowMessage(
            outcome == RecordDeletion::MissingKey ? MissingKeyText() : DeletionFailedText(),
            StopMessageStyle);
        return false;
    }
    m_selection.SelectionList.clear();
    m_store.Log.ResetModifiedLog();
    return true;
}

void RowColumnOperations::ColumnsChanged() {
    if (!m_store.Properties.DataSource.empty()) {
        m_host.RebuildDataSource();
        m_host.RunQuery(0);
    }
}

void RowColumnOperations::RepaintAll() {
    m_store.Watcher().InvalidateControl();
}

void RowColumnOperations::ClearRange(std::int32_t row1, std::int32_t col1, std::int32_t row2,
                                     std::int32_t col2, std::int16_t clearType) {
    const CellRange range{row1, col1, row2, col2};
    const auto type = static_cast<ClearType>(clearType);
    if (type == ClearType::All || type == ClearType::Formats) {
        ClearCellsInRange(m_store.CellFormatMap, range);
    }
    if (type == ClearType::All || type == ClearType::Texts) {
        ClearCellsInRange(m_store.CellTextMap, range);
    }
    RepaintAll();
}

void RowColumnOperations::MoveCells(const CellRange& range, std::int32_t targetRow,
                                    std::int32_t targetCol, bool copy) {
    if (targetRow == range.Row1 && targetCol == range.Col1) {
        return;
    }
    const CellMove move{range, {targetRow, targetCol}, copy};
    MoveEntries(m_store.CellTextMap, move);
    MoveEntries(m_store.CellFormatMap, move);
    m_store.RaiseLast(LastTargetLine(move, Axis::Rows), LastTargetLine(move, Axis::Cols));
    MoveLineMaps(move);
    if (m_store.Properties.ModifiedLog != 0) {
        MoveEntries(m_store.Log.ModifiedLogMap, move);
    }
    RepaintAll();
}

void RowColumnOperations::MoveLineMaps(const CellMove& move) {
    GridProperties& properties = m_store.Properties;
    const auto grow = [&move](std::int32_t& last, Axis axis) {
        if (move.copy && LineOf(move.target, axis) < last) {
            last = static_cast<std::int32_t>(last + LinesOf(move.range, axis).Count());
        }
    };
    const RangeKindOf kind = RangeKind(move.range);
    if (kind == RangeKindOf::WholeColumns) {
        MoveEntries(m_store.ColHeaderMap, move);
        MoveEntries(m_store.ColWidthMap, move);
        MoveEntries(m_store.ColNameMap, move);
        MoveEntries(m_store.ColInfoMap, move);
        grow(properties.LastCol, Axis::Cols);
        ColumnsChanged();
    } else if (kind == RangeKindOf::WholeRows) {
        MoveEntries(m_store.RowHeightMap, move);
        MoveEntries(m_store.RowNameMap, move);
        MoveEntries(m_store.RowInfoMap, move);
        grow(properties.LastRow, Axis::Rows);
    }
}

std::optional<RowColumnOperations::LineRun> RowColumnOperations::CommandLines(
    Axis axis, std::int32_t activeLine) const {
    if (m_selection.SelectionList.empty()) {
        return LineRun{activeLine, 1};
    }
    const CellRange range = m_selection.SelectionList.front().Normalized();
    if (range.IsWholeSheet()) {
        return std::nullopt;
    }
    const LineSpan lines = LinesOf(range, axis);
    return LineRun{lines.first, static_cast<std::int32_t>(lines.Count())};
}

void RowColumnOperations::RunCommand(Operation operation, const std::optional<LineRun>& lines) {
    if (lines) {
        (this->*operation)(lines->start, lines->count);
    } else {
        ClearRange(-1, -1, -1, -1, static_cast<std::int16_t>(ClearType::All));
    }
}

// The commands on rows: in a bound query they work on the active row alone, or not at all.
void RowColumnOperations::RunRowCommand(Operation operation, std::int32_t activeRow) {
    if (RefusesTableChange()) {
        return;
    }
    if (IsBoundQuery()) {
        m_selection.SelectionList.clear();
    }
    RunCommand(operation, CommandLines(Axis::Rows, activeRow));
    m_selection.OnCellSelChange(m_store.ActiveRow, m_store.ActiveCol);
}

void RowColumnOperations::InsertRowCommand() {
    const std::int32_t row = m_store.ActiveRow;
    RunRowCommand(&RowColumnOperations::InsertRows, row == 0 ? 1 : row);
}

void RowColumnOperations::DeleteRowCommand() {
    RunRowCommand(&RowColumnOperations::DeleteRows, m_store.ActiveRow);
}

void RowColumnOperations::InsertColCommand() {
    RunCommand(&RowColumnOperations::InsertCols, CommandLines(Axis::Cols, m_store.ActiveCol));
}

void RowColumnOperations::DeleteColCommand() {
    RunCommand(&RowColumnOperations::DeleteCols, CommandLines(Axis::Cols, m_store.ActiveCol));
}

}  // namespace veygrid
