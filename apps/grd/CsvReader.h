// Records of comma- or tab-separated text, read in place from one buffer.
#pragma once

#include <cstddef>
#include <span>
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

// Fields are split by the delimiter, records by CR, LF or CRLF; the last line end may be missing.
// A field that begins with a quote runs to the next single quote: in it delimiters and line ends
// are text and two quotes stand for one. A quote elsewhere is text. The text may be UTF-8 or code
// page 936: no byte of a longer character looks like a quote, a delimiter or a line end.
class CsvReader {
  public:
    // The reader takes doubled quotes out in place, so that fields need no memory of their own; the
    // buffer must outlive the fields. The delimiter is an ASCII character below 0x40.
    CsvReader(std::span<char> text, char delimiter)
        : m_begin(text.data()),
          m_next(text.data()),
          m_end(m_begin + text.size()),
          m_delimiter(delimiter) {}

    // Appends the fields of the next record; false, with nothing appended, behind the last one. A
    // blank line is a record of one empty field. Throws CsvFault on a quote that is not closed and
    // on text between a closing quote and the next delimiter.
    bool NextRecord(std::vector<std::string_view>& fields);

    // 1-based line on which the record last read begins.
    std::size_t RecordLine() const { return m_recordLine; }
    // Bytes read so far.
    std::size_t Position() const { return static_cast<std::size_t>(m_next - m_begin); }

  private:
    std::string_view QuotedField();
    std::string_view PlainField();
    void EndRecord();

    char* m_begin;
    char* m_next;
    char* m_end;
    std::size_t m_line = 1;
    std::size_t m_recordLine = 1;
    char m_delimiter;
};

}  // namespace veygrid
