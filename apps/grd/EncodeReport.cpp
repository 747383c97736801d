// Characters that code page 936 cannot hold: where they stand, and what becomes of them.
#include "apps/grd/EncodeReport.h"

#include <array>
#include <cstdio>

#include "apps/grd/Trouble.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

std::string Hex(const char* format, unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

}  // namespace

void EncodeReport::Add(const std::string& place, char32_t character) {
    AddLine(place + ": '" + Utf8FromCharacter(character) + "' " +
            Hex("U+%04X", static_cast<unsigned>(character)) + " is not in code page 936");
}

void EncodeReport::AddBroken(const std::string& place, unsigned char byte,
                             const std::string& encoding) {
    AddLine(place + ": byte " + Hex("0x%02X", byte) + " is not " + encoding);
}

void EncodeReport::AddLine(const std::string& line) {
    if (m_named.size() < MostNamed) {
        m_named.push_back(line);
    }
    ++m_count;
}

void EncodeReport::Judge(Console& console, const std::string& file, bool replaced) const {
    if (IsEmpty()) {
        return;
    }
    std::vector<std::string> details = m_named;
    if (m_count > m_named.size()) {
        details.push_back("and " + std::to_string(m_count - m_named.size()) + " more");
    }
    const std::string count =
        std::to_string(m_count) + (m_count == 1 ? " character" : " characters");
    if (replaced) {
        WriteMessage(console, file + ": ? stands for " + count, details);
    } else if (m_count == 1) {
        throw FileTrouble(file, m_named.front() + "; --replace writes ? for it");
    } else {
        throw FileTrouble(file, count + " cannot be kept; --replace writes ? for them", details);
    }
}

}  // namespace veygrid
