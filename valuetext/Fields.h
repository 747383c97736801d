// Strings of fields split by a delimiter character: lookup, replacement, and a linear walk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veygrid {

inline constexpr char VerticalTab = '\x0B';
inline constexpr char Tab = '\t';

// Walks the fields of a text once, from left to right, in time linear in the text. A text of n
// delimiters has n + 1 fields; a text without one, the empty text included, has a single field.
// The fields lie inside the text, which must outlive the walk.
class FieldWalk {
  public:
    FieldWalk(std::string_view text, char delimiter) : m_text(text), m_delimiter(delimiter) {}

    // Moves to the next field; false behind the last one.
    bool Next();
    std::string_view Field() const { return m_field; }
    // 0-based index of the current field.
    std::size_t Index() const { return m_index; }

  private:
    std::string_view m_text;
    std::string_view m_field;
    std::size_t m_next = 0;
    std::size_t m_index = NoIndex;
    char m_delimiter;
    bool m_done = false;

    static constexpr std::size_t NoIndex = static_cast<std::size_t>(-1);
};

// The field with the 0-based index, the remainder for the last one, and the empty text where the
// text has no such field.
std::string_view GetField(std::string_view text, std::size_t index, char delimiter);

// Replaces the field with the 0-based index; nothing changes where the text has no such field.
void SetField(std::string& text, std::size_t index, char delimiter, std::string_view value);

}  // namespace veygrid
