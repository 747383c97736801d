// Text as JSON strings, for output too large to be built as one value.
#include "apps/grd/JsonText.h"

namespace veygrid {

namespace {

bool NeedsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void AppendEscape(std::string& out, char c) {
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    const std::size_t at = named.find(c);
    out += '\\';
    if (at != std::string_view::npos) {
        out += letters[at];
        return;
    }
    constexpr std::string_view digits = "0123456789abcdef";
    out += "u00";
    out += digits[static_cast<unsigned char>(c) >> 4U];
    out += digits[static_cast<unsigned char>(c) & 15U];
}

}  // namespace

void AppendJsonString(std::string& out, std::string_view utf8) {
    out += '"';
    std::size_t from = 0;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if (NeedsEscape(utf8[i])) {
            out.append(utf8, from, i - from);
            AppendEscape(out, utf8[i]);
            from = i + 1;
        }
    }
    out.append(utf8, from, utf8.size() - from);
    out += '"';
}

}  // namespace veygrid
