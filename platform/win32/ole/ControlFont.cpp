// A control's font as an automation object and as the record that is stored.
#include "platform/win32/ole/ControlFont.h"

#include <algorithm>
#include <string>

#include "platform/win32/GdiFonts.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

constexpr std::int64_t PointsPerInch = 72;
constexpr std::int64_t CurrencyUnit = 10000;

int LinesPerInch() {
    const HDC screen = ::GetDC(nullptr);
    const int lines = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    return lines > 0 ? lines : 96;
}

ComPtr<IDispatch> MakeFont(FONTDESC& description) {
    ComPtr<IDispatch> font;
    Require(::OleCreateFontIndirect(&description, IID_IDispatch,
                                    reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

std::string FaceName(const LogFont& record) {
    return {record.lfFaceName.begin(), std::ranges::find(record.lfFaceName, '\0')};
}

CY SizeOfHeight(std::int32_t height) {
    CY size{};
    size.int64 = std::int64_t{height < 0 ? -std::int64_t{height} : height} * PointsPerInch *
                 CurrencyUnit / LinesPerInch();
    return size;
}

}  // namespace

ComPtr<IDispatch> FontFromRecord(const LogFont& record) {
    std::wstring name = WideFromText(FaceName(record));
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize = SizeOfHeight(record.lfHeight);
    description.sWeight = static_cast<SHORT>(std::clamp(record.lfWeight, 0, 1000));
    description.sCharset = record.lfCharSet;
    description.fItalic = record.lfItalic != 0;
    description.fUnderline = record.lfUnderline != 0;
    description.fStrikethrough = record.lfStrikeOut != 0;
    return MakeFont(description);
}

LogFont RecordFromFont(IDispatch* object) {
    LogFont record{.lfWeight = AmbientFontWeight};
    ComPtr<IFont> font;
    if (object == nullptr ||
        FAILED(object->QueryInterface(IID_IFont, reinterpret_cast<void**>(font.GetAddressOf())))) {
        return record;
    }
    OwnedBstr name;
    CY size{};
    SHORT weight = FW_NORMAL;
    SHORT charset = DEFAULT_CHARSET;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikeOut = FALSE;
    font->get_Name(name.Address());
    font->get_Size(&size);
    font->get_Weight(&weight);
    font->get_Charset(&charset);
    font->get_Italic(&italic);
    font->get_Underline(&underline);
    font->get_Strikethrough(&strikeOut);
    record.lfHeight = static_cast<std::int32_t>(
        -(size.int64 * LinesPerInch() + PointsPerInch * CurrencyUnit / 2) /
        (PointsPerInch * CurrencyUnit));
    record.lfWeight = std::max<std::int32_t>(weight, 0);
    record.lfItalic = italic != FALSE;
    record.lfUnderline = underline != FALSE;
    record.lfStrikeOut = strikeOut != FALSE;
    record.lfCharSet = static_cast<std::uint8_t>(charset);
    SetFaceName(record, TakeBstr(name.Get()));
    return record;
}

ComPtr<IDispatch> DefaultFont() {
    wchar_t name[] = L"宋体";
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = 9 * CurrencyUnit;
    description.sWeight = FW_NORMAL;
    description.sCharset = GB2312_CHARSET;
    return MakeFont(description);
}

}  // namespace veygrid
