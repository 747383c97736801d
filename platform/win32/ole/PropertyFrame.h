// A modal window around the property pages of an object.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/ole/AutomationTypes.h"

namespace veygrid {

struct PropertyFrameSetting {
    HWND owner;  // may be null
    std::wstring caption;
    IUnknown* object;  // held by the pages alone
    std::vector<ComPtr<IPropertyPage>> pages;
    LCID locale;
};

// Runs until the user closes it. A page that cannot show itself is left out; with none left the
// frame does not open and the last page's failure is the result.
HRESULT ShowPropertyFrame(PropertyFrameSetting setting);

}  // namespace veygrid
