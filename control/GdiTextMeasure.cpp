// Widths of texts in a font of the system.
#include "control/GdiTextMeasure.h"

#include <algorithm>

#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

// Beyond this a width is far outside any column.
constexpr std::size_t MostCharacters = 1U << 15U;

}  // namespace

GdiTextMeasure::GdiTextMeasure(HFONT font) {
    if (font != nullptr) {
        ::SelectObject(m_target.Get(), font);
    }
}

std::int32_t GdiTextMeasure::TextWidth(std::string_view text) const {
    const std::wstring wide = WideFromText(text);
    SIZE size{};
    ::GetTextExtentPoint32W(m_target.Get(), wide.data(),
                            static_cast<int>(std::min(wide.size(), MostCharacters)), &size);
    return size.cx;
}

}  // namespace veygrid
