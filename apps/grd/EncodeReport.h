// Characters that code page 936 cannot hold: where they stand, and what becomes of them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/grd/Console.h"

namespace veygrid {

class EncodeReport {
  public:
    // `place` says in words where the character stands.
    void Add(const std::string& place, char32_t character);
    // A byte that belongs to no character of the text's encoding, which has this name.
    void AddBroken(const std::string& place, unsigned char byte, const std::string& encoding);

    bool IsEmpty() const { return m_count == 0; }

    // Nothing for an empty report. With `replaced`, tells on the error output how many characters
    // became a question mark; otherwise throws FileTrouble. Both name the first ten places.
    void Judge(Console& console, const std::string& file, bool replaced) const;

  private:
    static constexpr std::size_t MostNamed = 10;

    void AddLine(const std::string& line);

    std::size_t m_count = 0;
    std::vector<std::string> m_named;
};

}  // namespace veygrid
