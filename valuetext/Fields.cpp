// Strings of fields split by a delimiter character: lookup, replacement, and a linear walk.
#include "valuetext/Fields.h"

#include "valuetext/MultiByte.h"

namespace veygrid {

bool FieldWalk::Next() {
    if (m_done) {
        return false;
    }
    const std::size_t end = FindChar(m_text, m_delimiter, m_next);
    m_done = end == NotFound;
    m_field = m_text.substr(m_next, m_done ? NotFound : end - m_next);
    m_next = m_done ? m_text.size() : end + 1;
    ++m_index;
    return true;
}

std::string_view GetField(std::string_view text, std::size_t index, char delimiter) {
    FieldWalk walk(text, delimiter);
    while (walk.Next()) {
        if (walk.Index() == index) {
            return walk.Field();
        }
    }
    return {};
}

void SetField(std::string& text, std::size_t index, char delimiter, std::string_view value) {
    FieldWalk walk(text, delimiter);
    while (walk.Next()) {
        if (walk.Index() == index) {
            const auto start = static_cast<std::size_t>(walk.Field().data() - text.data());
            text.replace(start, walk.Field().size(), value);
            return;
        }
    }
}

}  // namespace veygrid
