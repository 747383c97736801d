// Row operations, tabbed text and shown text of a sheet of a million cells.
#include <boost/unordered/unordered_flat_map.hpp>
#include <cstdint>
#include <cstdio>
#include <string>

#include "bench/Ratio.h"
#include "grid/CellShow.h"
#include "grid/GridStore.h"
#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "persist/TabbedText.h"

namespace veygrid::bench {
namespace {

constexpr std::int32_t Rows = 50'000;
constexpr std::int32_t Columns = 20;
const std::string Text = "12345678";

struct PosHash {
    std::size_t operator()(CellPos key) const {
        return boost::hash<std::uint64_t>()(std::uint64_t{static_cast<std::uint32_t>(key.Row)}
                                                << 32U |
                                            static_cast<std::uint32_t>(key.Col));
    }
};
using PeerMap = boost::unordered_flat_map<CellPos, std::string, PosHash>;

template <class Visit>
void ForEachCell(Visit visit) {
    for (std::int32_t row = 1; row <= Rows; ++row) {
        for (std::int32_t col = 1; col <= Columns; ++col) {
            visit(row, col);
        }
    }
}

class NoHost final : public RowColumnHost, public SelectionHost {
  public:
    RecordDeletion DeleteBoundRecord() override { return RecordDeletion::Failed; }
    void RebuildDataSource() override {}
    void RunQuery(std::int16_t) override {}
    void ShowMessage(std::string_view, std::int32_t) override {}
    bool HasWindow() override { return false; }
    void FireCellSelChanging(std::int32_t, std::int32_t, std::int16_t&) override {}
    void FireCellSelChanged() override {}
    std::int32_t SendCellSelChange(std::int32_t, std::int32_t) override { return 1; }
    void InvalidateActiveRowStrip(std::int32_t) override {}
    void InvalidateActiveCellAreas(CellPos) override {}
    void InvalidateHeaderCorner() override {}
    std::int32_t SaveRecord(std::int32_t, std::int32_t) override { return 1; }
};

struct FilledSheet {
    FilledSheet() {
        ForEachCell([&](std::int32_t row, std::int32_t col) { store.SetCellText(row, col, Text); });
        store.Properties.MaxRow = Rows;
    }
    StoreWatcher watcher;
    GridStore store{watcher};
    NoHost host;
    Selection selection{store, host};
    RowColumnOperations operations{store, selection, host};
};

PeerMap FilledPeer() {
    PeerMap map;
    ForEachCell([&](std::int32_t row, std::int32_t col) { map[{row, col}] = Text; });
    return map;
}

double TimePeerCopy(std::int32_t shift) {
    const PeerMap map = FilledPeer();
    return Seconds([&] {
        PeerMap copy;
        copy.reserve(map.size());
        for (const auto& [key, text] : map) {
            copy.emplace(CellPos{key.Row + shift, key.Col}, text);
        }
        Keep(copy.size());
    });
}

void RowOperations() {
    Ratio("InsertRows(1, 1) on 1 M cells, against copying a flat map", 1.5)
        .Run(
            [] {
                FilledSheet sheet;
                return Seconds([&] { sheet.operations.InsertRows(1, 1); });
            },
            [] { return TimePeerCopy(1); });
    Ratio("DeleteRows(1, 1) on 1 M cells, against copying a flat map", 1.5)
        .Run(
            [] {
                FilledSheet sheet;
                return Seconds([&] { sheet.operations.DeleteRows(1, 1); });
            },
            [] { return TimePeerCopy(-1); });
}

std::string TabbedMillion() {
    std::string text;
    ForEachCell([&](std::int32_t, std::int32_t col) {
        text += Text;
        text += col == Columns ? "\r\n" : "\t";
    });
    text.resize(text.size() - 2);
    return text;
}

void TabbedFields() {
    const std::string text = TabbedMillion();
    Ratio("SetTabbedText of 1 M fields, against 1 M single sets", 1.3)
        .Run(
            [&] {
                StoreWatcher watcher;
                GridStore store(watcher);
                return Seconds([&] { SetTabbedText(store, 1, 1, text); });
            },
            [] {
                StoreWatcher watcher;
                GridStore store(watcher);
                return Seconds([&] {
                    ForEachCell([&](std::int32_t row, std::int32_t col) {
                        store.SetCellText(row, col, Text);
                    });
                });
            });
}

double TimeSnprintf() {
    constexpr int Calls = 200'000;
    char line[64];
    int length = 0;
    volatile int year = 2003;
    return Seconds([&] {
        for (int i = 0; i < Calls; ++i) {
            length += std::snprintf(line, sizeof line, "%d-%d-%d", year, i % 12 + 1, i % 28 + 1);
        }
        Keep(length);
    });
}

double TimeShown(const char* text, const char* showFormat) {
    StoreWatcher watcher;
    GridStore store(watcher);
    store.SetCellText(1, 1, text);
    store.SetCellShowFormat(1, 1, showFormat);
    constexpr int Calls = 200'000;
    std::size_t length = 0;
    return Seconds([&] {
        for (int i = 0; i < Calls; ++i) {
            length += GetCellFormatText(store, 1, 1).size();
        }
        Keep(length);
    });
}

void ShownTexts() {
    Ratio("GetCellFormatText of a date, against snprintf of 3 integers", 6)
        .Run([] { return TimeShown("2003-8-14", "YYYY-MM-DD"); }, TimeSnprintf);
    Ratio("GetCellFormatText of money, against snprintf of 3 integers", 12)
        .Run([] { return TimeShown("123456789012.34", "[RMB_UPPER]"); }, TimeSnprintf);
    Ratio("GetCellFormatText of plain text, against snprintf", 1)
        .Run([] { return TimeShown("12345678", "General"); }, TimeSnprintf);
}

}  // namespace
}  // namespace veygrid::bench

int main() {
    veygrid::bench::RowOperations();
    veygrid::bench::TabbedFields();
    veygrid::bench::ShownTexts();
    return 0;
}
