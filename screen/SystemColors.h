// The colours of the system that the sheet is drawn in.
#pragma once

#include <cstdint>

#include "platform/Geometry.h"

namespace veygrid {

// Numbers of GetSysColor.
enum SysColorIndex : std::int32_t {
    ColorBackground = 1,
    ColorActiveCaption = 2,
    ColorBtnFace = 15,
    ColorBtnShadow = 16,
    ColorBtnHighlight = 20,
    Color3dDkShadow = 21,
};

// Read once, when the control is made; a later change of the system's scheme is not followed.
struct SystemColors {
    Color m_clrBackground = 0;     // the empty area beside the sheet
    Color m_clrFace = 0;           // the header strips
    Color m_clrHighlight = 0;      // top and left of a raised box; the empty area on paper
    Color m_clrDarkShadow = 0;     // bottom and right of a raised box
    Color m_clrShadow = 0;         // the outer edge of form objects
    Color m_clrActiveCaption = 0;  // the mark of the active cell

    // From a function that takes a SysColorIndex.
    template <class GetSysColor>
    static SystemColors Read(GetSysColor getSysColor) {
        return {getSysColor(ColorBackground),   getSysColor(ColorBtnFace),
                getSysColor(ColorBtnHighlight), getSysColor(Color3dDkShadow),
                getSysColor(ColorBtnShadow),    getSysColor(ColorActiveCaption)};
    }
};

}  // namespace veygrid
