// Fuzz target: tabbed text stored from a cell on, held against a plain split, and copied out again.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/FuzzTools.h"
#include "persist/TabbedText.h"
#include "valuetext/AtoI.h"

namespace veygrid {
namespace {

// Ragged lines make a large rectangle of few cells.
constexpr std::size_t MostCellsToCopy = 1U << 14U;

using Lines = std::vector<std::vector<std::string>>;

std::vector<std::string> Split(const std::string& text, char delimiter) {
    std::vector<std::string> fields(1);
    for (const char c : text) {
        if (c == delimiter) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

Lines SplitLines(const std::string& text) {
    Lines lines;
    for (std::string line : Split(text, '\n')) {
        line.erase(line.find_last_not_of('\r') + 1);
        lines.push_back(Split(line, '\t'));
    }
    return lines;
}

bool SameTexts(const GridStore& a, const GridStore& b) {
    for (const auto& [key, text] : a.CellTextMap) {
        const std::string* other = b.CellTextMap.Find(key);
        if (other == nullptr || *other != text) {
            return false;
        }
    }
    return a.CellTextMap.Count() == b.CellTextMap.Count();
}

void CheckStoring(const std::string& text, std::int32_t row, std::int32_t col) {
    StoreWatcher watcher;
    GridStore store(watcher);
    SetTabbedText(store, row, col, text);
    GridStore expected(watcher);
    const Lines lines = SplitLines(text);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t j = 0; j < lines[i].size(); ++j) {
            expected.SetCellText(WrapAdd(row, static_cast<std::int32_t>(i)),
                                 WrapAdd(col, static_cast<std::int32_t>(j)), lines[i][j]);
        }
    }
    Claim(SameTexts(store, expected), "every field stands in its cell");
    Claim(store.Properties.LastRow == expected.Properties.LastRow &&
              store.Properties.LastCol == expected.Properties.LastCol,
          "the last row and column rise with the cells");
}

// The text of the same range of both sheets, one below the other's header row.
void CheckCopy(const std::string& text) {
    const Lines lines = SplitLines(text);
    const auto widest =
        std::max_element(lines.begin(), lines.end(),
                         [](const auto& a, const auto& b) { return a.size() < b.size(); });
    if (lines.size() * widest->size() > MostCellsToCopy) {
        return;
    }
    const auto rows = static_cast<std::int32_t>(lines.size());
    const auto cols = static_cast<std::int32_t>(widest->size());
    StoreWatcher watcher;
    GridStore store(watcher);
    SetTabbedText(store, 2, 3, text);
    const std::string copied = GetRangeText(store, 2, 3, 1 + rows, 2 + cols);
    Claim(CountChar(copied, '\n') == lines.size(), "a header row and the rows are copied");
    GridStore pasted(watcher);
    SetTabbedText(pasted, 1, 3, copied);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t j = 0; j < lines[i].size(); ++j) {
            Claim(pasted.CellText(static_cast<std::int32_t>(i + 2),
                                  static_cast<std::int32_t>(j + 3)) == lines[i][j],
                  "a copied cell is pasted");
        }
    }
    Claim(GetRangeText(pasted, 1 + rows, 2 + cols, 2, 3) == copied,
          "reversed bounds copy the same");
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    std::string_view rest = TextOf(data, size);
    const std::string_view row = TakeLine(rest);
    const std::string_view col = TakeLine(rest);
    const std::string text(rest);
    CheckStoring(text, AtoI(row), AtoI(col));
    CheckCopy(text);
    return 0;
}
