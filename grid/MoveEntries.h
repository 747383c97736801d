// The move of a dragged range as the entries of a sparse map see it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "grid/Axis.h"
#include "grid/CellRange.h"
#include "grid/GridMap.h"
#include "grid/RangeKeys.h"

namespace veygrid {

// What the mouse drops: a range as it stands, the cell its top left comes to, and whether the
// source stays.
struct CellMove {
    CellRange range;
    CellPos target;
    bool copy;
};

// Most entries that one copied block may make.
inline constexpr std::int64_t MaxBlockCopies = std::int64_t{1} << 24;

// One step of a block's move: the entry at `source` comes to `target` when it lands. Without the
// copy flag the source then goes, landed or not.
struct BlockStep {
    CellPos source;
    CellPos target;
    bool lands;
};

// The steps of a block's move, in order, from the keys of the entries inside it.
//
// The rule takes the positions column by column and each column downwards, and moves what a
// position holds when its turn comes. So an entry that lands on a later position of the block is
// taken along again, over all it meets, until it leaves the block; with the copy flag it leaves a
// copy at every stop. The plan tells the same outcome, order of insertions included, with one step
// for each entry, or each copy, instead of one for each position.
// Throws std::length_error beyond MaxBlockCopies.
std::vector<BlockStep> PlanBlockMove(const CellMove& move, std::vector<CellPos> keys);

template <class Value>
void MoveBlock(GridMap<Value>& map, const CellMove& move) {
    for (const BlockStep& step : PlanBlockMove(move, KeysCovered(map, move.range))) {
        Value& value = *map.Find(step.source);
        if (move.copy) {
            map.Set(step.target, std::as_const(value));
            continue;
        }
        if (step.lands) {
            map.Set(step.target, std::move(value));
        }
        map.Remove(step.source);
    }
}

// The move of whole lines along their axis.
class LineMove {
  public:
    LineMove(const CellMove& move, Axis axis)
        : m_source(LinesOf(move.range, axis)),
          m_target(LineOf(move.target, axis)),
          m_copy(move.copy) {}

    bool IsSource(std::int32_t line) const { return m_source.Holds(line); }
    std::int32_t Landing(std::int32_t line) const { return Shifted(line, Delta()); }
    // New line of an entry that does not double: the lines travel and those they pass close the
    // gap; with the copy flag, those from the target on make room.
    std::int32_t NewLine(std::int32_t line) const {
        const std::int64_t count = m_source.Count();
        if (m_copy) {
            return line >= m_target ? Shifted(line, count) : line;
        }
        if (IsSource(line)) {
            return Landing(line);
        }
        if (Delta() >= 1 && line > m_source.last && line < m_target + count) {
            return Shifted(line, -count);
        }
        if (Delta() < 0 && line >= m_target && line < m_source.first) {
            return Shifted(line, count);
        }
        return line;
    }

  private:
    std::int64_t Delta() const { return std::int64_t{m_target} - m_source.first; }
    static std::int32_t Shifted(std::int32_t line, std::int64_t by) {
        return static_cast<std::int32_t>(line + by);
    }

    LineSpan m_source;
    std::int32_t m_target;
    bool m_copy;
};

template <class Value>
void CopyLines(GridMap<Value>& map, Axis axis, const LineMove& lines) {
    GridMap<Value> built;
    for (auto handle = map.First(); handle != map.PastLast; handle = map.Next(handle)) {
        const CellPos key = map.KeyAt(handle);
        const std::int32_t line = LineOf(key, axis);
        Value& value = map.ValueAt(handle);
        if (lines.IsSource(line)) {
            built.Set(key, std::as_const(value));
            built.Set(WithLine(key, axis, lines.Landing(line)), std::move(value));
        } else {
            built.Set(WithLine(key, axis, lines.NewLine(line)), std::move(value));
        }
    }
    map = std::move(built);
}

template <class Value>
void MoveLines(GridMap<Value>& map, const CellMove& move, Axis axis) {
    const LineMove lines(move, axis);
    if (move.copy) {
        CopyLines(map, axis, lines);
        return;
    }
    map.Rebuild([axis, &lines](CellPos key) -> std::optional<CellPos> {
        return WithLine(key, axis, lines.NewLine(LineOf(key, axis)));
    });
}

// Moves or copies by the kind of the range; other kinds than cells, rows and columns move nothing.
template <class Value>
void MoveEntries(GridMap<Value>& map, const CellMove& move) {
    switch (RangeKind(move.range)) {
        case RangeKindOf::SingleCell:
        case RangeKindOf::Block:
            MoveBlock(map, move);
            break;
        case RangeKindOf::WholeRows:
            MoveLines(map, move, Axis::Rows);
            break;
        case RangeKindOf::WholeColumns:
            MoveLines(map, move, Axis::Cols);
            break;
        default:
            break;
    }
}

}  // namespace veygrid
