// The text of a cell as it is written out, and the side on which it stands.
#include "apps/grd/CellText.h"

#include <algorithm>

#include "apps/grd/CsvReader.h"
#include "valuetext/CellClass.h"
#include "valuetext/CodePage936.h"
#include "valuetext/ShowFormat.h"

namespace veygrid {

namespace {

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

void AppendEscaped(std::string& out, char c) {
    constexpr std::string_view named = "\t\n\r";
    constexpr std::string_view letters = "tnr";
    const std::size_t at = named.find(c);
    out += '\\';
    if (at != std::string_view::npos) {
        out += letters[at];
        return;
    }
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += 'x';
    out += digits[static_cast<unsigned char>(c) >> 4U];
    out += digits[static_cast<unsigned char>(c) & 15U];
}

}  // namespace

void AppendInUtf8(std::string& out, std::string_view text) {
    if (IsAsciiText(text)) {
        out += text;
    } else {
        out += Utf8FromCodePage936(text);
    }
}

void AppendOnOneLine(std::string& out, std::string_view text) {
    if (std::none_of(text.begin(), text.end(), IsControl)) {
        AppendInUtf8(out, text);
        return;
    }
    for (const char c : Utf8FromCodePage936(text)) {
        if (IsControl(c)) {
            AppendEscaped(out, c);
        } else {
            out += c;
        }
    }
}

std::string_view TextOfCell(const GridStore& store, const CellEntry& cell, bool shown,
                            std::string& scratch) {
    if (!shown) {
        return *cell.Text;
    }
    const std::string& format = store.EffectiveFormatRef(cell.Pos.Row, cell.Pos.Col).ShowFormat;
    if (format.empty()) {
        return *cell.Text;
    }
    scratch = ShowText(*cell.Text, format);
    return scratch;
}

HorizontalAlign SideOfText(const CCellFormat& format, std::string_view text) {
    const auto align = static_cast<unsigned>(format.GetHAlign());
    if (align == 0) {
        return ClassifyCellText(text) == CellClass::OtherText ? HorizontalAlign::Left
                                                              : HorizontalAlign::Right;
    }
    // The bits are tested in this order, since a record may hold more than one.
    for (const HorizontalAlign side :
         {HorizontalAlign::Right, HorizontalAlign::Left, HorizontalAlign::Center}) {
        if ((align & static_cast<unsigned>(side)) != 0) {
            return side;
        }
    }
    return HorizontalAlign::Left;
}

bool HasOwnHeaders(const GridStore& store, const CellRange& range) {
    return std::any_of(store.ColHeaderMap.begin(), store.ColHeaderMap.end(),
                       [&](const auto& entry) {
                           const CellPos key = entry.key;
                           return key.Row == 0 && key.Col >= range.Col1 && key.Col <= range.Col2;
                       });
}

}  // namespace veygrid
