// Characters of multi-byte text in code page 936: one or two bytes, never split.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veygrid {

// All positions in text are byte offsets. A lead byte (0x81 to 0xFE) followed by a trail byte
// (0x40 to 0xFE but 0x7F) is one character; a lead byte followed by anything else, or by nothing,
// stands alone, so that broken text never swallows a tab, a line end or a digit.

inline constexpr std::size_t NotFound = std::string_view::npos;

constexpr bool IsLeadByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x81 && code <= 0xFE;
}

constexpr bool IsTrailByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x40 && code <= 0xFE && code != 0x7F;
}

// Length in bytes, 1 or 2, of the character at `pos`, which must lie inside the text.
constexpr std::size_t CharLength(std::string_view text, std::size_t pos) {
    return IsLeadByte(text[pos]) && pos + 1 < text.size() && IsTrailByte(text[pos + 1]) ? 2 : 1;
}

constexpr bool IsAsciiDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsAsciiAlpha(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
// Tab, line feed, vertical tab, form feed, carriage return and blank.
constexpr bool IsBlankChar(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr char ToUpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The views returned lie inside the view given.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);
// Without every `mark`, a single-byte character, at the right end.
std::string_view TrimRightMark(std::string_view text, char mark);

// Copy with the letters a to z made capital; two-byte characters pass unaltered.
std::string UpperCase(std::string_view text);

// First or last position of the single-byte character `c`, searched from `start`; NotFound when
// there is none. Trail bytes never match. `start` must be the first byte of a character.
std::size_t FindChar(std::string_view text, char c, std::size_t start = 0);
std::size_t FindLastChar(std::string_view text, char c);

// First position of the text `what` that begins at the first byte of a character, from `start` on;
// NotFound when there is none. An empty `what` is found at `start`.
std::size_t FindText(std::string_view text, std::string_view what, std::size_t start = 0);

// Number of characters that are the single byte `c`.
std::size_t CountChar(std::string_view text, char c);

// Order of two texts by characters: negative, 0 or positive. A two-byte character sorts by its
// lead byte and then its trail byte, behind every single byte.
int CompareMultiByte(std::string_view a, std::string_view b);

}  // namespace veygrid
