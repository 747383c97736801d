// The ambient properties that the host offers to its controls.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include "apps/host/ComObject.h"
#include "apps/host/Variant.h"

namespace veygrid {

class AmbientProperties {
  public:
    // `locale` is what controls read as the ambient locale.
    explicit AmbientProperties(LCID locale);

    // S_OK, or DISP_E_MEMBERNOTFOUND for a property that the host does not offer.
    HRESULT Get(DISPID property, VARIANT* value) const;

  private:
    LCID m_locale;
    ComPtr<IFontDisp> m_font;
};

}  // namespace veygrid
