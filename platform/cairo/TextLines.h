// The lines into which DrawText breaks a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// Widths of characters of code page 936, in pixels.
class CharacterWidths {
  public:
    virtual ~CharacterWidths() = default;
    // Of a character of one or two bytes.
    virtual double Advance(std::string_view character) = 0;
};

// Of a text in one line, in pixels.
double WidthOf(std::string_view text, CharacterWidths& widths);

struct TextLine {
    std::string_view Text;
    double Width;  // pixels
    // Offset in the text of the character that is underlined; NotFound when there is none.
    std::size_t Underlined;
};

// Lines end at CR, LF or CR LF, which are no part of them; a text that ends with one has no further
// line behind it. With DtWordBreak they also end in front of what would pass the limit: behind
// blanks, and between Chinese characters, but never in front of a closing mark or behind an opening
// one. Blanks at such an end are dropped. A word that is longer than the limit stays whole. With
// DtSingleLine nothing ends a line.
//
// An ampersand is dropped and underlines what follows; of several in a line the last one does. Two
// stand for one, and one at the end of the text for itself.
class TextLines {
  public:
    // The views in the lines are good until the next call, or the end of the text.
    void Break(std::string_view text, std::uint32_t format, double limit, CharacterWidths& widths);

    const std::vector<TextLine>& Lines() const { return m_lines; }
    // Of the widest line.
    double Width() const;

  private:
    void DropPrefixes(std::string_view text);
    void AddWrapped(std::size_t begin, std::size_t end, double limit, CharacterWidths& widths);
    void Add(std::size_t begin, std::size_t end, double width);
    std::size_t LastMark(std::size_t begin, std::size_t end) const;

    // What is shown: the caller's text, or the copy without its ampersands.
    std::string_view m_shown;
    std::string m_copy;
    std::vector<std::size_t> m_marks;
    std::vector<TextLine> m_lines;
};

}  // namespace veygrid
