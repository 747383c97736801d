// Widths of texts in a font of the system.
#include "control/GdiTextMeasure.h"

#include <algorithm>

#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

// Beyond this a width is far outside any column.
constexpr std::size_t MostCharacters = 1U << 15U;

}  // namespace

GdiTextMeasure::GdiTextMeasure(IDispatch* font) : m_target(::CreateCompatibleDC(nullptr)) {
    HFONT handle = nullptr;
    if (font != nullptr &&
        SUCCEEDED(
            font->QueryInterface(IID_IFont, reinterpret_cast<void**>(m_font.GetAddressOf()))) &&
        SUCCEEDED(m_font->get_hFont(&handle))) {
        m_before = ::SelectObject(m_target, handle);
    }
}

GdiTextMeasure::~GdiTextMeasure() {
    if (m_before != nullptr) {
        ::SelectObject(m_target, m_before);
    }
    ::DeleteDC(m_target);
}

std::int32_t GdiTextMeasure::TextWidth(std::string_view text) const {
    const std::wstring wide = WideFromText(text);
    SIZE size{};
    ::GetTextExtentPoint32W(m_target, wide.data(),
                            static_cast<int>(std::min(wide.size(), MostCharacters)), &size);
    return size.cx;
}

}  // namespace veygrid
