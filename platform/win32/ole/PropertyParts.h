// What property browsers ask of a control: its pages and the choices of a property.
#pragma once

#include "platform/win32/ole/OleObject.h"

namespace veygrid {

class CVeyOleControl;

class PagesPart final : public Part<ISpecifyPropertyPages, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetPages(CAUUID* pages) override;
};

class BrowsingPart final : public Part<IPerPropertyBrowsing, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetDisplayString(DISPID id, BSTR* text) override;
    STDMETHODIMP MapPropertyToPage(DISPID id, CLSID* page) override;
    STDMETHODIMP GetPredefinedStrings(DISPID id, CALPOLESTR* strings, CADWORD* cookies) override;
    STDMETHODIMP GetPredefinedValue(DISPID id, DWORD cookie, VARIANT* value) override;
};

}  // namespace veygrid
