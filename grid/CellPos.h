// Position of a cell, and with zeroes of a whole row, a whole column or the whole sheet.
#pragma once

#include <cstdint>

namespace veygrid {

// Both numbers are 1-based; 0 in a field names no row or no column: (r, 0) is row r as a whole,
// (0, c) column c as a whole, (0, 0) the whole sheet. Any number can occur; nothing is checked.
struct CellPos {
    std::int32_t Row = 0;
    std::int32_t Col = 0;

    friend constexpr bool operator==(const CellPos&, const CellPos&) = default;
};

constexpr CellPos RowKey(std::int32_t row) {
    return {row, 0};
}
constexpr CellPos ColKey(std::int32_t col) {
    return {0, col};
}

// Sum and difference that wrap instead of being undefined: hosts hand in any number.
constexpr std::int32_t WrapAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr std::int32_t WrapSub(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

}  // namespace veygrid
