// Cells as text with tabs between cells and line ends between rows.
#include "persist/TabbedText.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "valuetext/Fields.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::string_view LineEnd = "\r\n";

// Numbers from first to last, both included, as the bounds of a caller name them.
struct Span {
    std::int32_t first;
    std::int32_t last;

    std::uint64_t Count() const {
        return static_cast<std::uint64_t>(std::int64_t{last} - first) + 1;
    }
};

Span ResolveSpan(std::int32_t first, std::int32_t last, std::int32_t openEnd) {
    const std::int32_t from = std::max(first, 1);
    const std::int32_t to = last < 1 ? openEnd : last;
    return {std::min(from, to), std::max(from, to)};
}

[[noreturn]] void ThrowTooLong(std::size_t mostBytes) {
    throw std::length_error("the text of the range is longer than " + std::to_string(mostBytes) +
                            " bytes");
}

// Tabs and line ends of a header row and the rows below it.
std::size_t SeparatorBytes(Span rows, Span cols, std::size_t mostBytes) {
    // Both factors stay below 2^31, so that the product cannot wrap.
    if (rows.Count() > mostBytes || cols.Count() - 1 > mostBytes) {
        ThrowTooLong(mostBytes);
    }
    const std::uint64_t bytes =
        (rows.Count() + 1) * (cols.Count() - 1) + rows.Count() * LineEnd.size();
    if (bytes > mostBytes) {
        ThrowTooLong(mostBytes);
    }
    return static_cast<std::size_t>(bytes);
}

// The text of a range while it grows, with the bytes that its fields may still take.
class RangeText {
  public:
    RangeText(Span rows, Span cols, std::size_t mostBytes) : m_cols(cols), m_most(mostBytes) {
        const std::size_t separators = SeparatorBytes(rows, cols, mostBytes);
        m_budget = mostBytes - separators;
        m_text.reserve(separators);
    }

    // One row; `field(col)` gives the text of a cell.
    template <class Field>
    void AppendRow(Field field) {
        for (std::int64_t col = m_cols.first; col <= m_cols.last; ++col) {
            if (col != m_cols.first) {
                m_text += Tab;
            }
            Append(field(static_cast<std::int32_t>(col)));
        }
    }
    void EndLine() { m_text += LineEnd; }
    std::string Take() { return std::move(m_text); }

  private:
    void Append(std::string_view field) {
        if (field.size() > m_budget) {
            ThrowTooLong(m_most);
        }
        m_budget -= field.size();
        m_text += field;
    }

    Span m_cols;
    std::size_t m_most;
    std::size_t m_budget;
    std::string m_text;
};

}  // namespace

std::string GetRangeText(const GridStore& store, std::int32_t row1, std::int32_t col1,
                         std::int32_t row2, std::int32_t col2, std::size_t mostBytes) {
    const GridProperties& sheet = store.Properties;
    const bool bound = store.BoundDataset != nullptr;
    const Span rows = ResolveSpan(row1, row2, bound ? sheet.MaxRow : sheet.LastRow);
    const Span cols = ResolveSpan(col1, col2, bound ? sheet.MaxCol : sheet.LastCol);
    RangeText text(rows, cols, mostBytes);
    std::string buffer;
    text.AppendRow([&](std::int32_t col) -> std::string_view {
        buffer = store.ColHeader(col);
        return buffer;
    });
    for (std::int64_t row = rows.first; row <= rows.last; ++row) {
        text.EndLine();
        text.AppendRow([&](std::int32_t col) {
            return store.CellTextRef(static_cast<std::int32_t>(row), col, buffer);
        });
    }
    return text.Take();
}

std::string SelectionText(const GridStore& store, std::span<const CellRange> selection) {
    if (selection.empty()) {
        return store.CellText(store.ActiveRow, store.ActiveCol);
    }
    const CellRange& range = selection.back();
    return GetRangeText(store, range.Row1, range.Col1, range.Row2, range.Col2);
}

void SetTabbedText(GridStore& store, std::int32_t row, std::int32_t col, std::string_view text) {
    for (FieldWalk lines(text, '\n'); lines.Next();) {
        const std::string_view line = TrimRightMark(lines.Field(), '\r');
        const std::int32_t lineRow = WrapAdd(row, static_cast<std::int32_t>(lines.Index()));
        for (FieldWalk cells(line, Tab); cells.Next();) {
            const std::int32_t cellCol = WrapAdd(col, static_cast<std::int32_t>(cells.Index()));
            store.SetCellText(lineRow, cellCol, cells.Field());
        }
    }
}

}  // namespace veygrid
