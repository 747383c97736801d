// The fonts that cells name by records, each made once.
#pragma once

#include <cstddef>
#include <vector>

#include "grid/LogFont.h"
#include "platform/win32/GdiHandles.h"

namespace veygrid {

class GdiFonts {
  public:
    // More fonts than a sheet shows at a time.
    static constexpr std::size_t MostFonts = 64;

    // The font of a record; null when it is not known.
    HFONT Find(const LogFont& record) const;
    // Makes the font; null when the system cannot. No font may be selected when there are MostFonts
    // already: they are all given back then.
    HFONT Make(const LogFont& record);
    bool IsFull() const { return m_fonts.size() >= MostFonts; }

  private:
    struct Entry {
        LogFont record;
        OwnedFont font;
    };
    std::vector<Entry> m_fonts;
};

}  // namespace veygrid
