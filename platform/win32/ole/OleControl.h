// The base of an OLE control: what containers, scripts and property sheets expect of any control.
#pragma once

#include <cstdint>

#include "grid/GridProperties.h"
#include "platform/win32/ole/DispatchPart.h"
#include "platform/win32/ole/OleObject.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// What stays the same for all controls of a class.
struct ControlClass {
    const AutomationClass& automation;
    DWORD miscStatus;     // OLEMISC bits
    UINT userTypeNameId;  // string resource
};

class CVeyOleControl : public OleObject {
  public:
    const ControlClass& Class() const { return m_class; }

    bool IsModified() const { return m_modified; }
    void SetModifiedFlag(bool modified = true) { m_modified = modified; }

    // Stock properties.
    std::uint32_t ForeColor() { return Stock().ForeColor; }
    std::uint32_t BackColor() { return StockBackColor(); }
    std::int16_t BorderStyle() { return Stock().BorderStyle; }
    bool Enabled() { return Stock().Enabled; }
    void SetForeColor(std::uint32_t color);
    void SetBackColor(std::uint32_t color);
    void SetBorderStyle(std::int16_t style);
    void SetEnabled(bool enabled);
    ComPtr<IDispatch> FontObject();
    void SetFontObject(IDispatch* font);

  protected:
    // `handled` is the object as the handlers of the automation table take it.
    CVeyOleControl(IUnknown* outer, const ControlClass& controlClass, void* handled);

    // Where the values of the stock properties and the extent live.
    virtual StockProperties& Stock() = 0;
    virtual std::uint32_t& StockBackColor() = 0;

    IUnknown* FindInterface(REFIID iid) override;

  private:
    const ControlClass& m_class;
    AutomationParts m_automation;
    bool m_modified = false;
};

}  // namespace veygrid
