// The lines into which DrawText breaks a text.
#include "platform/cairo/TextLines.h"

#include <algorithm>
#include <bitset>

#include "platform/Surface.h"
#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

// A set of characters, by their bytes as a number.
using CharacterSet = std::bitset<0x10000>;

std::size_t CodeOf(std::string_view character) {
    std::size_t code = 0;
    for (const char byte : character) {
        code = code << 8U | static_cast<unsigned char>(byte);
    }
    return code;
}

CharacterSet SetOf(std::u16string_view characters) {
    CharacterSet set;
    for (const char16_t unit : characters) {
        set.set(CodeOf(CodePage936FromUtf16(std::u16string_view(&unit, 1))));
    }
    return set;
}

bool MayNotBegin(std::string_view character) {
    static const CharacterSet set =
        SetOf(u"，。、．；：？！）〕】》」』〉］｝”’…—～·‰％℃々,.;:?!)]}%");
    return set.test(CodeOf(character));
}

bool MayNotEnd(std::string_view character) {
    static const CharacterSet set = SetOf(u"（〔【《「『〈［｛“‘￥＄([{");
    return set.test(CodeOf(character));
}

bool MayBreakBetween(std::string_view before, std::string_view after) {
    if (after == " ") {
        return false;
    }
    const bool isWide = before.size() > 1 || after.size() > 1;
    return before == " " || (isWide && !MayNotBegin(after) && !MayNotEnd(before));
}

}  // namespace

double WidthOf(std::string_view text, CharacterWidths& widths) {
    double width = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t length = CharLength(text, pos);
        width += widths.Advance(text.substr(pos, length));
        pos += length;
    }
    return width;
}

void TextLines::Break(std::string_view text, std::uint32_t format, double limit,
                      CharacterWidths& widths) {
    m_lines.clear();
    DropPrefixes(text);
    // A line end is never part of a character of two bytes, nor is an ampersand.
    for (std::size_t begin = 0; begin < m_shown.size();) {
        const std::size_t found =
            (format & DtSingleLine) != 0 ? NotFound : m_shown.find_first_of("\r\n", begin);
        const std::size_t end = std::min(found, m_shown.size());
        if ((format & DtWordBreak) != 0 && (format & DtSingleLine) == 0) {
            AddWrapped(begin, end, limit, widths);
        } else {
            Add(begin, end, WidthOf(m_shown.substr(begin, end - begin), widths));
        }
        begin = end + (m_shown.substr(end).starts_with("\r\n") ? 2 : 1);
    }
}

double TextLines::Width() const {
    double width = 0;
    for (const TextLine& line : m_lines) {
        width = std::max(width, line.Width);
    }
    return width;
}

void TextLines::DropPrefixes(std::string_view text) {
    m_marks.clear();
    m_shown = text;
    std::size_t mark = text.find('&');
    if (mark == NotFound) {
        return;
    }
    m_copy.clear();
    std::size_t begin = 0;
    for (; mark != NotFound && mark + 1 < text.size(); mark = text.find('&', begin + 1)) {
        m_copy.append(text, begin, mark - begin);
        begin = mark + 1;
        if (text[begin] != '&') {
            m_marks.push_back(m_copy.size());
        }
    }
    m_copy.append(text, begin);
    m_shown = m_copy;
}

void TextLines::AddWrapped(std::size_t begin, std::size_t end, double limit,
                           CharacterWidths& widths) {
    std::size_t breakAt = begin;
    std::string_view before;
    double width = 0;
    for (std::size_t pos = begin; pos < end;) {
        const std::string_view character = m_shown.substr(pos, CharLength(m_shown, pos));
        if (pos > begin && MayBreakBetween(before, character)) {
            breakAt = pos;
        }
        width += widths.Advance(character);
        if (width > limit && breakAt > begin && character != " ") {
            const std::size_t last = m_shown.substr(0, breakAt).find_last_not_of(' ');
            const std::size_t lineEnd = last == NotFound ? begin : std::max(begin, last + 1);
            Add(begin, lineEnd, WidthOf(m_shown.substr(begin, lineEnd - begin), widths));
            begin = pos = breakAt;
            width = 0;
            continue;
        }
        before = character;
        pos += character.size();
    }
    Add(begin, end, width);
}

void TextLines::Add(std::size_t begin, std::size_t end, double width) {
    m_lines.push_back({m_shown.substr(begin, end - begin), width, LastMark(begin, end)});
}

std::size_t TextLines::LastMark(std::size_t begin, std::size_t end) const {
    const auto mark = std::lower_bound(m_marks.begin(), m_marks.end(), end);
    return mark == m_marks.begin() || mark[-1] < begin ? NotFound : mark[-1] - begin;
}

}  // namespace veygrid
