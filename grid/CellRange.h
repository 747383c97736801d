// A range of cells, whole rows, whole columns or the whole sheet, and its kind.
#pragma once

#include <cstdint>
#include <utility>

namespace veygrid {

// Held as a rectangle: `Col1` is left, `Row1` top, `Col2` right, `Row2` bottom, all inclusive.
// Columns 0 mean whole rows, rows 0 mean whole columns, all four -1 mean the whole sheet.
struct CellRange {
    std::int32_t Row1 = 0;
    std::int32_t Col1 = 0;
    std::int32_t Row2 = 0;
    std::int32_t Col2 = 0;

    friend constexpr bool operator==(const CellRange&, const CellRange&) = default;

    static constexpr CellRange WholeSheet() { return {-1, -1, -1, -1}; }

    constexpr bool IsWholeSheet() const { return *this == WholeSheet(); }
    constexpr bool IsEmpty() const { return *this == CellRange{}; }

    // Exchanges reversed edges.
    constexpr CellRange Normalized() const {
        CellRange range = *this;
        if (range.Row1 > range.Row2) {
            std::swap(range.Row1, range.Row2);
        }
        if (range.Col1 > range.Col2) {
            std::swap(range.Col1, range.Col2);
        }
        return range;
    }

    // Whether a normalised range covers the position.
    constexpr bool Covers(std::int32_t row, std::int32_t col) const {
        const bool rowInside = row >= Row1 && row <= Row2;
        const bool colInside = col >= Col1 && col <= Col2;
        return (rowInside && colInside) || (Col1 == 0 && Col2 == 0 && rowInside) ||
               (Row1 == 0 && Row2 == 0 && colInside) || IsWholeSheet();
    }
};

enum class RangeKindOf : std::int16_t {
    Other = 0,
    Empty = 1,
    SingleCell = 2,
    Block = 3,
    WholeSheet = 4,
    WholeRows = 5,
    WholeColumns = 6,
};

constexpr RangeKindOf RangeKind(const CellRange& range) {
    if (range.Row1 > 0 && range.Col1 > 0 && range.Row2 > 0 && range.Col2 > 0) {
        return range.Col1 == range.Col2 && range.Row1 == range.Row2 ? RangeKindOf::SingleCell
                                                                    : RangeKindOf::Block;
    }
    if (range.IsEmpty()) {
        return RangeKindOf::Empty;
    }
    if (range.Col1 == 0 && range.Col2 == 0) {
        return RangeKindOf::WholeRows;
    }
    if (range.Row1 == 0 && range.Row2 == 0) {
        return RangeKindOf::WholeColumns;
    }
    return range.IsWholeSheet() ? RangeKindOf::WholeSheet : RangeKindOf::Other;
}

}  // namespace veygrid
