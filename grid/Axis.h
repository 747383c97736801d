// The two axes of the sheet, for logic that is the same for rows and columns.
#pragma once

#include <cstdint>

#include "grid/CellPos.h"
#include "grid/CellRange.h"

namespace veygrid {

enum class Axis { Rows, Cols };

// A line is a row on the axis of rows and a column on the axis of columns.
constexpr std::int32_t LineOf(CellPos key, Axis axis) {
    return axis == Axis::Rows ? key.Row : key.Col;
}

constexpr CellPos WithLine(CellPos key, Axis axis, std::int32_t line) {
    (axis == Axis::Rows ? key.Row : key.Col) = line;
    return key;
}

// The first and last line of a range.
struct LineSpan {
    std::int32_t first;
    std::int32_t last;

    // In 64 bits, since the span may reach over all numbers; 0 or below when it is reversed.
    constexpr std::int64_t Count() const { return std::int64_t{last} - first + 1; }
    constexpr bool Holds(std::int32_t line) const { return line >= first && line <= last; }
};

constexpr LineSpan LinesOf(const CellRange& range, Axis axis) {
    return axis == Axis::Rows ? LineSpan{range.Row1, range.Row2} : LineSpan{range.Col1, range.Col2};
}

}  // namespace veygrid
