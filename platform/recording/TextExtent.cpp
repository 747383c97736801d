// A text measure that is the same on every machine.
#include "platform/recording/TextExtent.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "platform/Surface.h"
#include "valuetext/MultiByte.h"

namespace veygrid::recorded {

namespace {

// Takes the characters one by one and keeps the widths of the line that they stand in.
class Measure {
  public:
    Measure(std::int32_t room, bool breaks, const FixedPitch& font)
        : m_room(room), m_breaks(breaks), m_font(font) {}

    void Character(std::string_view character) {
        const std::int64_t width = static_cast<std::int64_t>(character.size()) * m_font.byteWidth;
        const bool mayBreakBefore = character.size() == 2;
        if (mayBreakBefore) {
            m_word = 0;
        }
        if (m_breaks && character != " " && m_line + width > m_room && m_line > m_word) {
            m_widest = std::max(m_widest, m_line - m_word);
            ++m_lines;
            m_line = m_word;
        }
        m_line += width;
        m_word = mayBreakBefore || character == " " ? 0 : m_word + width;
    }
    void EndLine() {
        m_widest = std::max(m_widest, m_line);
        m_line = m_word = 0;
        ++m_lines;
    }
    TextExtent Extent() const { return {Pixels(m_widest), Pixels(m_lines * m_font.lineHeight)}; }

  private:
    static std::int32_t Pixels(std::int64_t size) {
        return static_cast<std::int32_t>(
            std::min<std::int64_t>(size, std::numeric_limits<std::int32_t>::max()));
    }

    std::int32_t m_room;
    bool m_breaks;
    const FixedPitch& m_font;
    std::int64_t m_line = 0;  // width of the line so far
    std::int64_t m_word = 0;  // of which its last word takes this much
    std::int64_t m_widest = 0;
    std::int64_t m_lines = 0;
};

// Bytes of the line end at the position, 0 when there is none.
std::size_t LineEndAt(std::string_view text, std::size_t pos) {
    if (text[pos] == '\n') {
        return 1;
    }
    if (text[pos] != '\r') {
        return 0;
    }
    return pos + 1 < text.size() && text[pos + 1] == '\n' ? 2 : 1;
}

}  // namespace

TextExtent MeasureText(std::string_view text, std::uint32_t format, std::int32_t room,
                       const FixedPitch& font) {
    if (text.empty()) {
        return {};
    }
    Measure measure(room, (format & DtWordBreak) != 0, font);
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t lineEnd = (format & DtSingleLine) == 0 ? LineEndAt(text, pos) : 0;
        if (lineEnd != 0) {
            measure.EndLine();
            pos += lineEnd;
            continue;
        }
        if (text[pos] == '&' && ++pos == text.size()) {
            break;
        }
        const std::size_t length = CharLength(text, pos);
        measure.Character(text.substr(pos, length));
        pos += length;
    }
    measure.EndLine();
    return measure.Extent();
}

}  // namespace veygrid::recorded
