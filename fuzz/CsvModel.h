// Separated text told literally, one byte at a time, to hold the fast reader against.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace veygrid::model {

struct CsvRecord {
    std::size_t line;  // 1-based
    std::vector<std::string> fields;
};

struct CsvText {
    std::vector<CsvRecord> records;
    // Line of the first break of the rules, behind the records in front of it.
    std::optional<std::size_t> faultLine;
};

class CsvParser {
  public:
    CsvParser(std::string text, char delimiter) : m_text(std::move(text)), m_delimiter(delimiter) {}

    CsvText Parse() {
        CsvText result;
        while (m_next < m_text.size() && !m_faultLine) {
            CsvRecord record{m_line, {}};
            do {
                record.fields.push_back(Peek() == '"' ? Quoted() : Plain());
            } while (!m_faultLine && Take(m_delimiter));
            if (!m_faultLine) {
                TakeLineEnd();
                result.records.push_back(record);
            }
        }
        result.faultLine = m_faultLine;
        return result;
    }

  private:
    static constexpr int End = -1;

    int Peek() const {
        return m_next < m_text.size() ? static_cast<unsigned char>(m_text[m_next]) : End;
    }
    bool AtFieldEnd() const {
        return Peek() == End || Peek() == m_delimiter || Peek() == '\r' || Peek() == '\n';
    }
    bool Take(char c) {
        const bool there = Peek() == c;
        m_next += there ? 1U : 0U;
        return there;
    }
    // The characters of one line end, or none.
    std::string TakeLineEnd() {
        const std::size_t start = m_next;
        const bool carriageReturn = Take('\r');
        const bool lineFeed = Take('\n');
        m_line += carriageReturn || lineFeed ? 1U : 0U;
        return m_text.substr(start, m_next - start);
    }
    std::string Plain() {
        std::string field;
        while (!AtFieldEnd()) {
            field += m_text[m_next++];
        }
        return field;
    }
    std::string Quoted() {
        const std::size_t openedOn = m_line;
        std::string field;
        Take('"');
        while (Peek() != End) {
            if (Take('"')) {
                if (!Take('"')) {
                    m_faultLine = AtFieldEnd() ? m_faultLine : std::optional(m_line);
                    return field;
                }
                field += '"';
            } else if (Peek() == '\r' || Peek() == '\n') {
                field += TakeLineEnd();
            } else {
                field += m_text[m_next++];
            }
        }
        m_faultLine = openedOn;
        return field;
    }

    std::string m_text;
    std::size_t m_next = 0;
    std::size_t m_line = 1;
    std::optional<std::size_t> m_faultLine;
    char m_delimiter;
};

}  // namespace veygrid::model
