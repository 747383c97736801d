// Records of comma- or tab-separated text, read in place from one buffer.
#include "apps/grd/CsvReader.h"

#include <cstring>

namespace veygrid {

namespace {

constexpr char Quote = '"';

// Line ends in the text, a CRLF being one.
std::size_t CountLineEnds(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool beforeLf = i + 1 < text.size() && text[i + 1] == '\n';
        count += text[i] == '\n' || (text[i] == '\r' && !beforeLf) ? 1U : 0U;
    }
    return count;
}

char* FindQuote(char* from, char* end) {
    void* found = std::memchr(from, Quote, static_cast<std::size_t>(end - from));
    return found == nullptr ? end : static_cast<char*>(found);
}

}  // namespace

bool CsvReader::NextRecord(std::vector<std::string_view>& fields) {
    if (m_next == m_end) {
        return false;
    }
    m_recordLine = m_line;
    for (;;) {
        fields.push_back(m_next != m_end && *m_next == Quote ? QuotedField() : PlainField());
        if (m_next == m_end || *m_next != m_delimiter) {
            EndRecord();
            return true;
        }
        ++m_next;
    }
}

std::string_view CsvReader::PlainField() {
    char* const start = m_next;
    char* p = start;
    const char delimiter = m_delimiter;
    while (p != m_end && *p != delimiter && *p != '\n' && *p != '\r') {
        ++p;
    }
    m_next = p;
    return {start, static_cast<std::size_t>(p - start)};
}

std::string_view CsvReader::QuotedField() {
    char* const start = m_next + 1;
    const std::size_t openedOn = m_line;
    char* to = start;
    for (char* from = start;;) {
        char* const quote = FindQuote(from, m_end);
        if (quote == m_end) {
            throw CsvFault(openedOn, "the quote that opens a field is never closed");
        }
        const auto length = static_cast<std::size_t>(quote - from);
        m_line += CountLineEnds({from, length});
        if (to != from) {
            std::memmove(to, from, length);
        }
        to += length;
        from = quote + 1;
        if (from == m_end || *from != Quote) {
            m_next = from;
            break;
        }
        *to++ = Quote;
        ++from;
    }
    if (m_next != m_end && *m_next != m_delimiter && *m_next != '\n' && *m_next != '\r') {
        throw CsvFault(m_line, "text stands behind the closing quote of a field");
    }
    return {start, static_cast<std::size_t>(to - start)};
}

void CsvReader::EndRecord() {
    if (m_next == m_end) {
        return;
    }
    const bool carriageReturn = *m_next++ == '\r';
    if (carriageReturn && m_next != m_end && *m_next == '\n') {
        ++m_next;
    }
    ++m_line;
}

}  // namespace veygrid
