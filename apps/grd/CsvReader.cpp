// Records of comma- or tab-separated text, read from one buffer without copying.
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

const char* FindQuote(const char* from, const char* end) {
    const void* const found = std::memchr(from, Quote, static_cast<std::size_t>(end - from));
    return found == nullptr ? end : static_cast<const char*>(found);
}

}  // namespace

bool IsAsciiText(std::string_view text) {
    // Without an early end, so that the loop runs over many bytes at once.
    unsigned char all = 0;
    for (const char c : text) {
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    }
    return all < 0x80;
}

std::string_view CsvField::Text(std::string& scratch) const {
    if (!DoubledQuotes) {
        return Raw;
    }
    scratch.clear();
    for (std::size_t from = 0; from < Raw.size();) {
        const std::size_t quote = Raw.find(Quote, from);
        const std::size_t behind = quote == std::string_view::npos ? Raw.size() : quote + 1;
        scratch.append(Raw, from, behind - from);
        from = behind + 1;
    }
    return scratch;
}

bool CsvReader::NextRecord(std::vector<CsvField>& fields) {
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

CsvField CsvReader::PlainField() {
    const char* const start = m_next;
    const char* p = start;
    const char delimiter = m_delimiter;
    unsigned char all = 0;
    for (; p != m_end && *p != delimiter && *p != '\n' && *p != '\r'; ++p) {
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(*p));
    }
    m_next = p;
    return {{start, static_cast<std::size_t>(p - start)}, false, all < 0x80};
}

CsvField CsvReader::QuotedField() {
    const char* const start = m_next + 1;
    const std::size_t openedOn = m_line;
    bool doubled = false;
    const char* quote = FindQuote(start, m_end);
    while (quote != m_end && quote + 1 != m_end && quote[1] == Quote) {
        doubled = true;
        quote = FindQuote(quote + 2, m_end);
    }
    if (quote == m_end) {
        throw CsvFault(openedOn, "the quote that opens a field is never closed");
    }
    const std::string_view raw(start, static_cast<std::size_t>(quote - start));
    m_line += CountLineEnds(raw);
    m_next = quote + 1;
    if (m_next != m_end && *m_next != m_delimiter && *m_next != '\n' && *m_next != '\r') {
        throw CsvFault(m_line, "text stands behind the closing quote of a field");
    }
    return {raw, doubled, IsAsciiText(raw)};
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
