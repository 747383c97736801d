// Insertion and deletion of lines as the keys of a sparse map see them.
#pragma once

#include <cstdint>
#include <optional>

#include "grid/Axis.h"
#include "grid/GridMap.h"

namespace veygrid {

enum class RenumberOperation { Insert = 1, Delete = 2 };

// A line below `start` stays, 0 among them, so that what belongs to the other axis or to the sheet
// keeps its place. Any numbers are allowed: a negative count moves the other way, and a line that
// leaves 32 bits wraps.
struct Renumbering {
    RenumberOperation operation;
    std::int32_t start;
    std::int32_t count;

    // Nothing for a line that is deleted.
    constexpr std::optional<std::int32_t> NewLine(std::int32_t line) const {
        if (line < start) {
            return line;
        }
        if (operation == RenumberOperation::Insert) {
            return WrapAdd(line, count);
        }
        if (line < std::int64_t{start} + count) {
            return std::nullopt;
        }
        return WrapSub(line, count);
    }
};

// Builds the map anew in its iteration order. No value is copied.
template <class Value>
void RenumberMap(GridMap<Value>& map, Axis axis, const Renumbering& renumbering) {
    map.Rebuild([axis, &renumbering](CellPos key) -> std::optional<CellPos> {
        const std::optional<std::int32_t> line = renumbering.NewLine(LineOf(key, axis));
        return line ? std::optional(WithLine(key, axis, *line)) : std::nullopt;
    });
}

}  // namespace veygrid
