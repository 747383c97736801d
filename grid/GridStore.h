// The sparse sheet: its maps, its limits, and the accessors that hosts reach.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "grid/CellFormat.h"
#include "grid/CellPos.h"
#include "grid/Dataset.h"
#include "grid/GridMap.h"
#include "grid/GridProperties.h"
#include "grid/ModificationLog.h"
#include "grid/ParamList.h"
#include "grid/StoreWatcher.h"

namespace veygrid {

using TextMap = GridMap<std::string>;
using FormatMap = GridMap<CCellFormat>;
using SizeMap = GridMap<std::int32_t>;

// Values of `ColType`.
enum class ColumnType : std::int16_t { String = 1, Number = 2, Date = 3, Unknown = 4 };

// A position that no map mentions is empty and shows the defaults. Setters check nothing unless
// said: they store, raise `LastRow` and `LastCol`, and tell the watcher. Texts are in code page
// 936.
class GridStore {
  public:
    // The watcher must outlive the store.
    explicit GridStore(StoreWatcher& watcher) : m_watcher(watcher) {}
    GridStore(const GridStore&) = delete;
    GridStore& operator=(const GridStore&) = delete;

    // Sets the platform's modified flag, then fires `Modified` whatever the flag says.
    void SetModifiedAndNotify(bool modified);

    // Row 0 stands for the active row, column 0 for the active column. A bound dataset answers in
    // place of the map.
    std::string CellText(std::int32_t row, std::int32_t col) const;
    // The same text without a copy: where the sheet holds it, or in `buffer` when it came from a
    // dataset. Good until the cell or the buffer changes.
    std::string_view CellTextRef(std::int32_t row, std::int32_t col, std::string& buffer) const;
    // Row -1 stands for the active row, column -1 for the active column; 0 is taken literally.
    void SetCellText(std::int32_t row, std::int32_t col, std::string_view text);
    // Sets and logs; ignores a row or column below 1.
    void ModifyCellText(std::int32_t row, std::int32_t col, std::string_view text);
    void ModifyCellTextByColName(std::int32_t row, std::string_view colName, std::string_view text);
    std::string GetCellTextByColName(std::int32_t row, std::string_view colName) const;
    // Column of the first entry of `ColNameMap`, in iteration order, whose trimmed upper-cased name
    // equals that of `colName`; 0 when there is none.
    std::int32_t FindColumnByName(std::string_view colName) const;
    // Writes the fields of `data`, the one behind the last delimiter too, side by side from
    // `startCol` on. `data` must not lie inside the sheet.
    void SetRowData(std::int32_t row, std::int32_t startCol, std::string_view data, char delimiter);

    // Pixels; -1 outside 1 to `MaxRow` or `MaxCol`.
    std::int32_t RowHeight(std::int32_t row) const;
    std::int32_t ColWidth(std::int32_t col) const;
    void SetRowHeight(std::int32_t row, std::int32_t height);
    void SetColWidth(std::int32_t col, std::int32_t width);

    std::string RowHeader(std::int32_t row) const;
    std::string ColHeader(std::int32_t col) const;
    void SetRowHeader(std::int32_t row, std::string_view text);
    void SetColHeader(std::int32_t col, std::string_view text);

    std::string RowName(std::int32_t row) const;
    std::string ColName(std::int32_t col) const;
    void SetRowName(std::int32_t row, std::string_view name);
    void SetColName(std::int32_t col, std::string_view name);

    std::int16_t ColType(std::int32_t col) const;
    // Replaces the column's whole format with the one that belongs to the type.
    void SetColType(std::int32_t col, std::int16_t type);
    std::int16_t KeyColumnFlag(std::int32_t col) const;
    void SetKeyColumnFlag(std::int32_t col, std::int16_t flag);

    // Copy of the first record among (row, col), (0, col), (row, 0), (0, 0), else `DefCellFormat`:
    // the column's format beats the row's on purpose.
    CCellFormat EffectiveFormat(std::int32_t row, std::int32_t col) const;
    // The same record in its place, good until the format map or `DefCellFormat` changes.
    const CCellFormat& EffectiveFormatRef(std::int32_t row, std::int32_t col) const;
    // Stores the record and raises `LastRow` and `LastCol`; neither repaints nor notifies.
    void StoreCellFormat(std::int32_t row, std::int32_t col, const CCellFormat& format);
    // The `CellFormat` setter: stores and notifies. A null record only notifies.
    void SetCellFormat(std::int32_t row, std::int32_t col, const CCellFormat* format);
    void SetDefCellFormat(const CCellFormat* format);
    std::string CellShowFormat(std::int32_t row, std::int32_t col) const;
    void SetCellShowFormat(std::int32_t row, std::int32_t col, std::string_view showFormat);

    // The `Param` setter: stores and notifies.
    void SetParam(std::string_view name, std::string_view value);

    void RaiseLast(std::int32_t row, std::int32_t col);
    void LogModification(std::int32_t row, std::int32_t col, ModifiedType type);
    // Type of a change made by the user: update in a bound query, insert otherwise.
    ModifiedType UserChangeType() const;

    StoreWatcher& Watcher() const { return m_watcher; }

    GridProperties Properties;
    GridSwitches Switches;
    std::int32_t ActiveRow = 1;
    std::int32_t ActiveCol = 1;
    CCellFormat DefCellFormat;

    TextMap CellTextMap;
    FormatMap CellFormatMap;
    TextMap RowHeaderMap;
    TextMap ColHeaderMap;
    // Kept in step with the rows and written to files, filled and read by nothing.
    TextMap RowInfoMap;
    TextMap ColInfoMap;
    SizeMap RowHeightMap;
    SizeMap ColWidthMap;
    TextMap RowNameMap;
    TextMap ColNameMap;

    ModificationLog Log;
    ParamList Params;

    // Not owned; null when none is bound.
    Dataset* BoundDataset = nullptr;
    bool QueryBound = false;

  private:
    void RaiseLastRow(std::int32_t row);
    void RaiseLastCol(std::int32_t col);

    StoreWatcher& m_watcher;
};

}  // namespace veygrid
