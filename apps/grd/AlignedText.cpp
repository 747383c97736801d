// Cells in columns that line up at a terminal, wide characters counted as two.
#include <algorithm>
#include <vector>

#include "apps/grd/CellText.h"
#include "apps/grd/CellWriters.h"
#include "apps/grd/DisplayWidth.h"

namespace veygrid {

namespace {

constexpr std::size_t Gap = 2;

class AlignedTextWriter {
  public:
    AlignedTextWriter(const CellsToWrite& cells, TextOutput& out, Progress& progress)
        : m_cells(cells),
          m_out(out),
          m_progress(progress),
          m_header(cells.Header && HasOwnHeaders(cells.Store, cells.Slice.Range)) {
        m_columns.resize(
            static_cast<std::size_t>(std::max<std::int64_t>(cells.Slice.ColCount(), 0)));
    }

    void Write() {
        Measure();
        if (m_header) {
            WriteHeader();
        }
        for (RowWalk walk(m_cells.Slice); walk.Next();) {
            WriteRow(walk);
        }
    }

  private:
    std::size_t ColumnOf(const CellEntry& cell) const {
        return static_cast<std::size_t>(cell.Pos.Col - m_cells.Slice.Range.Col1);
    }

    std::string_view LineOf(const CellEntry& cell, HorizontalAlign* side) {
        const std::string_view text = TextOfCell(m_cells.Store, cell, m_cells.Shown, m_scratch);
        if (side != nullptr) {
            *side = SideOfText(m_cells.Store.EffectiveFormatRef(cell.Pos.Row, cell.Pos.Col), text);
        }
        m_line.clear();
        AppendOnOneLine(m_line, text);
        return m_line;
    }

    std::int32_t NumberOf(std::size_t column) const {
        return static_cast<std::int32_t>(std::int64_t{m_cells.Slice.Range.Col1} +
                                         static_cast<std::int64_t>(column));
    }

    std::string_view HeaderOf(std::size_t column) {
        m_line.clear();
        AppendOnOneLine(m_line, m_cells.Store.ColHeader(NumberOf(column)));
        return m_line;
    }

    void Raise(std::size_t column, std::size_t width) {
        m_columns[column] =
            std::max(m_columns[column],
                     static_cast<std::uint32_t>(std::min<std::size_t>(width, UINT32_MAX)));
    }

    void Measure() {
        for (std::size_t column = 0; m_header && column < m_columns.size(); ++column) {
            Raise(column, DisplayWidth(HeaderOf(column)));
        }
        for (std::size_t i = 0; i < m_cells.Slice.Cells.size(); ++i) {
            const CellEntry& cell = m_cells.Slice.Cells[i];
            Raise(ColumnOf(cell), DisplayWidth(LineOf(cell, nullptr)));
            if (i % 4096 == 0) {
                m_progress.Reach(i / 2);
            }
        }
    }

    // Blanks are owed until a text follows them, so that no line ends in one.
    void Put(std::string_view text, std::size_t column, HorizontalAlign side) {
        const std::size_t room =
            m_columns[column] - std::min<std::size_t>(m_columns[column], DisplayWidth(text));
        const std::size_t front = side == HorizontalAlign::Right    ? room
                                  : side == HorizontalAlign::Center ? room / 2
                                                                    : 0;
        m_owed += front;
        if (!text.empty()) {
            m_out.Text().append(m_owed, ' ');
            m_out.Text() += text;
            m_owed = 0;
        }
        m_owed += room - front;
    }
    void Skip(std::size_t column) { m_owed += m_columns[column] + Gap; }
    void EndLine() {
        m_out.Text() += '\n';
        m_owed = 0;
        m_out.SpillIfLarge();
    }

    void WriteHeader() {
        for (std::size_t column = 0; column < m_columns.size(); ++column) {
            // A header stands where the texts of its column stand.
            const CCellFormat& format = m_cells.Store.EffectiveFormatRef(0, NumberOf(column));
            const std::string_view header = HeaderOf(column);
            Put(header, column, SideOfText(format, header));
            m_owed += Gap;
        }
        EndLine();
        for (std::size_t column = 0; column < m_columns.size(); ++column) {
            Put(std::string(m_columns[column], '-'), column, HorizontalAlign::Left);
            m_owed += Gap;
        }
        EndLine();
    }

    void WriteRow(const RowWalk& walk) {
        std::size_t next = 0;
        for (const CellEntry& cell : walk.Cells()) {
            const std::size_t column = ColumnOf(cell);
            for (; next < column; ++next) {
                Skip(next);
            }
            HorizontalAlign side{};
            const std::string_view text = LineOf(cell, &side);
            Put(text, column, side);
            m_owed += Gap;
            ++next;
        }
        EndLine();
        m_progress.Reach((m_cells.Slice.Cells.size() + walk.FirstIndex()) / 2);
    }

    const CellsToWrite& m_cells;
    TextOutput& m_out;
    Progress& m_progress;
    bool m_header;
    std::vector<std::uint32_t> m_columns;  // widths
    std::size_t m_owed = 0;
    std::string m_scratch;
    std::string m_line;
};

}  // namespace

void WriteAlignedText(const CellsToWrite& cells, TextOutput& out, Progress& progress) {
    AlignedTextWriter(cells, out, progress).Write();
}

}  // namespace veygrid
