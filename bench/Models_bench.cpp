// GridMap against the table models of two toolkits: time and memory of a million short texts.
#include <malloc.h>
#include <wx/grid.h>

#include <QStandardItemModel>
#include <QString>
#include <cstdint>
#include <memory>
#include <string>

#include "bench/Ratio.h"
#include "grid/GridMap.h"

namespace veygrid::bench {
namespace {

constexpr int Rows = 50'000;
constexpr int Columns = 20;
constexpr double Cells = double{Rows} * Columns;

class OurTable {
  public:
    void Set(int row, int col) { m_map.Set({row + 1, col + 1}, m_text); }
    std::size_t Get(int row, int col) const { return m_map.Find({row + 1, col + 1})->size(); }
    void Remove(int row, int col) { m_map.Remove({row + 1, col + 1}); }

  private:
    GridMap<std::string> m_map;
    std::string m_text = "12345678";
};

class QtTable {
  public:
    void Set(int row, int col) { m_model.setItem(row, col, new QStandardItem(m_text)); }
    std::size_t Get(int row, int col) const {
        return static_cast<std::size_t>(m_model.item(row, col)->text().size());
    }
    void Remove(int row, int col) { delete m_model.takeItem(row, col); }

  private:
    QStandardItemModel m_model{Rows, Columns};
    QString m_text = QStringLiteral("12345678");
};

class WxTable {
  public:
    void Set(int row, int col) { m_table.SetValue(row, col, m_text); }
    std::size_t Get(int row, int col) { return m_table.GetValue(row, col).length(); }
    void Remove(int row, int col) { m_table.SetValue(row, col, wxString()); }

  private:
    wxGridStringTable m_table{Rows, Columns};
    wxString m_text = "12345678";
};

template <class Visit>
void ForEachCell(Visit visit) {
    for (int row = 0; row < Rows; ++row) {
        for (int col = 0; col < Columns; ++col) {
            visit(row, col);
        }
    }
}

std::size_t HeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

struct Figures {
    double set, get, remove, bytes;
};

// Filling counts the making of the table, and emptying its end: a toolkit's table pays for its
// cells when it is made, ours when they are filled.
template <class Table>
Figures Measure() {
    malloc_trim(0);
    const std::size_t before = HeapBytes();
    Figures figures{};
    std::unique_ptr<Table> table;
    figures.set = Seconds([&] {
        table = std::make_unique<Table>();
        ForEachCell([&](int r, int c) { table->Set(r, c); });
    });
    figures.bytes = static_cast<double>(HeapBytes() - before) / Cells;
    std::size_t length = 0;
    figures.get = Seconds([&] { ForEachCell([&](int r, int c) { length += table->Get(r, c); }); });
    Keep(length);
    figures.remove = Seconds([&] {
        ForEachCell([&](int r, int c) { table->Remove(r, c); });
        table.reset();
    });
    return figures;
}

template <class Table>
Figures MedianOf(int rounds) {
    std::vector<double> set;
    std::vector<double> get;
    std::vector<double> remove;
    Figures last{};
    for (int i = 0; i < rounds; ++i) {
        last = Measure<Table>();
        set.push_back(last.set);
        get.push_back(last.get);
        remove.push_back(last.remove);
    }
    return {Median(set), Median(get), Median(remove), last.bytes};
}

void Compare(const char* peerName, const Figures& ours, const Figures& peer) {
    const std::string against = std::string(" 1 M cells, against ") + peerName;
    Ratio("set" + against, 1).Print(ours.set, peer.set, "ms", 1000);
    Ratio("get" + against, 1).Print(ours.get, peer.get, "ms", 1000);
    Ratio("remove" + against, 1).Print(ours.remove, peer.remove, "ms", 1000);
    Ratio("memory" + against, 1).Print(ours.bytes, peer.bytes, "bytes a cell");
}

}  // namespace
}  // namespace veygrid::bench

int main() {
    using namespace veygrid::bench;
    const Figures ours = MedianOf<OurTable>(3);
    Compare("QStandardItemModel", ours, MedianOf<QtTable>(3));
    Compare("wxGridStringTable", ours, MedianOf<WxTable>(3));
    Ratio("memory a cell, against 80 bytes", 1).Print(ours.bytes, 80, "bytes a cell");
    return 0;
}
