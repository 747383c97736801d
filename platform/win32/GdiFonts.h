// Fonts made from records, those of cells each made once.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "grid/LogFont.h"
#include "platform/win32/GdiHandles.h"

namespace veygrid {

// The same font as the system has it, and back. A face name that is too long for a record is cut
// between two characters.
LOGFONTW WideRecord(const LogFont& record);
LogFont NarrowRecord(const LOGFONTW& wide);
// The name in code page 936, cut as above; the last byte ends it.
void SetFaceName(LogFont& record, std::string_view name);

// Where a Chinese face is not installed, one that shows Chinese well in small sizes stands in for
// it, in place of the system's choice. Null when the system makes no font.
OwnedFont MakeFont(LOGFONTW record);

// The control's own font, made again when its record changes.
class StockFont {
  public:
    // `described` is a font of the record that is wanted; null gives null.
    HFONT LikeFont(HFONT described);

  private:
    LOGFONTW m_record{};
    OwnedFont m_font;
};

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
