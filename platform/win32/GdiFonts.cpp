// Fonts made from records, those of cells each made once.
#include "platform/win32/GdiFonts.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

// Best first. The second is made for small sizes, as the first is.
constexpr const wchar_t* StandIns[] = {L"SimSun", L"WenQuanYi Zen Hei Sharp", L"Microsoft YaHei",
                                       L"Noto Sans CJK SC", L"WenQuanYi Zen Hei"};

// Ends the enumeration, so that its answer tells whether there was anything.
int CALLBACK FoundFace(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM) {
    return 0;
}

bool IsInstalled(const wchar_t* face) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    ::lstrcpynW(wanted.lfFaceName, face, LF_FACESIZE);
    const MemoryDc screen(nullptr);
    return ::EnumFontFamiliesExW(screen.Get(), &wanted, FoundFace, 0, 0) == 0;
}

bool IsChinese(const LOGFONTW& record) {
    return record.lfCharSet == GB2312_CHARSET ||
           std::ranges::any_of(record.lfFaceName, [](wchar_t c) { return c >= 0x80; });
}

// The first that is installed; null when none is. Asked once.
const wchar_t* StandIn() {
    static const auto* const face = std::ranges::find_if(StandIns, IsInstalled);
    return face == std::end(StandIns) ? nullptr : *face;
}

}  // namespace

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

LogFont NarrowRecord(const LOGFONTW& wide) {
    LogFont record{.lfHeight = static_cast<std::int32_t>(wide.lfHeight),
                   .lfWidth = static_cast<std::int32_t>(wide.lfWidth),
                   .lfEscapement = static_cast<std::int32_t>(wide.lfEscapement),
                   .lfOrientation = static_cast<std::int32_t>(wide.lfOrientation),
                   .lfWeight = static_cast<std::int32_t>(wide.lfWeight),
                   .lfItalic = wide.lfItalic,
                   .lfUnderline = wide.lfUnderline,
                   .lfStrikeOut = wide.lfStrikeOut,
                   .lfCharSet = wide.lfCharSet,
                   .lfOutPrecision = wide.lfOutPrecision,
                   .lfClipPrecision = wide.lfClipPrecision,
                   .lfQuality = wide.lfQuality,
                   .lfPitchAndFamily = wide.lfPitchAndFamily};
    const auto* const nameEnd = std::ranges::find(wide.lfFaceName, L'\0');
    SetFaceName(record, CodePage936FromUtf16(std::u16string(std::begin(wide.lfFaceName), nameEnd)));
    return record;
}

void SetFaceName(LogFont& record, std::string_view name) {
    std::size_t length = 0;
    while (length < name.size() && length + CharLength(name, length) < record.lfFaceName.size()) {
        length += CharLength(name, length);
    }
    record.lfFaceName.fill('\0');
    std::copy_n(name.begin(), length, record.lfFaceName.begin());
}

OwnedFont MakeFont(LOGFONTW record) {
    if (IsChinese(record) && StandIn() != nullptr && !IsInstalled(record.lfFaceName)) {
        ::lstrcpynW(record.lfFaceName, StandIn(), LF_FACESIZE);
    }
    return OwnedFont(::CreateFontIndirectW(&record));
}

HFONT StockFont::LikeFont(HFONT described) {
    LOGFONTW record{};
    if (described == nullptr || ::GetObjectW(described, sizeof record, &record) == 0) {
        return nullptr;
    }
    if (m_font.Get() == nullptr || std::memcmp(&record, &m_record, sizeof record) != 0) {
        m_record = record;
        m_font = MakeFont(record);
    }
    return m_font.Get();
}

HFONT GdiFonts::Find(const LogFont& record) const {
    const auto found =
        std::ranges::find_if(m_fonts, [&](const Entry& entry) { return entry.record == record; });
    return found == m_fonts.end() ? nullptr : found->font.Get();
}

HFONT GdiFonts::Make(const LogFont& record) {
    OwnedFont font = MakeFont(WideRecord(record));
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
