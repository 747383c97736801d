// The sparse sheet: its maps, its limits, and the accessors that hosts reach.
#include "grid/GridStore.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "grid/NameMatch.h"
#include "valuetext/ColumnLetters.h"
#include "valuetext/Fields.h"

namespace veygrid {

namespace {

// Fields of a `ColInfoMap` value.
constexpr std::size_t ColTypeField = 0;
constexpr std::size_t KeyFlagField = 1;

// What both fields read in a column that has no entry. An untouched column thus offers to clear
// its key flag; that is on purpose.
constexpr std::int16_t AbsentColInfo = 4;

constexpr std::uint8_t DateDataType = 3;
constexpr std::uint8_t StringDataType = 4;
constexpr std::uint8_t ColumnNumberDataType = 9;

// The text of a key, or the empty text.
std::string_view TextAt(const TextMap& map, CellPos key) {
    const std::string* const text = map.Find(key);
    return text == nullptr ? std::string_view() : std::string_view(*text);
}

// The number at the start of a field, 0 when there is none; a number too large sticks at the bound.
std::int32_t FieldNumber(std::string_view field) {
    std::string_view digits = TrimLeft(field);
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) {
            return 0;
        }
    }
    std::int32_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
        return digits.starts_with('-') ? std::numeric_limits<std::int32_t>::min()
                                       : std::numeric_limits<std::int32_t>::max();
    }
    return number;
}

std::int16_t ColInfoNumber(const TextMap& colInfo, std::int32_t col, std::size_t field) {
    const std::string* const info = colInfo.Find(ColKey(col));
    return info == nullptr
               ? AbsentColInfo
               : static_cast<std::int16_t>(FieldNumber(GetField(*info, field, VerticalTab)));
}

// Replaces a field of the column's entry, which starts as `fresh` and has at least two fields.
void SetColInfoNumber(TextMap& colInfo, std::int32_t col, std::size_t field, std::int16_t number,
                      std::string_view fresh) {
    const std::string* const present = colInfo.Find(ColKey(col));
    std::string info(present == nullptr ? fresh : std::string_view(*present));
    if (CountChar(info, VerticalTab) == 0) {
        info += VerticalTab;
    }
    SetField(info, field, VerticalTab, std::to_string(number));
    colInfo.Set(ColKey(col), std::move(info));
}

CCellFormat FormatOfColumnType(std::int16_t type) {
    CCellFormat format;
    switch (static_cast<ColumnType>(type)) {
        case ColumnType::String:
            format.SetHAlign(static_cast<std::int16_t>(HorizontalAlign::Left));
            format.DataType = StringDataType;
            break;
        case ColumnType::Number:
            format.SetHAlign(static_cast<std::int16_t>(HorizontalAlign::Right));
            format.DataType = ColumnNumberDataType;
            break;
        case ColumnType::Date:
            format.SetHAlign(static_cast<std::int16_t>(HorizontalAlign::Left));
            format.DataType = DateDataType;
            format.ShowFormat = "YYYY-MM-DD";
            break;
        default:
            break;
    }
    return format;
}

}  // namespace

void GridStore::SetModifiedAndNotify(bool modified) {
    m_watcher.SetModifiedFlag(modified);
    m_watcher.FireModified();
}

std::string_view GridStore::CellTextRef(std::int32_t row, std::int32_t col,
                                        std::string& buffer) const {
    const CellPos key{row == 0 ? ActiveRow : row, col == 0 ? ActiveCol : col};
    if (BoundDataset == nullptr) {
        return TextAt(CellTextMap, key);
    }
    if (key.Col < 1) {
        return {};
    }
    buffer = BoundDataset->GetCellValue(key.Row, key.Col);
    return buffer;
}

std::string GridStore::CellText(std::int32_t row, std::int32_t col) const {
    std::string buffer;
    const std::string_view text = CellTextRef(row, col, buffer);
    return text.data() == buffer.data() ? std::move(buffer) : std::string(text);
}

