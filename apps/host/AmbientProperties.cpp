// The ambient properties that the host offers to its controls.
#include "apps/host/AmbientProperties.h"

#include <utility>

namespace veygrid {

namespace {

ComPtr<IFontDisp> MakeAmbientFont() {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    wchar_t name[] = L"宋体";
    description.lpstrName = name;
    description.cySize.int64 = 9 * 10000;  // points, in ten-thousandths
    description.sWeight = FW_NORMAL;
    description.sCharset = GB2312_CHARSET;
    ComPtr<IFontDisp> font;
    OleCreateFontIndirect(&description, IID_IFontDisp, &font);
    return font;
}

Variant SystemColor(int index) {
    return Variant::Of(static_cast<long>(0x80000000UL | static_cast<unsigned long>(index)));
}

}  // namespace

AmbientProperties::AmbientProperties(LCID locale) : m_locale(locale), m_font(MakeAmbientFont()) {}

HRESULT AmbientProperties::Get(DISPID property, VARIANT* value) const {
    Variant answer;
    switch (property) {
        case DISPID_AMBIENT_BACKCOLOR:
            answer = SystemColor(COLOR_WINDOW);
            break;
        case DISPID_AMBIENT_FORECOLOR:
            answer = SystemColor(COLOR_WINDOWTEXT);
            break;
        case DISPID_AMBIENT_FONT:
            answer = Variant::Of(m_font.Get());
            break;
        case DISPID_AMBIENT_LOCALEID:
            answer = Variant::Of(static_cast<long>(m_locale));
            break;
        case DISPID_AMBIENT_DISPLAYNAME:
            answer = Variant::Of(L"Grid");
            break;
        case DISPID_AMBIENT_SCALEUNITS:
            answer = Variant::Of(L"pixel");
            break;
        case DISPID_AMBIENT_USERMODE:
            answer = Variant::Of(true);
            break;
        case DISPID_AMBIENT_SUPPORTSMNEMONICS:
            answer = Variant::Of(true);
            break;
        case DISPID_AMBIENT_MESSAGEREFLECT:
        case DISPID_AMBIENT_UIDEAD:
        case DISPID_AMBIENT_SHOWGRABHANDLES:
        case DISPID_AMBIENT_SHOWHATCHING:
        case DISPID_AMBIENT_DISPLAYASDEFAULT:
            answer = Variant::Of(false);
            break;
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
    return VariantCopy(value, &answer);
}

}  // namespace veygrid
