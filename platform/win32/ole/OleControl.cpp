// The base of an OLE control.
#include "platform/win32/ole/OleControl.h"

namespace veygrid {

CVeyOleControl::CVeyOleControl(IUnknown* outer, const ControlClass& controlClass, void* handled)
    : OleObject(outer),
      m_class(controlClass),
      m_automation(*this, controlClass.automation, handled) {}

IUnknown* CVeyOleControl::FindInterface(REFIID iid) {
    return m_automation.Find(iid);
}

void CVeyOleControl::SetForeColor(std::uint32_t color) {
    Stock().ForeColor = color;
    SetModifiedFlag();
}

void CVeyOleControl::SetBackColor(std::uint32_t color) {
    StockBackColor() = color;
    SetModifiedFlag();
}

void CVeyOleControl::SetBorderStyle(std::int16_t style) {
    Stock().BorderStyle = style;
    SetModifiedFlag();
}

void CVeyOleControl::SetEnabled(bool enabled) {
    Stock().Enabled = enabled;
    SetModifiedFlag();
}

ComPtr<IDispatch> CVeyOleControl::FontObject() {
    return nullptr;
}

void CVeyOleControl::SetFontObject(IDispatch*) {}

}  // namespace veygrid
