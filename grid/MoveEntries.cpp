// The move of a dragged range as the entries of a sparse map see it.
#include "grid/MoveEntries.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <tuple>

namespace veygrid {

namespace {

// The order in which positions of a block have their turn.
bool ComesBefore(CellPos a, CellPos b) {
    return std::tie(a.Col, a.Row) < std::tie(b.Col, b.Row);
}

// The way of an entry that moves by the same step from stop to stop.
class BlockWay {
  public:
    explicit BlockWay(const CellMove& move)
        : m_block(move.range),
          m_down(std::int64_t{move.target.Row} - move.range.Row1),
          m_right(std::int64_t{move.target.Col} - move.range.Col1) {}

    // Whether an entry lands on positions whose turn is still to come.
    bool GoesForward() const { return m_right > 0 || (m_right == 0 && m_down > 0); }

    // Steps from a position of the block to the last stop inside it.
    std::int64_t StepsInside(CellPos from) const {
        return std::min(StepsAlong(m_block.Row1, from.Row, m_block.Row2, m_down),
                        StepsAlong(m_block.Col1, from.Col, m_block.Col2, m_right));
    }

    CellPos Stop(CellPos from, std::int64_t steps) const {
        return {static_cast<std::int32_t>(from.Row + m_down * steps),
                static_cast<std::int32_t>(from.Col + m_right * steps)};
    }

  private:
    static std::int64_t StepsAlong(std::int64_t low, std::int64_t from, std::int64_t high,
                                   std::int64_t step) {
        if (step == 0) {
            return std::numeric_limits<std::int64_t>::max();
        }
        return step > 0 ? (high - from) / step : (from - low) / -step;
    }

    CellRange m_block;
    std::int64_t m_down;
    std::int64_t m_right;
};

// An entry and the position from which it is written.
struct Turn {
    CellPos at;
    CellPos source;
};

// Entries in front of others on one way come to the same last stop; the first in order comes first.
std::vector<Turn> LastTurns(const BlockWay& way, const std::vector<CellPos>& keys) {
    std::vector<Turn> turns;
    turns.reserve(keys.size());
    for (const CellPos& key : keys) {
        turns.push_back({way.Stop(key, way.StepsInside(key)), key});
    }
    std::stable_sort(turns.begin(), turns.end(),
                     [](const Turn& a, const Turn& b) { return ComesBefore(a.at, b.at); });
    return turns;
}

bool SameStop(const Turn& a, const Turn& b) {
    return a.at == b.at;
}

void RefuseHugeCopy(const BlockWay& way, const std::vector<Turn>& turns) {
    std::int64_t copies = 0;
    for (const Turn& turn : turns) {
        copies += way.StepsInside(turn.source) + 1;
        if (copies > MaxBlockCopies) {
            throw std::length_error("MoveCells: the copied block makes too many entries");
        }
    }
}

// Every stop of every entry that no other one has overwritten before.
std::vector<Turn> CopyTurns(const BlockWay& way, std::vector<Turn> turns) {
    turns.erase(std::unique(turns.begin(), turns.end(), SameStop), turns.end());
    RefuseHugeCopy(way, turns);
    std::vector<Turn> copies;
    for (const Turn& turn : turns) {
        const std::int64_t last = way.StepsInside(turn.source);
        for (std::int64_t step = 0; step <= last; ++step) {
            copies.push_back({way.Stop(turn.source, step), turn.source});
        }
    }
    std::sort(copies.begin(), copies.end(),
              [](const Turn& a, const Turn& b) { return ComesBefore(a.at, b.at); });
    return copies;
}

std::vector<Turn> TurnsOf(const BlockWay& way, const std::vector<CellPos>& keys, bool copy) {
    if (way.GoesForward()) {
        std::vector<Turn> turns = LastTurns(way, keys);
        return copy ? CopyTurns(way, std::move(turns)) : turns;
    }
    std::vector<Turn> turns;
    turns.reserve(keys.size());
    for (const CellPos& key : keys) {
        turns.push_back({key, key});
    }
    return turns;
}

}  // namespace

std::vector<BlockStep> PlanBlockMove(const CellMove& move, std::vector<CellPos> keys) {
    const BlockWay way(move);
    std::sort(keys.begin(), keys.end(), ComesBefore);
    const std::vector<Turn> turns = TurnsOf(way, keys, move.copy);
    std::vector<BlockStep> steps;
    steps.reserve(turns.size());
    for (std::size_t i = 0; i < turns.size(); ++i) {
        const bool lands = i == 0 || !SameStop(turns[i - 1], turns[i]);
        steps.push_back({turns[i].source, way.Stop(turns[i].at, 1), lands});
    }
    return steps;
}

}  // namespace veygrid
