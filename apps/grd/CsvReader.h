// Records of comma- or tab-separated text, read from one buffer without copying.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// A place where the text breaks the rules of quoting.
class CsvFault : public std::runtime_error {
  public:
    CsvFault(std::size_t line, const std::string& what) : std::runtime_error(what), m_line(line) {}
    // 1-based line of the text, counted by line ends inside quotes too.
    std::size_t Line() const { return m_line; }

  private:
    std::size_t m_line;
};

struct CsvField {
    // What stands in the buffer, without the quotes around it.
    std::string_view Raw;
    // Two quotes in a row stand for one.
    bool DoubledQuotes = false;
    bool Ascii = true;

    // The field's text; lies in the buffer or in `scratch`.
    std::string_view Text(std::string& scratch) const;
};

// Fields are split by the delimiter, records by CR, LF or CRLF; the last line end may be missing.
// A field that begins with a quote runs to the next single quote: in it delimiters and line ends
// are text and two quotes stand for one. A quote elsewhere is text. The text may be UTF-8 or code
// page 936: no byte of a longer character looks like a quote, a delimiter or a line end.
class CsvReader {
  public:
    // The buffer must outlive the reader and the fields. The delimiter is an ASCII character below
    // 0x40.
    CsvReader(std::string_view text, char delimiter)
        : m_begin(text.data()),
          m_next(text.data()),
          m_end(m_begin + text.size()),
          m_delimiter(delimiter) {}

    // Appends the fields of the next record; false, with nothing appended, behind the last one. A
    // blank line is a record of one empty field. Throws CsvFault on a quote that is not closed and
    // on text between a closing quote and the next delimiter.
    bool NextRecord(std::vector<CsvField>& fields);

    // 1-based line on which the record last read begins.
    std::size_t RecordLine() const { return m_recordLine; }
    // Bytes read so far.
    std::size_t Position() const { return static_cast<std::size_t>(m_next - m_begin); }

  private:
    CsvField QuotedField();
    CsvField PlainField();
    void EndRecord();

    const char* m_begin;
    const char* m_next;
    const char* m_end;
    std::size_t m_line = 1;
    std::size_t m_recordLine = 1;
    char m_delimiter;
};

// Whether all bytes are below 0x80.
bool IsAsciiText(std::string_view text);

}  // namespace veygrid
