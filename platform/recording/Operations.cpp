// The operations of a drawing surface as values, each of which prints as one line.
#include "platform/recording/Operations.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "valuetext/CodePage936.h"

namespace veygrid::recorded {

namespace {

std::string Text(std::int32_t number) {
    return std::to_string(number);
}

std::string Text(Point point) {
    return Text(point.x) + "," + Text(point.y);
}

std::string Text(const Rect& rect) {
    return Text(Point{rect.left, rect.top}) + "," + Text(Point{rect.right, rect.bottom});
}

std::string Size(std::int32_t width, std::int32_t height) {
    return Text(width) + "x" + Text(height);
}

// Six digits at least.
std::string Text(Color color) {
    std::string digits;
    for (; color != 0 || digits.size() < 6; color >>= 4U) {
        digits.insert(digits.begin(), "0123456789ABCDEF"[color & 0xFU]);
    }
    return "0x" + digits;
}

std::string Escaped(char c) {
    switch (c) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        case '"':
        case '\\':
            return {'\\', c};
        default:
            return {c};
    }
}

std::string Quoted(std::string_view text) {
    std::string line = "\"";
    for (const char c : Utf8FromCodePage936(text)) {
        line += Escaped(c);
    }
    return line + '"';
}

std::string FormatText(std::uint32_t format) {
    static constexpr std::array<std::pair<std::uint32_t, std::string_view>, 6> Names = {{
        {DtCenter, "CENTER"},
        {DtRight, "RIGHT"},
        {DtVCenter, "VCENTER"},
        {DtWordBreak, "WORDBREAK"},
        {DtSingleLine, "SINGLELINE"},
        {DtCalcRect, "CALCRECT"},
    }};
    std::string line;
    for (const auto& [bit, name] : Names) {
        if ((format & bit) != 0) {
            line += ' ';
            line += name;
        }
    }
    return line.empty() ? " LEFT" : line;
}

std::string Text(const LogFont& font) {
    const auto* const end = std::find(font.lfFaceName.begin(), font.lfFaceName.end(), '\0');
    std::string line = Quoted(std::string(font.lfFaceName.begin(), end));
    line += " height " + Text(font.lfHeight) + " weight " + Text(font.lfWeight);
    line += font.lfItalic != 0 ? " italic" : "";
    line += font.lfUnderline != 0 ? " underline" : "";
    line += font.lfStrikeOut != 0 ? " strikeout" : "";
    return line;
}

struct Dumper {
    std::string operator()(const SetBkColor& op) const { return "SetBkColor " + Text(op.color); }
    std::string operator()(const SetBkMode& op) const {
        return op.mode == BkMode::Transparent ? "SetBkMode TRANSPARENT" : "SetBkMode OPAQUE";
    }
    std::string operator()(const SetTextColor& op) const {
        return "SetTextColor " + Text(op.color);
    }
    std::string operator()(const SelectStockFont&) const { return "SelectStockFont"; }
    std::string operator()(const SelectFont& op) const { return "SelectFont " + Text(op.font); }
    std::string operator()(const SelectFormerFont&) const { return "SelectFormerFont"; }
    std::string operator()(const SelectPen& op) const { return "SelectPen " + Text(op.color); }
    std::string operator()(const FillSolidRect& op) const {
        return "FillSolidRect " + Text(op.rect) + " " + Text(op.color);
    }
    std::string operator()(const Draw3dRect& op) const {
        return "Draw3dRect " + Text(op.rect) + " " + Text(op.topLeft) + " " + Text(op.bottomRight);
    }
    std::string operator()(const DrawFrameControl& op) const {
        return "DrawFrameControl " + Text(op.rect) + " " + std::to_string(op.type) + " " +
               std::to_string(op.state);
    }
    std::string operator()(const DrawText& op) const {
        const std::string line =
            "DrawText " + Quoted(op.text) + " " + Text(op.rect) + FormatText(op.format);
        return (op.format & DtCalcRect) == 0 ? line : line + " = " + Size(op.width, op.height);
    }
    std::string operator()(const MoveTo& op) const { return "MoveTo " + Text(op.point); }
    std::string operator()(const LineTo& op) const { return "LineTo " + Text(op.point); }
    std::string operator()(const SetPixel& op) const {
        return "SetPixel " + Text(op.point) + " " + Text(op.color);
    }
    std::string operator()(const InvertRect& op) const { return "InvertRect " + Text(op.rect); }
    std::string operator()(const DrawFocusRect& op) const {
        return "DrawFocusRect " + Text(op.rect);
    }
    std::string operator()(const CreateDIBitmap& op) const {
        return "CreateDIBitmap " + Size(op.width, op.height) + " header " +
               std::to_string(op.headerBytes) + " bits " + std::to_string(op.bitsBytes);
    }
    std::string operator()(const BitBlt& op) const {
        return "BitBlt " + Text(op.to) + " " + Size(op.width, op.height);
    }
    std::string operator()(const Remark& op) const { return op.line; }
};

}  // namespace

std::string Dump(const Operation& operation) {
    return std::visit(Dumper(), operation);
}

}  // namespace veygrid::recorded
