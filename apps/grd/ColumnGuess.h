// What kind of values a column of imported text holds, and how wide they are.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "grid/GridStore.h"

namespace veygrid {

// Fed with every text of a column, in code page 936.
class ColumnGuess {
  public:
    void See(std::string_view text) {
        m_width = std::max(m_width, text.size());
        if (!text.empty()) {
            m_seen = true;
            m_number = m_number && LooksLikeNumber(text);
            m_date = m_date && LooksLikeDate(text);
        }
    }

    // Date when all texts are dates, Number when all are numbers, String otherwise; Unknown while
    // there was no text. Eight digits that are a date count as one, as they do when typed.
    ColumnType Type() const;

    // Of the widest text: bytes, which is also the columns of a terminal that it fills.
    std::size_t Width() const { return m_width; }

    // Digits with at most one point and one "-" in front. Codes are none: digits with a needless
    // zero in front, or more of them than a calculation would keep.
    static bool LooksLikeNumber(std::string_view text);
    // What may be typed as a date, and the 29th of February of any year too.
    static bool LooksLikeDate(std::string_view text);

  private:
    std::size_t m_width = 0;
    bool m_seen = false;
    bool m_number = true;
    bool m_date = true;
};

}  // namespace veygrid
