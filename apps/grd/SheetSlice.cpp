// The cells of a part of the sheet, in the order in which they are read.
#include "apps/grd/SheetSlice.h"

#include <algorithm>
#include <functional>

namespace veygrid {

namespace {

bool StandsBefore(const CellEntry& a, const CellEntry& b) {
    return a.Pos.Row != b.Pos.Row ? a.Pos.Row < b.Pos.Row : a.Pos.Col < b.Pos.Col;
}

// More runs than this are sorted without regard to them.
constexpr std::size_t MostRuns = 256;

// Begins of the ascending runs, and the end behind the last one. Descending runs are turned round.
std::vector<std::size_t> MakeRuns(std::vector<CellEntry>& cells) {
    std::vector<std::size_t> begins{0};
    while (begins.back() < cells.size() && begins.size() <= MostRuns) {
        const auto from = cells.begin() + static_cast<std::ptrdiff_t>(begins.back());
        const bool descends = from + 1 != cells.end() && StandsBefore(from[1], from[0]);
        const auto last = descends
                              ? std::is_sorted_until(from, cells.end(),
                                                     [](const CellEntry& a, const CellEntry& b) {
                                                         return StandsBefore(b, a);
                                                     })
                              : std::is_sorted_until(from, cells.end(), StandsBefore);
        if (descends) {
            std::reverse(from, last);
        }
        begins.push_back(static_cast<std::size_t>(last - cells.begin()));
    }
    return begins;
}

// Merges neighbouring runs in pairs.
void MergePairs(std::vector<CellEntry>& cells, std::vector<CellEntry>& spare,
                std::vector<std::size_t>& begins) {
    std::vector<std::size_t> merged{0};
    const auto at = [&](std::size_t run) {
        return cells.begin() +
               static_cast<std::ptrdiff_t>(begins[std::min(run, begins.size() - 1)]);
    };
    auto to = spare.begin();
    for (std::size_t run = 0; run + 1 < begins.size(); run += 2) {
        to = std::merge(at(run), at(run + 1), at(run + 1), at(run + 2), to, StandsBefore);
        merged.push_back(static_cast<std::size_t>(to - spare.begin()));
    }
    cells.swap(spare);
    begins.swap(merged);
}

CellRange ResolveRange(const std::optional<CellRange>& range, CellPos last) {
    CellRange resolved = range.value_or(CellRange{1, 1, last.Row, last.Col});
    if (range && range->Col1 == 0) {
        resolved.Col1 = 1;
        resolved.Col2 = last.Col;
    }
    if (range && range->Row1 == 0) {
        resolved.Row1 = 1;
        resolved.Row2 = last.Row;
    }
    const bool empty = resolved.Row2 < resolved.Row1 || resolved.Col2 < resolved.Col1;
    return empty ? CellRange{1, 1, 0, 0} : resolved;
}

}  // namespace

void SortByPosition(std::vector<CellEntry>& cells) {
    std::vector<std::size_t> begins = MakeRuns(cells);
    if (begins.back() != cells.size()) {
        std::sort(cells.begin(), cells.end(), StandsBefore);
        return;
    }
    std::vector<CellEntry> spare(begins.size() > 2 ? cells.size() : 0);
    while (begins.size() > 2) {
        MergePairs(cells, spare, begins);
    }
}

SheetSlice SliceSheet(const GridStore& store, const std::optional<CellRange>& range) {
    SheetSlice slice;
    CellPos last;
    for (const auto& [key, text] : store.CellTextMap) {
        if (key.Row < 1 || key.Col < 1) {
            continue;
        }
        last = {std::max(last.Row, key.Row), std::max(last.Col, key.Col)};
        if (!range || range->Covers(key.Row, key.Col)) {
            slice.Cells.push_back({key, &text});
        }
    }
    slice.Range = ResolveRange(range, last);
    SortByPosition(slice.Cells);
    return slice;
}

bool RowWalk::Next() {
    if (m_row >= m_slice.Range.Row2) {
        return false;
    }
    ++m_row;
    m_first = m_behind;
    while (m_behind < m_slice.Cells.size() && m_slice.Cells[m_behind].Pos.Row == m_row) {
        ++m_behind;
    }
    return true;
}

}  // namespace veygrid
