// A slow model of the sheet that does each row and column operation word by word, on 17 real
// chains.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "grid/CellPos.h"
#include "grid/CellRange.h"

namespace veygrid {

template <class Value>
class LiteralMap {
  public:
    using Entry = std::pair<CellPos, Value>;

    Value* Find(CellPos key) {
        for (Entry& entry : Chain(key)) {
            if (entry.first == key) {
                return &entry.second;
            }
        }
        return nullptr;
    }
    void Set(CellPos key, Value value) {
        if (Value* const present = Find(key)) {
            *present = std::move(value);
        } else {
            Chain(key).emplace_front(key, std::move(value));
        }
    }
    void Remove(CellPos key) {
        Chain(key).remove_if([key](const Entry& entry) { return entry.first == key; });
    }
    std::vector<Entry> Entries() const {
        std::vector<Entry> entries;
        for (const auto& chain : m_chains) {
            entries.insert(entries.end(), chain.begin(), chain.end());
        }
        return entries;
    }
    // Visits the entries while `visit` changes the map.
    template <class Visit>
    void VisitLive(Visit visit) {
        for (auto& chain : m_chains) {
            for (auto entry = chain.begin(); entry != chain.end(); ++entry) {
                visit(entry->first, entry->second);
            }
        }
    }

    void Renumber(bool rows, bool insert, std::int32_t start, std::int32_t count) {
        LiteralMap built;
        for (auto [key, value] : Entries()) {
            std::int32_t& k = rows ? key.Row : key.Col;
            if (k >= start) {
                if (insert) {
                    k += count;
                } else if (k <= start + count - 1) {
                    continue;
                } else {
                    k -= count;
                }
            }
            built.Set(key, value);
        }
        *this = built;
    }

    void Clear(std::int32_t row1, std::int32_t col1, std::int32_t row2, std::int32_t col2) {
        const bool sheet = row1 == -1 && col1 == -1 && row2 == -1 && col2 == -1;
        for (const auto& [key, value] : Entries()) {
            const bool rowIn = key.Row >= row1 && key.Row <= row2;
            const bool colIn = key.Col >= col1 && key.Col <= col2;
            if (sheet || (rowIn && colIn) || (col1 == 0 && col2 == 0 && rowIn) ||
                (row1 == 0 && row2 == 0 && colIn)) {
                Remove(key);
            }
        }
    }

    void MoveBlock(const CellRange& from, CellPos to, bool copy) {
        for (std::int32_t col = from.Col1; col <= from.Col2; ++col) {
            for (std::int32_t row = from.Row1; row <= from.Row2; ++row) {
                const Value* const value = Find({row, col});
                if (value == nullptr) {
                    continue;
                }
                Set({row - from.Row1 + to.Row, col - from.Col1 + to.Col}, *value);
                if (!copy) {
                    Remove({row, col});
                }
            }
        }
    }

    void MoveLines(bool rows, const CellRange& from, std::int32_t target, bool copy) {
        const std::int32_t top = rows ? from.Row1 : from.Col1;
        const std::int32_t bottom = rows ? from.Row2 : from.Col2;
        const std::int32_t count = bottom - top + 1;
        const std::int32_t delta = target - top;
        LiteralMap built;
        for (auto [key, value] : Entries()) {
            std::int32_t& r = rows ? key.Row : key.Col;
            if (copy) {
                if (r >= top && r <= bottom) {
                    built.Set(key, value);
                    r += delta;
                } else if (r >= target) {
                    r += count;
                }
            } else if (r >= top && r <= bottom) {
                r += delta;
            } else if (delta >= 1 && r > bottom && r < target + count) {
                r -= count;
            } else if (delta < 0 && r >= target && r < top) {
                r += count;
            }
            built.Set(key, value);
        }
        *this = built;
    }

    void Move(const CellRange& from, CellPos to, bool copy) {
        switch (RangeKind(from)) {
            case RangeKindOf::SingleCell:
            case RangeKindOf::Block:
                return MoveBlock(from, to, copy);
            case RangeKindOf::WholeRows:
                return MoveLines(true, from, to.Row, copy);
            case RangeKindOf::WholeColumns:
                return MoveLines(false, from, to.Col, copy);
            default:
                return;
        }
    }

  private:
    std::list<Entry>& Chain(CellPos key) {
        return m_chains[(static_cast<std::uint32_t>(key.Row) >> 4U) % 17];
    }

    std::array<std::list<Entry>, 17> m_chains;
};

// Values are plain numbers, so that one kind of map stands for all.
class LiteralSheet {
  public:
    using Map = LiteralMap<std::int32_t>;

