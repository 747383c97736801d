// The fonts that cells name by records, each made once.
#include "platform/win32/GdiFonts.h"

#include <algorithm>
#include <string>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

LOGFONTW WideRecord(const LogFont& record) {
    LOGFONTW wide{};
    wide.lfHeight = record.lfHeight;
    wide.lfWidth = record.lfWidth;
    wide.lfEscapement = record.lfEscapement;
    wide.lfOrientation = record.lfOrientation;
    wide.lfWeight = record.lfWeight;
    wide.lfItalic = record.lfItalic;
    wide.lfUnderline = record.lfUnderline;
    wide.lfStrikeOut = record.lfStrikeOut;
    wide.lfCharSet = record.lfCharSet;
    wide.lfOutPrecision = record.lfOutPrecision;
    wide.lfClipPrecision = record.lfClipPrecision;
    wide.lfQuality = record.lfQuality;
    wide.lfPitchAndFamily = record.lfPitchAndFamily;
    const auto nameEnd = std::ranges::find(record.lfFaceName, '\0');
    const std::u16string name = Utf16FromCodePage936({record.lfFaceName.begin(), nameEnd});
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1),
                std::begin(wide.lfFaceName));
    return wide;
}

}  // namespace

HFONT GdiFonts::Find(const LogFont& record) const {
    const auto found =
        std::ranges::find_if(m_fonts, [&](const Entry& entry) { return entry.record == record; });
    return found == m_fonts.end() ? nullptr : found->font.Get();
}

HFONT GdiFonts::Make(const LogFont& record) {
    const LOGFONTW wide = WideRecord(record);
    OwnedFont font(::CreateFontIndirectW(&wide));
    if (font.Get() == nullptr) {
        return nullptr;
    }
    if (IsFull()) {
        m_fonts.clear();
    }
    m_fonts.push_back({record, std::move(font)});
    return m_fonts.back().font.Get();
}

}  // namespace veygrid
