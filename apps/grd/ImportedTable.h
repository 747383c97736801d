// A table of separated text on its way into a grid file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "apps/grd/ColumnGuess.h"
#include "apps/grd/EncodeReport.h"
#include "apps/grd/Options.h"
#include "apps/grd/Progress.h"
#include "persist/Archive.h"
#include "persist/GridFile.h"

namespace veygrid {

// The encoding of a text, from its mark or from the first characters beyond ASCII: GBK when they
// are that and not UTF-8 too. Takes the mark off. Throws FileTrouble, which names the file, for
// text in 16-bit characters.
TextEncoding TakeEncoding(std::string_view& text, TextEncoding wanted, const std::string& file);

// Holds the records of the text as a grid file does: entries of the cell map, row for row. That
// takes a quarter of the memory of a sheet, and no look-up: the order in which a map gives out
// cells that were put in row by row is known beforehand.
class ImportedTable final : public CellTextSource {
  public:
    // Reads the whole text. Rows of the sheet count from 1 behind the header line; empty fields
    // leave no cell. Throws CsvFault. Progress counts the bytes of the text.
    ImportedTable(std::string_view text, TextEncoding encoding, char delimiter, bool header,
                  Progress& progress);

    std::int32_t RowCount() const { return m_lastRow; }
    std::int32_t ColCount() const { return static_cast<std::int32_t>(m_columns.size()); }
    // By column; empty without a header line.
    const std::vector<std::string>& Names() const { return m_names; }
    const std::vector<ColumnGuess>& Columns() const { return m_columns; }
    const EncodeReport& Report() const { return m_report; }

    // Bytes that the cells take in a file.
    std::size_t Size() const { return m_entries.Bytes.size(); }
    std::size_t Count() const override { return m_count; }
    void WriteEntries(ArchiveWriter& archive) const override;

  private:
    class Encoder;

    void AddRow(const std::vector<std::string_view>& texts, ArchiveWriter& entries);
    void SeeText(std::size_t col, std::string_view text);

    MemorySink m_entries;
    // Where the entries of each row begin, and the end behind the last row.
    std::vector<std::size_t> m_rowBegins{0};
    std::size_t m_count = 0;
    std::int32_t m_lastRow = 0;  // the last one with a cell
    std::vector<std::string> m_names;
    std::vector<ColumnGuess> m_columns;
    EncodeReport m_report;
};

}  // namespace veygrid