    Map cellText, cellFormat, rowHeight, rowName, rowInfo, colHeader, colWidth, colName, colInfo;
    Map rowHeader, log;
    std::list<std::int32_t> checkedRows;
    std::int32_t maxRow = 50, maxCol = 20, lastRow = 0, lastCol = 0, activeRow = 1, activeCol = 1;
    std::int32_t modifiedLog = 0;
    bool rowMode = false;

    void LogInsertion(std::int32_t row, std::int32_t col) {
        const CellPos key{modifiedLog == 2 ? 0 : row, modifiedLog == 1 ? 0 : col};
        if (modifiedLog >= 1 && modifiedLog <= 3 && key != CellPos{} && log.Find(key) == nullptr) {
            log.Set(key, 3);
        }
    }

    void InsertRows(std::int32_t start, std::int32_t count) {
        if (start < 1 || start > maxRow + 1) {
            return;
        }
        maxRow = std::min(maxRow + count, 65535);
        lastRow = std::min(lastRow + count, 65535);
        const std::int32_t col = activeCol < 1 ? 1 : activeCol;
        if (start <= maxRow && col <= maxCol) {
            activeRow = start;
            activeCol = col;
        }
        for (Map* map : {&cellText, &cellFormat, &rowHeight, &rowName, &rowInfo}) {
            map->Renumber(true, true, start, count);
        }
        if (modifiedLog != 0) {
            log.Renumber(true, true, start, count);
            for (std::int32_t i = 0; i < count; ++i) {
                LogInsertion(start + i, activeCol);
            }
        }
        if (rowMode) {
            for (std::int32_t& row : checkedRows) {
                row += row >= start ? count : 0;
            }
        }
    }

    void DeleteRows(std::int32_t start, std::int32_t count) {
        if (start <= 0 || start > lastRow) {
            return;
        }
        maxRow -= maxRow > 0 ? 1 : 0;
        for (Map* map : {&cellText, &cellFormat, &rowHeight, &rowName, &rowInfo}) {
            map->Renumber(true, false, start, count);
        }
        if (modifiedLog != 0) {
            log.Renumber(true, false, start, count);
        }
        if (rowMode) {
            checkedRows.remove_if(
                [&](std::int32_t row) { return row >= start && row < start + count; });
            for (std::int32_t& row : checkedRows) {
                // A row in front of the start stays even when the count is negative.
                row -= row >= std::max(start, start + count) ? count : 0;
            }
        }
    }

    void InsertCols(std::int32_t start, std::int32_t count) {
        if (start < 1 || start > lastCol) {
            return;
        }
        maxCol += maxCol < 65535 ? count : 0;
        for (Map* map : {&cellText, &cellFormat, &colHeader, &colWidth, &colName, &colInfo}) {
            map->Renumber(false, true, start, count);
        }
        if (modifiedLog != 0) {
            log.Renumber(false, true, start, count);
            for (std::int32_t i = 0; i < count; ++i) {
                LogInsertion(activeRow, start + i);
            }
        }
    }

    void DeleteCols(std::int32_t start, std::int32_t count) {
        if (start < 1 || start > lastCol) {
            return;
        }
        maxRow -= maxCol > 0 ? 1 : 0;
        for (Map* map : {&cellText, &cellFormat, &colHeader, &colWidth, &colName, &colInfo}) {
            map->Renumber(false, false, start, count);
        }
        if (modifiedLog != 0) {
            log.Renumber(false, false, start, count);
        }
    }

    void ClearRange(std::int32_t row1, std::int32_t col1, std::int32_t row2, std::int32_t col2,
                    std::int16_t type) {
        if (type == 0 || type == 1) {
            cellFormat.Clear(row1, col1, row2, col2);
        }
        if (type == 0 || type == 2) {
            cellText.Clear(row1, col1, row2, col2);
        }
    }

    void MoveCells(const CellRange& from, std::int32_t row, std::int32_t col, bool copy) {
        if (row == from.Row1 && col == from.Col1) {
            return;
        }
        std::vector<Map*> maps = {&cellText, &cellFormat};
        lastRow = std::max(lastRow, from.Row2 - from.Row1 + row);
        lastCol = std::max(lastCol, from.Col2 - from.Col1 + col);
        if (RangeKind(from) == RangeKindOf::WholeColumns) {
            maps.insert(maps.end(), {&colHeader, &colWidth, &colName, &colInfo});
            lastCol += copy && col < lastCol ? from.Col2 - from.Col1 + 1 : 0;
        } else if (RangeKind(from) == RangeKindOf::WholeRows) {
            maps.insert(maps.end(), {&rowHeight, &rowName, &rowInfo});
            lastRow += copy && row < lastRow ? from.Row2 - from.Row1 + 1 : 0;
        }
        if (modifiedLog != 0) {
            maps.push_back(&log);
        }
        for (Map* map : maps) {
            map->Move(from, {row, col}, copy);
        }
    }
};

}  // namespace veygrid