void GridStore::SetCellText(std::int32_t row, std::int32_t col, std::string_view text) {
    const CellPos key{row == -1 ? ActiveRow : row, col == -1 ? ActiveCol : col};
    CellTextMap.Set(key, text);
    RaiseLast(key.Row, key.Col);
    m_watcher.InvalidateCell(key);
    m_watcher.PostCellSelChange(ActiveRow, ActiveCol);
    SetModifiedAndNotify(true);
}

void GridStore::ModifyCellText(std::int32_t row, std::int32_t col, std::string_view text) {
    if (row < 1 || col < 1) {
        return;
    }
    SetCellText(row, col, text);
    LogModification(row, col, UserChangeType());
}

std::int32_t GridStore::FindColumnByName(std::string_view colName) const {
    const NameMatch matches(colName);
    for (const auto& [key, name] : ColNameMap) {
        if (matches(name)) {
            return key.Col;
        }
    }
    return 0;
}

void GridStore::ModifyCellTextByColName(std::int32_t row, std::string_view colName,
                                        std::string_view text) {
    ModifyCellText(row, FindColumnByName(colName), text);
}

std::string GridStore::GetCellTextByColName(std::int32_t row, std::string_view colName) const {
    const std::int32_t col = FindColumnByName(colName);
    return col > 0 ? CellText(row, col) : std::string();
}

void GridStore::SetRowData(std::int32_t row, std::int32_t startCol, std::string_view data,
                           char delimiter) {
    FieldWalk fields(data, delimiter);
    for (std::int32_t col = startCol; fields.Next(); col = WrapAdd(col, 1)) {
        SetCellText(row, col, fields.Field());
    }
}

std::int32_t GridStore::RowHeight(std::int32_t row) const {
    if (row < 1 || row > Properties.MaxRow) {
        return -1;
    }
    const std::int32_t* const height = RowHeightMap.Find(RowKey(row));
    return height == nullptr ? Properties.DefCellHeight : *height;
}

std::int32_t GridStore::ColWidth(std::int32_t col) const {
    if (col < 1 || col > Properties.MaxCol) {
        return -1;
    }
    const std::int32_t* const width = ColWidthMap.Find(ColKey(col));
    return width == nullptr ? Properties.DefCellWidth : *width;
}

void GridStore::SetRowHeight(std::int32_t row, std::int32_t height) {
    RowHeightMap.Set(RowKey(row), height);
    RaiseLastRow(row);
    SetModifiedAndNotify(true);
    m_watcher.UpdateScrollBars();
}

void GridStore::SetColWidth(std::int32_t col, std::int32_t width) {
    ColWidthMap.Set(ColKey(col), width);
    RaiseLastCol(col);
    SetModifiedAndNotify(true);
    m_watcher.UpdateScrollBars();
}

std::string GridStore::RowHeader(std::int32_t row) const {
    if (const std::string* const text = RowHeaderMap.Find(RowKey(row))) {
        return *text;
    }
    return Properties.ShowDefRowHeader ? std::to_string(row) : std::string();
}

std::string GridStore::ColHeader(std::int32_t col) const {
    if (BoundDataset != nullptr) {
        return BoundDataset->GetColName(col);
    }
    if (const std::string* const text = ColHeaderMap.Find(ColKey(col))) {
        return *text;
    }
    return Properties.ShowDefColHeader ? ColumnLetters(col) : std::string();
}

void GridStore::SetRowHeader(std::int32_t row, std::string_view text) {
    RowHeaderMap.Set(RowKey(row), text);
    RaiseLastRow(row);
    m_watcher.InvalidateRowHeaderStrip(row);
    SetModifiedAndNotify(true);
}

void GridStore::SetColHeader(std::int32_t col, std::string_view text) {
    ColHeaderMap.Set(ColKey(col), text);
    RaiseLastCol(col);
    m_watcher.InvalidateColHeaderStrip(col);
    SetModifiedAndNotify(true);
}

std::string GridStore::RowName(std::int32_t row) const {
    return std::string(TextAt(RowNameMap, RowKey(row)));
}

