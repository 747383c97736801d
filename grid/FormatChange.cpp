// One change of format carried to everything that is selected.
#include "grid/FormatChange.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "grid/Axis.h"
#include "grid/RangeKeys.h"

namespace veygrid {

namespace {

void RefuseHugeWrite(std::int64_t lines, std::int64_t records) {
    if (lines > 0 && records > MaxFormatWrites / lines) {
        throw std::length_error("ChangeSelectedFormats: the range has too many records");
    }
}

class FormatWalk {
  public:
    FormatWalk(GridStore& store, const FormatEdit& edit, FormatBasis basis)
        : m_store(store), m_edit(edit), m_basis(basis) {}

    void Range(const CellRange& range) {
        switch (RangeKind(range)) {
            case RangeKindOf::SingleCell:
            case RangeKindOf::Block:
                return Block(range);
            case RangeKindOf::WholeRows:
                return Lines(Axis::Rows, range);
            case RangeKindOf::WholeColumns:
                return Lines(Axis::Cols, range);
            case RangeKindOf::WholeSheet:
                return Sheet();
            default:
                return;
        }
    }

    void Effective(CellPos key) { Apply(key, m_store.EffectiveFormatRef(key.Row, key.Col)); }

  private:
    void Apply(CellPos key, const CCellFormat& record) {
        CCellFormat changed = record;
        m_edit(changed);
        m_store.StoreCellFormat(key.Row, key.Col, changed);
    }

    void Block(const CellRange& range) {
        const LineSpan rows = LinesOf(range, Axis::Rows);
        const LineSpan cols = LinesOf(range, Axis::Cols);
        RefuseHugeWrite(rows.Count(), cols.Count());
        for (std::int64_t row = rows.first; row <= rows.last; ++row) {
            for (std::int64_t col = cols.first; col <= cols.last; ++col) {
                Effective({static_cast<std::int32_t>(row), static_cast<std::int32_t>(col)});
            }
        }
    }

    void Lines(Axis axis, const CellRange& range) {
        const LineSpan lines = LinesOf(range, axis);
        const std::vector<CellPos> carried = KeysOnLines(axis, {0, 0});
        RefuseHugeWrite(lines.Count(), static_cast<std::int64_t>(carried.size()) + 1);
        const std::vector<CellPos> own = KeysOnLines(axis, lines);
        auto next = own.begin();
        for (std::int64_t number = lines.first; number <= lines.last; ++number) {
            const auto line = static_cast<std::int32_t>(number);
            for (; next != own.end() && LineOf(*next, axis) == line; ++next) {
                Apply(*next, *m_store.CellFormatMap.Find(*next));
            }
            for (const CellPos& key : carried) {
                Carry(key, WithLine(key, axis, line));
            }
            Effective(WithLine({}, axis, line));
        }
    }

    void Carry(CellPos from, CellPos to) {
        if (m_basis == FormatBasis::Effective) {
            Effective(to);
        } else {
            Apply(to, *m_store.CellFormatMap.Find(from));
        }
    }

    // Keys of the entries on the lines, line by line, each line in the map's order.
    std::vector<CellPos> KeysOnLines(Axis axis, LineSpan lines) const {
        std::vector<CellPos> keys;
        for (const auto& [key, record] : m_store.CellFormatMap) {
            if (lines.Holds(LineOf(key, axis))) {
                keys.push_back(key);
            }
        }
        std::stable_sort(keys.begin(), keys.end(), [axis](const CellPos& a, const CellPos& b) {
            return LineOf(a, axis) < LineOf(b, axis);
        });
        return keys;
    }

    void Sheet() {
        FormatMap& map = m_store.CellFormatMap;
        for (auto handle = map.First(); handle != FormatMap::PastLast; handle = map.Next(handle)) {
            m_edit(map.ValueAt(handle));
        }
        Effective({});
    }

    GridStore& m_store;
    const FormatEdit& m_edit;
    FormatBasis m_basis;
};

}  // namespace

void ChangeSelectedFormats(GridStore& store, std::span<const CellRange> selection,
                           const FormatEdit& edit, FormatBasis basis) {
    FormatWalk walk(store, edit, basis);
    if (selection.empty()) {
        walk.Effective({store.ActiveRow, store.ActiveCol});
    }
    for (const CellRange& range : selection) {
        walk.Range(range.Normalized());
    }
    store.Watcher().InvalidateControl();
}

void ClearAllFormats(GridStore& store) {
    store.CellFormatMap.RemoveAll();
}

}  // namespace veygrid
