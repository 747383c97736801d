// Cells as fields between commas or tabs, quoted where that is needed.
#include <vector>

#include "apps/grd/CellText.h"
#include "apps/grd/CellWriters.h"

namespace veygrid {

namespace {

class DelimitedWriter {
  public:
    DelimitedWriter(const CellsToWrite& cells, char delimiter, std::string_view lineEnd,
                    TextOutput& out, Progress& progress)
        : m_cells(cells),
          m_out(out),
          m_progress(progress),
          m_delimiter(delimiter),
          m_lineEnd(lineEnd),
          m_special{delimiter, '"', '\r', '\n', '\0'} {}

    void Write() {
        const CellRange& range = m_cells.Slice.Range;
        if (m_cells.Header && HasOwnHeaders(m_cells.Store, range)) {
            WriteHeader();
        }
        for (RowWalk walk(m_cells.Slice); walk.Next();) {
            for (const CellEntry& cell : walk.Cells()) {
                AdvanceTo(cell.Pos.Col);
                PutField(TextOfCell(m_cells.Store, cell, m_cells.Shown, m_scratch));
            }
            EndRecord();
            m_progress.Reach(walk.FirstIndex());
        }
    }

  private:
    void WriteHeader() {
        const CellRange& range = m_cells.Slice.Range;
        for (std::int64_t col = range.Col1; col <= range.Col2; ++col) {
            AdvanceTo(col);
            PutField(m_cells.Store.ColHeader(static_cast<std::int32_t>(col)));
        }
        EndRecord();
    }

    // Writes the delimiters that stand between the last field and this column.
    void AdvanceTo(std::int64_t col) {
        const std::int64_t fieldsBefore = col - m_cells.Slice.Range.Col1;
        m_out.Text().append(static_cast<std::size_t>(fieldsBefore - m_delimiters), m_delimiter);
        m_delimiters = fieldsBefore;
    }

    void PutField(std::string_view text) {
        m_fieldPut = m_fieldPut || !text.empty();
        if (text.find_first_of({m_special, 4}) == std::string_view::npos) {
            AppendInUtf8(m_out.Text(), text);
            return;
        }
        m_field.clear();
        AppendInUtf8(m_field, text);
        m_out.Text() += '"';
        for (const char c : m_field) {
            m_out.Text().append(c == '"' ? 2U : 1U, c);
        }
        m_out.Text() += '"';
    }

    // A record of a single empty field would look like a blank line that means nothing.
    void EndRecord() {
        const std::int64_t columns = m_cells.Slice.ColCount();
        AdvanceTo(m_cells.Slice.Range.Col2);
        if (columns == 1 && !m_fieldPut) {
            m_out.Text() += "\"\"";
        }
        m_out.Text() += m_lineEnd;
        m_out.SpillIfLarge();
        m_delimiters = 0;
        m_fieldPut = false;
    }

    const CellsToWrite& m_cells;
    TextOutput& m_out;
    Progress& m_progress;
    char m_delimiter;
    std::string_view m_lineEnd;
    char m_special[5];
    std::int64_t m_delimiters = 0;
    bool m_fieldPut = false;
    std::string m_scratch;
    std::string m_field;
};

}  // namespace

void WriteDelimited(const CellsToWrite& cells, char delimiter, std::string_view lineEnd,
                    TextOutput& out, Progress& progress) {
    DelimitedWriter(cells, delimiter, lineEnd, out, progress).Write();
}

}  // namespace veygrid