std::string GridStore::ColName(std::int32_t col) const {
    return std::string(TextAt(ColNameMap, ColKey(col)));
}

void GridStore::SetRowName(std::int32_t row, std::string_view name) {
    RowNameMap.Set(RowKey(row), name);
    RaiseLastRow(row);
    SetModifiedAndNotify(true);
}

void GridStore::SetColName(std::int32_t col, std::string_view name) {
    ColNameMap.Set(ColKey(col), name);
    RaiseLastCol(col);
    SetModifiedAndNotify(true);
}

std::int16_t GridStore::ColType(std::int32_t col) const {
    return ColInfoNumber(ColInfoMap, col, ColTypeField);
}

void GridStore::SetColType(std::int32_t col, std::int16_t type) {
    SetColInfoNumber(ColInfoMap, col, ColTypeField, type, "\x0B");
    RaiseLastCol(col);
    CellFormatMap.Set(ColKey(col), FormatOfColumnType(type));
    SetModifiedAndNotify(true);
}

std::int16_t GridStore::KeyColumnFlag(std::int32_t col) const {
    return ColInfoNumber(ColInfoMap, col, KeyFlagField);
}

void GridStore::SetKeyColumnFlag(std::int32_t col, std::int16_t flag) {
    SetColInfoNumber(ColInfoMap, col, KeyFlagField, flag, "\x0B\x0B");
    RaiseLastCol(col);
    SetModifiedAndNotify(true);
}

const CCellFormat& GridStore::EffectiveFormatRef(std::int32_t row, std::int32_t col) const {
    for (const CellPos& key : {CellPos{row, col}, ColKey(col), RowKey(row), CellPos{}}) {
        if (const CCellFormat* const format = CellFormatMap.Find(key)) {
            return *format;
        }
    }
    return DefCellFormat;
}

CCellFormat GridStore::EffectiveFormat(std::int32_t row, std::int32_t col) const {
    return EffectiveFormatRef(row, col);
}

void GridStore::StoreCellFormat(std::int32_t row, std::int32_t col, const CCellFormat& format) {
    CellFormatMap.Set({row, col}, format);
    RaiseLast(row, col);
}

void GridStore::SetCellFormat(std::int32_t row, std::int32_t col, const CCellFormat* format) {
    if (format != nullptr) {
        StoreCellFormat(row, col, *format);
    }
    SetModifiedAndNotify(true);
}

void GridStore::SetDefCellFormat(const CCellFormat* format) {
    if (format != nullptr) {
        DefCellFormat = *format;
    }
    SetModifiedAndNotify(true);
}

std::string GridStore::CellShowFormat(std::int32_t row, std::int32_t col) const {
    return EffectiveFormatRef(row, col).ShowFormat;
}

void GridStore::SetCellShowFormat(std::int32_t row, std::int32_t col, std::string_view showFormat) {
    CCellFormat format = EffectiveFormatRef(row, col);
    format.ShowFormat = showFormat;
    StoreCellFormat(row, col, format);
    SetModifiedAndNotify(true);
}

void GridStore::SetParam(std::string_view name, std::string_view value) {
    Params.SetParam(name, value);
    SetModifiedAndNotify(true);
}

void GridStore::RaiseLast(std::int32_t row, std::int32_t col) {
    RaiseLastRow(row);
    RaiseLastCol(col);
}

void GridStore::RaiseLastRow(std::int32_t row) {
    Properties.LastRow = std::max(Properties.LastRow, row);
}

void GridStore::RaiseLastCol(std::int32_t col) {
    Properties.LastCol = std::max(Properties.LastCol, col);
}

void GridStore::LogModification(std::int32_t row, std::int32_t col, ModifiedType type) {
    Log.LogModification(Properties.ModifiedLog, row, col, type);
}

ModifiedType GridStore::UserChangeType() const {
    return QueryBound ? ModifiedType::Update : ModifiedType::Insert;
}

}  // namespace veygrid
