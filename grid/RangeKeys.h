// The entries of a sparse map that a range covers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "grid/CellRange.h"
#include "grid/GridMap.h"

namespace veygrid {

// Whether looking up each position of the range costs less than walking over `entries` entries.
// Ranges that stand for whole rows, whole columns or the sheet cover more than their positions.
constexpr bool IsSmallBlock(const CellRange& range, std::size_t entries) {
    if (range.IsWholeSheet() || (range.Row1 == 0 && range.Row2 == 0) ||
        (range.Col1 == 0 && range.Col2 == 0)) {
        return false;
    }
    const std::int64_t height = std::int64_t{range.Row2} - range.Row1 + 1;
    const std::int64_t width = std::int64_t{range.Col2} - range.Col1 + 1;
    const auto limit = static_cast<std::int64_t>(entries);
    return height >= 1 && width >= 1 && height <= limit && width <= limit / height;
}

// Keys of the entries that the range covers as it stands, not normalised. Down the columns from
// left to right when few positions are looked up, in the map's order otherwise.
template <class Value>
std::vector<CellPos> KeysCovered(const GridMap<Value>& map, const CellRange& range) {
    std::vector<CellPos> keys;
    if (IsSmallBlock(range, map.Count())) {
        for (std::int64_t col = range.Col1; col <= range.Col2; ++col) {
            for (std::int64_t row = range.Row1; row <= range.Row2; ++row) {
                const CellPos key{static_cast<std::int32_t>(row), static_cast<std::int32_t>(col)};
                if (map.Find(key) != nullptr) {
                    keys.push_back(key);
                }
            }
        }
        return keys;
    }
    for (auto handle = map.First(); handle != map.PastLast; handle = map.Next(handle)) {
        const CellPos& key = map.KeyAt(handle);
        if (range.Covers(key.Row, key.Col)) {
            keys.push_back(key);
        }
    }
    return keys;
}

}  // namespace veygrid
